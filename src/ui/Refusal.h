#pragma once

#include "ui/Dialogs.h"

#include <QString>
#include <optional>

class QWidget;

namespace ui {

// The first check of a validation routine that failed: the field to go back to and what to
// tell the user. The screen shows it; the routine itself opens no window. A check that runs
// apart from any screen (the command line's) names the field by its objectName; a screen's
// check names the widget itself.
struct Refusal {
    Refusal(QString fieldName, QString message, Icon icon = Icon::Critical, QString title = kTitle);
    Refusal(QWidget* field, QString message, Icon icon = Icon::Critical, QString title = kTitle);

    QString field; // objectName
    QString message;
    Icon icon = Icon::Critical;
    QString title = kTitle;
    QWidget* widget = nullptr; // the field itself, where the check ran on a screen
};

using Check = std::optional<Refusal>;

// Shows the refusal, enables its field and gives it the focus; a field named only by its
// objectName is looked for under `screen`.
void showRefusal(const Refusal& refusal, QWidget* screen = nullptr);

} // namespace ui
