#include "shell/Hooks.h"

#include "ui/Dialogs.h"

#include <QDesktopServices>

namespace shell {

namespace {

Hooks::MainEntry notAvailableEntry(const QString& function) {
    return [function](MainWindow&, ui::Session&) { reportNotAvailable(function); };
}

Hooks::ListAction notAvailableAction(const QString& function) {
    return [function](QuestionnaireFrame&, ui::Session&, const store::RegisterKey&) {
        reportNotAvailable(function);
    };
}

Hooks firstHooks() {
    Hooks h;
    h.generateDiskette = notAvailableEntry(QStringLiteral("A Geração do Disquete"));
    h.printMemorial = notAvailableEntry(QStringLiteral("A Impressão do Memorial"));
    h.agencies = notAvailableEntry(QStringLiteral("A lista de Agências Ambientais"));
    h.suggestions = notAvailableEntry(QStringLiteral("O envio de Sugestões"));
    h.importMemorial = notAvailableEntry(QStringLiteral("A Importação do Memorial"));
    h.exportRegister = notAvailableAction(QStringLiteral("A Exportação"));
    h.printRegister = notAvailableAction(QStringLiteral("A Impressão"));
    h.continueChain = [](QuestionnaireFrame&, ui::Session&) {
        reportNotAvailable(QStringLiteral("O preenchimento das telas seguintes do memorial"));
    };
    h.openUrl = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
    return h;
}

} // namespace

Hooks& hooks() {
    static Hooks current = firstHooks();
    return current;
}

void resetHooks() {
    hooks() = firstHooks();
}

void reportNotAvailable(const QString& function) {
    ui::dialogs().message(
        ui::kTitle, function + QStringLiteral(" ainda não está disponível nesta versão do VOR."),
        ui::Icon::Information);
}

} // namespace shell
