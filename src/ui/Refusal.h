#pragma once

#include "ui/Dialogs.h"

#include <QString>
#include <optional>

class QWidget;

namespace ui {

// The first check of a validation routine that failed: the field to go back to and what to
// tell the user. The screen shows it; the routine itself opens no window.
struct Refusal {
    QWidget* field = nullptr;
    QString message;
    QString title = kTitle;
};

using Check = std::optional<Refusal>;

// Shows the refusal with the critical icon, enables its field and gives it the focus.
void showRefusal(const Refusal& refusal);

} // namespace ui
