#pragma once

#include <QDate>
#include <QString>

#include "ui/FieldBehaviour.h"

class QComboBox;
class QLineEdit;

// Small helpers of the screens' fields.
namespace ui {

// A field that takes digits only, at most `length` of them.
void digitsField(QLineEdit* field, int length);
// A free text field of at most `length` characters, upper case on leaving.
void textField(QLineEdit* field, int length);
// A date field with the mask "##/##/####".
void dateField(QLineEdit* field);

// Removes the text of a masked field, leaving its mask.
void clearMasked(QLineEdit* field);
// Puts a date into a date field; an invalid date leaves the field empty.
void setDate(QLineEdit* field, const QDate& date);
// The date of a date field; invalid when the field does not hold one.
QDate dateOf(const QLineEdit* field);
// Whether a date field's text is no date: not a calendar date, a month above 12, a day above 31.
bool wrongDate(const QLineEdit* field);

// Chooses the item of `combo` whose text is `text`; a text that is not in the list is added, so
// that a field copied from a grid shows what the grid showed. An empty text chooses nothing.
void chooseText(QComboBox* combo, const QString& text);
// Chooses the item whose data is `code`; nothing when no item has it.
void chooseCode(QComboBox* combo, const QVariant& code);
// The data of the chosen item, or an invalid QVariant when nothing is chosen.
QVariant chosenCode(const QComboBox* combo);

} // namespace ui
