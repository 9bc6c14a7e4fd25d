#pragma once

#include <QString>
#include <QVariant>

namespace rules {

// Writes a whole number through a digit pattern such as "00000-000" or "###0-0000": each "0"
// is a digit that is always written (a leading zero where the number is short), each "#" a
// digit that is written only when the number has it, anything else a literal that stands
// where the digits around it stand. Digits beyond the pattern go in front. A Null or
// non-numeric value gives an empty text.
QString formatDigits(const QVariant& value, const QString& pattern);

} // namespace rules
