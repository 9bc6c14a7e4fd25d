#pragma once

#include <QString>

namespace store {
class Database;
}

// The field rules that the register form calls, gathered at one seam so that the form names
// each of them once.
namespace establishment::fieldrules {

// ValidaCGCCPF: the check digits of a CNPJ (more than 11 characters) or of a CPF.
bool validaCGCCPF(const QString& text);

struct CepCheck {
    QString message; // empty when the CEP belongs to the municipality
    int regional = 0;
};
// consscep: whether the CEP belongs to the municipality, and its regional agency.
CepCheck consscep(store::Database& db, const QString& cep, int nmuncp);

// consistecep100: "sim" when the register's number block does not belong to the regional.
QString consistecep100(const QString& nmuncpText, const QString& nseqncText, int regional);

// PoeMascara and TiraMascara on a text: each "@" of the mask is one character of the value, filled
// from the right; everything else is a literal.
QString poeMascara(const QString& mask, const QString& text);
QString tiraMascara(const QString& mask, const QString& text);

// The runtime's IsNumeric: a number with optional sign, decimal separator and exponent.
bool isNumeric(const QString& text);

} // namespace establishment::fieldrules
