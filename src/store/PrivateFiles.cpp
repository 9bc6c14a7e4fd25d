#include "store/PrivateFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>
#include <utility>

namespace store {

namespace {

constexpr QFileDevice::Permissions kOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                QFileDevice::ExeOwner | QFileDevice::ReadUser |
                                                QFileDevice::WriteUser | QFileDevice::ExeUser;

constexpr QFileDevice::Permissions kPrivateFolderPermissions =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

} // namespace

bool makePrivateFolder(const QString& folder) {
    const QString target = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    QStringList missing;
    for (QString current = target; !QFileInfo::exists(current);) {
        missing.prepend(current);
        const QString parent = QFileInfo(current).path();
        if (parent == current)
            break;
        current = parent;
    }
    // mkdir with the mode itself: the folder is never open to others, not even for a moment.
    for (const QString& path : missing) {
        if (!QDir().mkdir(path, kPrivateFolderPermissions) && !QFileInfo(path).isDir())
            return false;
    }
    return QFileInfo(target).isDir();
}

bool makePrivateFile(const QString& path) {
    if (QFileInfo::exists(path)) {
        narrowToOwner(path);
        return true;
    }
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly, kPrivateFilePermissions))
        return true;
    return QFileInfo::exists(path);
}

void makeSettingsPrivate(const QSettings& settings) {
    const QString file = settings.fileName();
    if (makePrivateFolder(QFileInfo(file).absolutePath()))
        makePrivateFile(file);
}

std::optional<QFileDevice::Permissions> narrowToOwner(const QString& path) {
    if (!QFileInfo::exists(path))
        return std::nullopt;
    const QFileDevice::Permissions before = QFile::permissions(path);
    if ((before & ~kOwnerOnly) == QFileDevice::Permissions())
        return std::nullopt;
    if (!QFile::setPermissions(path, before & kOwnerOnly))
        return std::nullopt;
    // A file system without permissions accepts the call and changes nothing.
    if ((QFile::permissions(path) & ~kOwnerOnly) != QFileDevice::Permissions())
        return std::nullopt;
    return before;
}

QString modeText(QFileDevice::Permissions permissions) {
    int mode = 0;
    const std::pair<QFileDevice::Permission, int> bits[] = {
        {QFileDevice::ReadOwner, 0400}, {QFileDevice::WriteOwner, 0200},
        {QFileDevice::ExeOwner, 0100},  {QFileDevice::ReadGroup, 040},
        {QFileDevice::WriteGroup, 020}, {QFileDevice::ExeGroup, 010},
        {QFileDevice::ReadOther, 04},   {QFileDevice::WriteOther, 02},
        {QFileDevice::ExeOther, 01}};
    for (const auto& [permission, bit] : bits) {
        if (permissions.testFlag(permission))
            mode |= bit;
    }
    return QStringLiteral("%1").arg(mode, 4, 8, QLatin1Char('0'));
}

} // namespace store
