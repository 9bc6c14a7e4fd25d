#pragma once

#include <QString>

namespace rules {

// ValidaCGCCPF: whether `texto` carries the right check digits of a company number (CNPJ, 14
// digits) or of a person number (CPF, 11 digits). The kind follows from the length alone: more
// than 11 characters once the blanks around are trimmed is a CNPJ, anything else a CPF, so one
// entry serves both kinds of field. The text is right-aligned in 14 places; blanks and any
// character that is not a digit count as 0. There is no list of refused numbers: all zeros
// passes, and a caller that wants to refuse it does so itself. No message of its own: each
// caller words its refusal.
bool validaCgcCpf(const QString& texto);

} // namespace rules
