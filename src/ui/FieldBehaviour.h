#pragma once

#include <QString>

class QLineEdit;
class QWidget;

// What every text field of the program does as the user types and leaves it. A screen gives a
// field its behaviour with one call; the calls combine (attachText and attachDisplayMask on one
// field, say). Every field given a behaviour here also refuses the exchange file's separator
// "¬" and line breaks, typed or pasted; guardLines gives that to the remaining fields of a
// screen.
namespace ui {

enum class Case {
    AsTyped,
    Upper, // Maiusculas: upper case on leaving the field
};

// A free text field: the single quote becomes a grave accent, typed or pasted (FiltroAspas).
void attachText(QLineEdit* edit, Case letterCase = Case::AsTyped);
// Upper case on leaving, with no other filter (Maiusculas).
void attachUpperCase(QLineEdit* edit);
// Digits only (FiltroDigitos); pasted text keeps its digits.
void attachDigits(QLineEdit* edit);
// A decimal number with a comma (FiltroDecimal and ConfereCasas): digits, and one comma after
// at least one digit, which widens the field to `maxLength`. More than `places` decimals
// shows "Digitar apenas N casas decimais", or the screen's own `excessMessage`, and takes the
// last one typed away.
void attachDecimal(QLineEdit* edit, int maxLength, int places, const QString& excessMessage = {});
// A display mask of "@" places and literals ("@@.@@@.@@@/@@@@-@@"): taken off when the field
// gets the focus (TiraMascara), put on when it leaves (PoeMascara).
void attachDisplayMask(QLineEdit* edit, const QString& mask);

// Masked entry, with "_" in the places still to type.
enum class Mask {
    Cep,       // 8 digits, "_____-___"
    Telephone, // telephones and faxes, 8 digits, "____-____"
    Date,      // "__/__/____"
    Time,      // "__:__"
};
void attachMask(QLineEdit* edit, Mask mask);
// ClipText: the characters typed into a masked field, without the literals and the "_" of the
// places left empty ("15/03/2024" gives "15032024"). The plain text of an unmasked field.
QString clipText(const QLineEdit* edit);
// Fills the places of a masked field from the left with `value` (literals in it are skipped);
// the plain text of an unmasked field.
void setClipText(QLineEdit* edit, const QString& value);

// Only the one-line guard: "¬" and line breaks never enter the field.
void guardLine(QLineEdit* edit);
// The one-line guard on every line edit under `screen`, editable combo boxes included.
void guardLines(QWidget* screen);

} // namespace ui
