#include "store/Backup.h"

#include "store/Database.h"
#include "store/Failure.h"
#include "store/PrivateFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <unistd.h>

namespace store {

namespace {

// The system's number for a failure to write a file, as the error routine shows it.
constexpr int kWriteFailureNumber = 75;

// SQLite's result codes for the failures a backup meets in practice.
constexpr int kBusy = 5;
constexpr int kReadOnly = 8;
constexpr int kFull = 13;
constexpr int kCantOpen = 14;

const QString kPartialSuffix = QStringLiteral(".parcial");

QString reasonText(const Failure& failure) {
    if (failure.fromDatabase()) {
        switch (failure.number()) {
        case kBusy:
            return QStringLiteral("o banco de dados está em uso por outro programa");
        case kFull:
            return QStringLiteral("espaço insuficiente na unidade");
        case kReadOnly:
        case kCantOpen:
            return QStringLiteral("a pasta não permite gravação");
        default:
            break;
        }
    }
    return failure.description();
}

Failure backupFailure(const QString& path, const QString& reason) {
    return Failure::other(kWriteFailureNumber,
                          QStringLiteral("Não foi possível gravar a cópia de segurança %1: %2")
                              .arg(QDir::toNativeSeparators(path), reason));
}

// The copy on the disk itself, not only in the system's buffers, before it takes its name.
bool flushToDisk(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadWrite) && ::fsync(file.handle()) == 0;
}

} // namespace

QString backupPath(const QString& databasePath, const QDateTime& when) {
    const QDir folder(QFileInfo(databasePath).absoluteDir().filePath(QStringLiteral("backups")));
    const QString stem =
        QStringLiteral("VOR-POSTO-") + when.toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString path = folder.filePath(stem + QStringLiteral(".db"));
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = folder.filePath(stem + QStringLiteral("-%1.db").arg(n));
    return path;
}

QString writeBackup(Database& db, const QDateTime& when) {
    const QString path = backupPath(db.path(), when);
    const QDir folder = QFileInfo(path).absoluteDir();
    const bool newFolder = !folder.exists();
    if (!makePrivateFolder(folder.path()))
        throw backupFailure(path, QStringLiteral("não foi possível criar a pasta %1")
                                      .arg(QDir::toNativeSeparators(folder.path())));
    // What a copy broken off earlier left (the program killed while it wrote) is no backup.
    for (const QString& left :
         folder.entryList({QStringLiteral("*") + kPartialSuffix}, QDir::Files))
        QFile::remove(folder.filePath(left));

    // The copy is written under a name of its own and takes the backup's name only when it is
    // whole, so that no broken copy ever stands under a backup's name.
    const QString partial = path + kPartialSuffix;
    const auto giveUp = [&](const QString& reason) {
        QFile::remove(partial);
        if (newFolder)
            QDir().rmdir(folder.path());
        return backupFailure(path, reason);
    };
    try {
        // VACUUM INTO writes a complete, consistent database even while this connection is open;
        // it fills the empty private file made here as it would a missing one.
        makePrivateFile(partial);
        db.run(QStringLiteral("VACUUM INTO ?"), {partial});
    } catch (const Failure& failure) {
        throw giveUp(reasonText(failure));
    }
    if (!flushToDisk(partial) || !QFile::rename(partial, path))
        throw giveUp(QStringLiteral("a pasta não permite gravação"));
    return path;
}

} // namespace store
