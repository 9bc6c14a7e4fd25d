#include "support/TestEnvironment.h"

namespace testsupport {

TestEnvironment::TestEnvironment() {
    qputenv("XDG_DATA_HOME", m_dir.filePath(QStringLiteral("data")).toUtf8());
    qunsetenv("VOR_DATABASE");
}

QString TestEnvironment::newDatabasePath(const QString& name) const {
    return path(name);
}

} // namespace testsupport
