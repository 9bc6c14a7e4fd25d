#pragma once

#include <QString>
#include <QTemporaryDir>

namespace testsupport {

// A scratch folder for one test, with XDG_DATA_HOME and XDG_CACHE_HOME pointing into it and
// VOR_DATABASE unset, so that nothing reaches the user's own files.
class TestEnvironment {
public:
    TestEnvironment();

    QString path(const QString& relative) const { return m_dir.filePath(relative); }
    // A database path inside the scratch folder that does not exist yet.
    QString newDatabasePath(const QString& name = QStringLiteral("VOR-POSTO.db")) const;

private:
    QTemporaryDir m_dir;
};

} // namespace testsupport

class QWidget;

namespace testsupport {

// Saves a picture of `widget` as NAME.png into $VOR_SCREENSHOTS when that is set, so that a
// developer can look at a screen as the test left it. Does nothing otherwise.
void saveScreenshot(QWidget& widget, const QString& name);

} // namespace testsupport
