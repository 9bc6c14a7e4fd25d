#include "ui/Refusal.h"

#include <QWidget>

namespace ui {

void showRefusal(const Refusal& refusal) {
    dialogs().message(refusal.title, refusal.message, Icon::Critical);
    if (refusal.field) {
        refusal.field->setEnabled(true);
        refusal.field->setFocus(Qt::OtherFocusReason);
    }
}

} // namespace ui
