#include "ui/ErrorRoutine.h"

#include "ui/Dialogs.h"

#include <QApplication>

namespace ui {

namespace {

// Visual Basic's number for an internal error: what a failure without a number of its own
// shows to the user.
constexpr int kInternalErrorNumber = 51;

void restoreNormalPointer() {
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

} // namespace

bool reportFailure(const store::Failure& failure) {
    restoreNormalPointer();
    if (failure.fromDatabase()) {
        dialogs().message(kTitle, store::databaseErrorText(failure), Icon::None);
        return false;
    }
    const bool cancel = dialogs().ask(
        QStringLiteral("Atenção"),
        store::unexpectedErrorText(failure.number(), failure.description()), Icon::None, false);
    return !cancel;
}

bool runGuarded(const std::function<void()>& operation) {
    try {
        operation();
        return true;
    } catch (const store::Failure& failure) {
        reportFailure(failure);
    } catch (const std::exception& e) {
        reportFailure(
            store::Failure::other(kInternalErrorNumber, QString::fromLocal8Bit(e.what())));
    }
    return false;
}

} // namespace ui
