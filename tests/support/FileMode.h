#pragma once

#include <QString>
#include <sys/stat.h>

namespace testsupport {

// The permission bits of a file or folder as `ls -l` counts them, in octal ("0600"); empty when
// it does not exist.
inline QString fileMode(const QString& path) {
    struct stat info {};
    if (::stat(path.toLocal8Bit().constData(), &info) != 0)
        return QString();
    return QStringLiteral("%1").arg(info.st_mode & 07777, 4, 8, QLatin1Char('0'));
}

} // namespace testsupport
