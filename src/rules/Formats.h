#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

// The program formats for Brazil whatever the machine's locale.
namespace rules {

// The short date of every screen, report and exchange file.
inline const QString kShortDateFormat = QStringLiteral("dd/MM/yyyy");

QString shortDate(const QDate& date);

// The digits of a stored number or text, whatever else it holds.
QString digitsOf(const QVariant& value);
// Lays the digits into a pattern where each '@' stands for one digit, filling from the right as
// stored numbers lose their leading zeros; more digits than places come back as they are.
QString maskDigits(const QString& pattern, QString digits);

// The one way each is written out on screens, lists, mails and the memorial.
QString cnpjText(const QVariant& value); // 00.000.000/0000-00; empty for nothing stored
QString cpfText(const QVariant& value);  // 000.000.000-00
// A CPF where the number has eleven digits or fewer, a CNPJ otherwise.
QString cpfCnpjText(const QVariant& value);
QString cepText(const QVariant& value); // 00000-000

} // namespace rules
