#include "store/Backup.h"

#include "store/Database.h"
#include "store/Failure.h"
#include "store/PrivateFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace store {

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
    const QString folder = QFileInfo(path).absolutePath();
    if (!makePrivateFolder(folder))
        throw Failure::other(75, QStringLiteral("Não foi possível criar a pasta ") + folder);
    // VACUUM INTO writes a complete, consistent database even while this connection is open;
    // it fills the empty private file made here as it would a missing one.
    makePrivateFile(path);
    try {
        db.run(QStringLiteral("VACUUM INTO ?"), {path});
    } catch (...) {
        QFile::remove(path);
        throw;
    }
    return path;
}

} // namespace store
