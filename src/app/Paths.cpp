#include "app/Paths.h"

#include <QDir>
#include <QFileInfo>

namespace app {

QString joinPath(const QString& folder, const QString& fileName) {
    if (folder.isEmpty() || folder.endsWith(u'/') || folder.endsWith(QDir::separator()))
        return folder + fileName;
    return folder + u'/' + fileName;
}

QString databasePath(const QString& commandLineArgument) {
    if (!commandLineArgument.isEmpty())
        return commandLineArgument;
    const QString fromEnvironment = qEnvironmentVariable("VOR_DATABASE");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    QString dataHome = qEnvironmentVariable("XDG_DATA_HOME");
    if (dataHome.isEmpty())
        dataHome = joinPath(QDir::homePath(), QStringLiteral(".local/share"));
    return joinPath(joinPath(dataHome, QStringLiteral("vor")), kDatabaseFileName);
}

QString incomingDatabasePath(const QString& databasePath) {
    const QFileInfo info(databasePath);
    return joinPath(joinPath(info.absolutePath(), QStringLiteral("incoming")), info.fileName());
}

} // namespace app
