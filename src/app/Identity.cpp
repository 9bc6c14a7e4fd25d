#include "app/Identity.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace app {

void identifyApplication() {
    QCoreApplication::setApplicationName(QStringLiteral("vor"));
    QCoreApplication::setOrganizationName(QStringLiteral("vor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VOR_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(VOR_APP_ID));
}

bool speakPortuguese() {
    const QLocale brazil(QLocale::Portuguese, QLocale::Brazil);
    QLocale::setDefault(brazil);
    // qtbase holds the texts of the widgets' dialogs (print, files, input), of the text
    // fields' context menu and of the standard buttons.
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (!translator->load(brazil, QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    QCoreApplication::installTranslator(translator);
    return true;
}

} // namespace app
