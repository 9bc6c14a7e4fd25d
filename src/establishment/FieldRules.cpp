#include "establishment/FieldRules.h"

#include "store/Database.h"

#include <QRegularExpression>
#include <QSqlQuery>
#include <array>

namespace establishment::fieldrules {

bool validaCGCCPF(const QString& text) {
    const QString field = text.rightJustified(14, QLatin1Char(' '));
    std::array<int, 15> a{};
    for (int i = 1; i <= 14; ++i) {
        const QChar c = field.at(i - 1);
        a[std::size_t(i)] = c.isDigit() ? c.digitValue() : 0;
    }
    const auto digit = [](int s) { return s % 11 < 2 ? 0 : 11 - s % 11; };
    if (text.trimmed().size() > 11) {
        const std::array<int, 12> w1 = {5, 4, 3, 2, 9, 8, 7, 6, 5, 4, 3, 2};
        const std::array<int, 13> w2 = {6, 5, 4, 3, 2, 9, 8, 7, 6, 5, 4, 3, 2};
        int s = 0;
        for (int i = 0; i < 12; ++i)
            s += w1[std::size_t(i)] * a[std::size_t(i + 1)];
        if (digit(s) != a[13])
            return false;
        s = 0;
        for (int i = 0; i < 13; ++i)
            s += w2[std::size_t(i)] * a[std::size_t(i + 1)];
        return digit(s) == a[14];
    }
    int s = 0;
    for (int i = 0; i < 9; ++i)
        s += (i + 1) * a[std::size_t(i + 4)];
    int r = s % 11;
    if (r > 9)
        r -= 10;
    if (r != a[13])
        return false;
    s = 0;
    for (int i = 0; i < 8; ++i)
        s += (i + 1) * a[std::size_t(i + 5)];
    s += 9 * r;
    int r2 = s % 11;
    if (r2 > 9)
        r2 -= 10;
    return r2 == a[14];
}

CepCheck consscep(store::Database& db, const QString& cep, int nmuncp) {
    QSqlQuery q = db.run(QStringLiteral("SELECT NREGNL FROM CEP WHERE NMUNCP = ? AND "
                                        "(CCEP = ? OR CCEP = ? OR CCEP = ?)"),
                         {nmuncp, cep.left(4) + QStringLiteral("*"),
                          cep.left(3) + QStringLiteral("**"), cep.left(5)});
    if (q.next())
        return {QString(), q.value(0).toInt()};
    return {QStringLiteral("Cep Inválido"), 0};
}

QString consistecep100(const QString& nmuncpText, const QString& nseqncText, int r) {
    if (nmuncpText.trimmed().toInt() != 100)
        return {};
    const int q = nseqncText.left(5).trimmed().toInt();
    const auto in = [q](int low, int high) { return q > low && q <= high; };
    const auto no = [](bool ok) { return ok ? QString() : QStringLiteral("sim"); };
    if (in(32000, 42000) || in(99000, 99999))
        return no(r == 45);
    if (in(42000, 52000) || in(96000, 97000))
        return no(r == 29);
    if (in(72000, 82000) || in(97000, 98000))
        return no(r == 30);
    if (in(52000, 62000))
        return no(r == 45 || r == 16 || r == 30 || r == 31);
    if (in(62000, 72000) || in(98000, 99000))
        return no(r == 33);
    return {};
}

QString poeMascara(const QString& mask, const QString& text) {
    const qsizetype positions = mask.count(QLatin1Char('@'));
    if (text.size() > positions)
        return text.trimmed();
    const QString value = text.rightJustified(positions, QLatin1Char(' '));
    QString result;
    qsizetype next = 0;
    for (QChar m : mask) {
        if (m == QLatin1Char('@'))
            result += next < value.size() ? value.at(next++) : QLatin1Char(' ');
        else
            result += m;
    }
    return result.trimmed();
}

QString tiraMascara(const QString& mask, const QString& text) {
    QString result = text;
    for (QChar m : mask) {
        if (m != QLatin1Char('@'))
            result.remove(m);
    }
    return result;
}

bool isNumeric(const QString& text) {
    static const QRegularExpression number(
        QStringLiteral("^\\s*[+-]?(\\d+([.,]\\d*)?|[.,]\\d+)([eE][+-]?\\d+)?\\s*$"));
    return number.match(text).hasMatch();
}

} // namespace establishment::fieldrules
