#pragma once

#include "ui/Refusal.h"

class QLineEdit;

// The field rules that the environmental screens share: quantities of two decimals, counts of
// equipment, times of day, dates, area codes and telephones.
namespace environment {

// A quantity of two decimals: digits and one comma; a third decimal is refused with the
// screens' own words.
void quantityField(QLineEdit* edit);
// A quantity of water: five digits, and a point or a comma that becomes the one comma and
// leaves room for two decimals, no more.
void waterQuantityField(QLineEdit* edit);
// Leaving a quantity: shown with two decimals ("12" becomes "12,00"); zero is refused.
ui::Check leaveQuantity(QLineEdit* edit);
// Leaving a count: leading zeros go; zero is refused and emptied.
ui::Check leaveCount(QLineEdit* edit);
// Leaving a time of day: hours above 23 or minutes above 59 are refused, and so is a time
// typed only in part, which no clock reads.
ui::Check leaveHour(QLineEdit* edit);

// Leaving a date: `notADate` for a text that is no date either way round (day and month, or
// month and day), `outOfRange` for a month above 12 or a day above 31 that only the other way
// round made a date. A refused date is emptied.
ui::Check leaveDate(QLineEdit* edit, const QString& notADate, const QString& outOfRange);
// Leaving an area code: shown "0##"; one digit or a value below the lowest code is refused.
ui::Check leaveDdd(QLineEdit* edit, const QString& incorrect);
// Leaving a telephone that may stay empty: filled in part is refused.
ui::Check leavePhone(QLineEdit* edit, const QString& incorrect);

} // namespace environment
