#include "support/TestEnvironment.h"

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
