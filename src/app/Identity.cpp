#include "app/Identity.h"

#include <QGuiApplication>

namespace app {

void identifyApplication() {
    QCoreApplication::setApplicationName(QStringLiteral("vor"));
    QCoreApplication::setOrganizationName(QStringLiteral("vor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VOR_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(VOR_APP_ID));
}

} // namespace app
