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

#include <QDir>
#include <QWidget>

namespace testsupport {

void saveScreenshot(QWidget& widget, const QString& name) {
    const QString folder = qEnvironmentVariable("VOR_SCREENSHOTS");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    widget.grab().save(QDir(folder).filePath(name + QStringLiteral(".png")));
}

} // namespace testsupport
