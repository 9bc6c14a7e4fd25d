#include "rules/Formats.h"

#include <QRegularExpression>

namespace rules {

QString shortDate(const QDate& date) {
    return date.toString(kShortDateFormat);
}

QString digitsOf(const QVariant& value) {
    if (value.typeId() == QMetaType::Double)
        return QString::number(qlonglong(value.toDouble()));
    QString text = value.toString().trimmed();
    text.remove(QRegularExpression(QStringLiteral("[^0-9]")));
    return text;
}

QString maskDigits(const QString& pattern, QString digits) {
    const qsizetype places = pattern.count(QLatin1Char('@'));
    if (digits.size() > places)
        return digits;
    digits = digits.rightJustified(places, QLatin1Char('0'));
    QString out;
    qsizetype next = 0;
    for (QChar c : pattern)
        out += c == QLatin1Char('@') ? digits.at(next++) : c;
    return out;
}

namespace {

QString masked(const QString& pattern, const QVariant& value) {
    const QString digits = digitsOf(value);
    return digits.isEmpty() ? QString() : maskDigits(pattern, digits);
}

} // namespace

QString cnpjText(const QVariant& value) {
    return masked(QStringLiteral("@@.@@@.@@@/@@@@-@@"), value);
}

QString cpfText(const QVariant& value) {
    return masked(QStringLiteral("@@@.@@@.@@@-@@"), value);
}

QString cpfCnpjText(const QVariant& value) {
    return digitsOf(value).size() <= 11 ? cpfText(value) : cnpjText(value);
}

QString cepText(const QVariant& value) {
    return masked(QStringLiteral("@@@@@-@@@"), value);
}

} // namespace rules
