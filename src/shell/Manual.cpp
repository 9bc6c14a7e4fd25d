#include "shell/Manual.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace shell {

QString installedManual(const QString& programFolder) {
    const QString file =
        QDir(programFolder).filePath(QStringLiteral(VOR_MANUAL_FROM_PROGRAM "/index.html"));
    return QFileInfo(file).isFile() ? QDir::cleanPath(file) : QString();
}

QString manualFile(const QString& programFolder) {
    const QString installed = installedManual(programFolder);
    if (!installed.isEmpty())
        return installed;
    // The copy goes to a folder of this user's own: in a folder shared by every user, the first
    // one to open the manual would own it and the others could not write their copy.
    const QString folder =
        QDir(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation))
            .filePath(QStringLiteral("vor/manual"));
    const QString target = QDir(folder).filePath(QStringLiteral("index.html"));
    QDir().mkpath(folder);
    // A copy from an earlier run may be of an older release, and is read-only as copied.
    QFile::remove(target);
    if (!QFile::copy(QStringLiteral(":/manual/index.html"), target))
        return QString();
    QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return target;
}

} // namespace shell
