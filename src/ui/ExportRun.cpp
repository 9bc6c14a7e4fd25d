#include "ui/ExportRun.h"

#include "exchange/ExportFailure.h"
#include "exchange/Exporter.h"
#include "exchange/MailPassword.h"
#include "store/Failure.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/MailSettingsDialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>

namespace ui {

namespace {

// The hourglass for the length of a scope.
class WaitCursor {
public:
    WaitCursor() {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()))
            QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~WaitCursor() { reset(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    void reset() {
        if (m_on && qobject_cast<QApplication*>(QCoreApplication::instance()))
            QApplication::restoreOverrideCursor();
        m_on = false;
    }

private:
    bool m_on = true;
};

// The password for a login: the one this session or the keyring knows, else asked for now and
// kept for the session. Nothing when the user cancels. A login that the connection would refuse
// asks for nothing: the send says why.
std::optional<QString> mailPassword(const exchange::MailSettings& settings) {
    if (exchange::plainLoginRefusal(settings))
        return QString();
    if (const auto known = exchange::knownMailPassword().password)
        return known;
    const std::optional<QString> typed = dialogs().input(
        kTitle,
        QStringLiteral("Senha do usuário %1 no servidor %2:").arg(settings.user, settings.host),
        true);
    if (typed)
        exchange::keepMailPasswordForSession(*typed);
    return typed;
}

} // namespace

ExportRunOutcome runExportWithQuestions(store::Database& db, const store::RegisterKey& key,
                                        const QString& directory, const ExportRunOptions& options) {
    ExportRunOutcome outcome;
    const int steps = exchange::Exporter::tableSteps() + 1;
    auto progress = [&](int step) {
        if (options.progress)
            options.progress(step, steps);
    };
    progress(0);
    auto over = [&] {
        if (options.written)
            options.written();
    };

    WaitCursor cursor;
    exchange::ExportResult result;
    try {
        exchange::Exporter exporter(db);
        exporter.setProgress([&](int step, int) { progress(step); });
        result = exporter.run(key, directory);
    } catch (const exchange::ExportFailure& failure) {
        cursor.reset();
        progress(0);
        over();
        dialogs().message(kTitle, failure.message(), Icon::Critical);
        return outcome;
    } catch (const store::Failure& failure) {
        cursor.reset();
        progress(0);
        over();
        reportFailure(failure);
        return outcome;
    }
    outcome.exported = true;
    outcome.joinedPath = result.joinedPath;

    progress(steps);
    cursor.reset();
    over();
    runGuarded([&] {
        exchange::MailStep step(db, key, result.companyName, result.fileKey, result.joinedPath);
        if (!dialogs().ask(kTitle, step.question(), Icon::Question, false))
            return;
        // The first send of a machine finds no server: the user fills it in here, once.
        if (!options.mail && !exchange::MailSettings::load().isComplete() &&
            !MailSettingsDialog::edit(QApplication::activeWindow()))
            return;
        exchange::MailSettings settings =
            options.mail ? *options.mail : exchange::MailSettings::load();
        if (!options.mail && !settings.user.isEmpty()) {
            const std::optional<QString> password = mailPassword(settings);
            if (!password)
                return;
            settings.password = *password;
        }
        const exchange::MailStep::Outcome sent = step.send(settings, options.sender);
        if (sent.sendError) {
            dialogs().message(
                kTitle, QStringLiteral("Um erro ocorreu durante a emissão: ") + *sent.sendError,
                Icon::Critical);
            return;
        }
        outcome.mailed = true;
        dialogs().message(
            kTitle,
            QStringLiteral("E-mail enviado com sucesso para %1.").arg(settings.recipient.trimmed()),
            Icon::Information);
        if (sent.protocol && options.printProtocol) {
            if (const auto error = options.printProtocol(*sent.protocol))
                dialogs().message(
                    kTitle,
                    QStringLiteral("Durante a emissão ocorreu um erro com o seguinte código: ") +
                        *error,
                    Icon::Critical);
        }
    });
    return outcome;
}

bool confirmExportTo(const QString& directory) {
    return dialogs().ask(QStringLiteral("Confirmação"),
                         QStringLiteral("Continuar a Exportação dos dados do posto selecionado "
                                        "para ") +
                             QDir::toNativeSeparators(directory) + QLatin1Char('?'),
                         Icon::Question, false);
}

std::optional<QString> chooseExportDirectory(QWidget* parent, const QString& start) {
    const QString chosen = QFileDialog::getExistingDirectory(
        parent, QStringLiteral("Selecione o local para onde será exportado"), start);
    if (chosen.isEmpty())
        return std::nullopt;
    return chosen;
}

} // namespace ui
