#include "shell/Hooks.h"

#include "shell/ExportPanel.h"
#include "shell/ImportScreens.h"
#include "shell/MainWindow.h"
#include "shell/PrintChooser.h"
#include "ui/Dialogs.h"
#include "ui/PrintMemorial.h"
#include "ui/ScreenHost.h"

#include <QDesktopServices>
#include <QProgressDialog>

namespace shell {

namespace {

Hooks firstHooks() {
    Hooks h;
    h.generateDiskette = [](MainWindow& window, ui::Session&) {
        window.chooseRegister(RegisterChooser::Purpose::Export);
    };
    h.printMemorial = [](MainWindow& window, ui::Session&) {
        printFromMainScreen(window.database(), &window);
    };
    h.agencies = [](MainWindow& window, ui::Session&) { window.openAgencies(); };
    h.suggestions = [](MainWindow& window, ui::Session&) {
        window.chooseRegister(RegisterChooser::Purpose::Suggestions);
    };
    h.importMemorial = [](MainWindow& window, ui::Session&) { openImport(window); };
    h.exportRegister = [](QuestionnaireFrame& frame, ui::Session&, const store::RegisterKey& key) {
        const std::optional<QString> directory =
            ui::chooseExportDirectory(&frame, lastExportDirectory());
        if (!directory || !ui::confirmExportTo(*directory))
            return;
        // The list shows the main screen's wait text and bar while the tables are written.
        QProgressDialog progress(ui::kExportWaitText, QString(), 0, 1, &frame);
        progress.setWindowTitle(ui::kTitle);
        progress.setWindowModality(Qt::WindowModal);
        progress.setMinimumDuration(0);
        exportRegister(
            frame.database(), key, *directory,
            [&progress](int step, int steps) {
                progress.setMaximum(steps);
                progress.setValue(step);
            },
            [&progress] { progress.hide(); });
    };
    h.printRegister = [](QuestionnaireFrame& frame, ui::Session&, const store::RegisterKey& key) {
        ui::printMemorial(frame.database(), key, ui::PrintDestination::Printer, &frame);
    };
    h.continueChain = [](QuestionnaireFrame& frame, ui::Session&) {
        ui::showNext(frame, {QStringLiteral("frmVOR")});
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
