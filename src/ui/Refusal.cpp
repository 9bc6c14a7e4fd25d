#include "ui/Refusal.h"

#include <QWidget>

namespace ui {

Refusal::Refusal(QString fieldName, QString message, Icon icon, QString title)
    : field(std::move(fieldName))
    , message(std::move(message))
    , icon(icon)
    , title(std::move(title)) {}

Refusal::Refusal(QWidget* fieldWidget, QString message, Icon icon, QString title)
    : field(fieldWidget ? fieldWidget->objectName() : QString())
    , message(std::move(message))
    , icon(icon)
    , title(std::move(title))
    , widget(fieldWidget) {}

void showRefusal(const Refusal& refusal, QWidget* screen) {
    dialogs().message(refusal.title, refusal.message, refusal.icon);
    QWidget* field = refusal.widget;
    if (!field && screen && !refusal.field.isEmpty())
        field = screen->findChild<QWidget*>(refusal.field);
    if (field) {
        field->setEnabled(true);
        field->setFocus(Qt::OtherFocusReason);
    }
}

} // namespace ui
