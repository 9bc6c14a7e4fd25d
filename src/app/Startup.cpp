#include "app/Startup.h"

#include "store/Backup.h"
#include "store/CarryOver.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/PrivateFiles.h"
#include "ui/Dialogs.h"

#include <QFile>
#include <QFileInfo>

namespace app {

namespace {

IncomingResult failed(const QString& work, const QString& detail) {
    QFile::remove(work);
    IncomingResult result;
    result.outcome = IncomingOutcome::CarryOverFailed;
    result.detail = detail;
    return result;
}

IncomingResult carryOverInto(const QString& incoming, const QString& databasePath) {
    const QString work = incoming + QStringLiteral(".transferindo");
    QFile::remove(work);
    if (!QFile::copy(incoming, work))
        return failed(work, QStringLiteral("Não foi possível copiar ") + incoming);
    // A copy keeps the permissions of the file the release left.
    store::narrowToOwner(work);

    IncomingResult result;
    try {
        store::Database old(databasePath);
        store::Database fresh(work);
        result.registers = store::carryOver(old, fresh);
    } catch (const store::Failure& failure) {
        return failed(work, failure.fromDatabase() ? store::databaseErrorText(failure)
                                                   : failure.description());
    }

    result.backupPath = store::backupPath(databasePath, QDateTime::currentDateTime());
    store::makePrivateFolder(QFileInfo(result.backupPath).absolutePath());
    if (!QFile::rename(databasePath, result.backupPath))
        return failed(work, QStringLiteral("Não foi possível guardar ") + databasePath);
    if (!QFile::rename(work, databasePath)) {
        QFile::rename(result.backupPath, databasePath);
        return failed(work, QStringLiteral("Não foi possível gravar ") + databasePath);
    }
    QFile::remove(incoming);
    result.outcome = IncomingOutcome::CarriedOver;
    return result;
}

} // namespace

IncomingResult takeIncomingDatabase(const QString& databasePath) {
    const QString incoming = incomingDatabasePath(databasePath);
    IncomingResult result;
    if (!QFileInfo::exists(incoming))
        return result;
    // The carry-over fills a copy beside the waiting file with every register.
    store::narrowToOwner(QFileInfo(incoming).absolutePath());
    if (QFileInfo::exists(databasePath))
        return carryOverInto(incoming, databasePath);
    store::makePrivateFolder(QFileInfo(databasePath).absolutePath());
    result.outcome = IncomingOutcome::MovedInto;
    if (QFile::rename(incoming, databasePath)) {
        store::narrowToOwner(databasePath);
        return result;
    }
    // Across file systems a rename fails: copy, and remove the original only once the copy
    // is complete.
    if (QFile::copy(incoming, databasePath)) {
        store::narrowToOwner(databasePath);
        QFile::remove(incoming);
        return result;
    }
    QFile::remove(databasePath);
    result.outcome = IncomingOutcome::MoveFailed;
    return result;
}

void reportIncoming(const IncomingResult& result, const QString& databasePath) {
    const QString incoming = incomingDatabasePath(databasePath);
    switch (result.outcome) {
    case IncomingOutcome::Nothing:
    case IncomingOutcome::MovedInto:
        return;
    case IncomingOutcome::CarriedOver:
        ui::dialogs().message(
            ui::kTitle,
            QStringLiteral("Os cadastros do banco de dados em uso foram transferidos para o "
                           "banco de dados novo.\n\nO arquivo anterior foi guardado em:\n%1")
                .arg(result.backupPath),
            ui::Icon::Information);
        return;
    case IncomingOutcome::CarryOverFailed:
        ui::dialogs().message(
            ui::kTitle,
            QStringLiteral("Não foi possível transferir os cadastros para o banco de dados "
                           "novo:\n%1\n\nO banco em uso (%2) continua sendo usado; o novo "
                           "continua aguardando em:\n%3")
                .arg(result.detail, databasePath, incoming),
            ui::Icon::Warning);
        return;
    case IncomingOutcome::MoveFailed:
        ui::dialogs().message(
            ui::kTitle,
            QStringLiteral("Não foi possível mover o banco de dados novo de\n%1\npara\n%2\n\nO "
                           "arquivo continua onde estava.")
                .arg(incoming, databasePath),
            ui::Icon::Warning);
        return;
    }
}

} // namespace app
