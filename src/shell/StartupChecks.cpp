#include "shell/StartupChecks.h"

#include "ui/Dialogs.h"

namespace shell {

namespace {
const QString kCannotGoOn = QStringLiteral("ATENÇÃO! Impossível continuar...");
}

bool dateFormatAcceptable(const QString& format, const QDate& today) {
    return today.toString(format).size() == 10;
}

bool screenAcceptable(const QSize& size) {
    return !(size.height() < 600 && size.width() < 800);
}

bool checkDateFormat(const QString& format, const QDate& today) {
    if (dateFormatAcceptable(format, today))
        return true;
    ui::dialogs().message(kCannotGoOn,
                          QStringLiteral("Altere no Windows, o formato atual de data para 4 "
                                         "dígitos!\nEm Configurações Regionais escolha \no item "
                                         "Data, e altere o estilo para dd/mm/aaaa "),
                          ui::Icon::Information);
    return false;
}

bool checkScreen(const QSize& size) {
    if (screenAcceptable(size))
        return true;
    ui::dialogs().message(
        kCannotGoOn,
        QStringLiteral("Altere no Windows, o tamanho da tela para 800x600 (Fontes Pequenas)!"),
        ui::Icon::Information);
    return false;
}

} // namespace shell
