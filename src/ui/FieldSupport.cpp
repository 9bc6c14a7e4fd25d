#include "ui/FieldSupport.h"

#include "rules/Formats.h"

#include <QComboBox>
#include <QLineEdit>

namespace ui {

void digitsField(QLineEdit* field, int length) {
    ui::attachDigits(field);
    field->setMaxLength(length);
}

void textField(QLineEdit* field, int length) {
    ui::attachText(field, ui::Case::Upper);
    field->setMaxLength(length);
}

void dateField(QLineEdit* field) {
    ui::attachMask(field, ui::Mask::Date);
}

void clearMasked(QLineEdit* field) {
    const QString mask = field->inputMask();
    field->setInputMask(QString());
    field->clear();
    field->setInputMask(mask);
}

void setDate(QLineEdit* field, const QDate& date) {
    if (date.isValid())
        field->setText(rules::shortDate(date));
    else
        clearMasked(field);
}

QDate dateOf(const QLineEdit* field) {
    return QDate::fromString(field->text(), rules::kShortDateFormat);
}

bool wrongDate(const QLineEdit* field) {
    const QString text = field->text();
    return !dateOf(field).isValid() || text.mid(3, 2).toInt() > 12 || text.left(2).toInt() > 31;
}

void chooseText(QComboBox* combo, const QString& text) {
    if (text.isEmpty()) {
        combo->setCurrentIndex(-1);
        return;
    }
    int index = combo->findText(text);
    if (index < 0) {
        combo->addItem(text);
        index = combo->count() - 1;
    }
    combo->setCurrentIndex(index);
}

void chooseCode(QComboBox* combo, const QVariant& code) {
    combo->setCurrentIndex(combo->findData(code));
}

QVariant chosenCode(const QComboBox* combo) {
    return combo->currentIndex() < 0 ? QVariant() : combo->currentData();
}

} // namespace ui
