#include "support/TestEnvironment.h"

#include <QSettings>

namespace testsupport {

TestEnvironment::TestEnvironment() {
    qputenv("XDG_DATA_HOME", m_dir.filePath(QStringLiteral("data")).toUtf8());
    qunsetenv("VOR_DATABASE");
    // The copy of the manual that F1 writes for the viewer, too.
    qputenv("XDG_CACHE_HOME", m_dir.filePath(QStringLiteral("cache")).toUtf8());
    // The program's settings (the last export folder, the mail server) stay in the scratch
    // folder too, never in the settings of whoever runs the tests.
    const QString config = m_dir.filePath(QStringLiteral("config"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, config);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, config);
}

QString TestEnvironment::newDatabasePath(const QString& name) const {
    return path(name);
}

} // namespace testsupport
