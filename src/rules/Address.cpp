#include "rules/Address.h"

#include "rules/Filters.h"

#include <array>

namespace rules {

QString ufDoMunicipio(int nmuncp, const QString& abbreviation) {
    return nmuncp >= kPrimeiroMunicipio ? kUfAtendida : abbreviation;
}

CepPatterns cepPatterns(const QString& cep) {
    return {cep.left(4) + QStringLiteral("*"), cep.left(3) + QStringLiteral("**"), cep.left(5)};
}

QString consistecep100(const QString& nMuncpText, const QString& nSeqncText, int regional) {
    if (val(nMuncpText) != kCapital)
        return QString();

    struct Block {
        double above; // excluded
        double upTo;  // included
        std::array<int, 4> offices;
    };
    // In this order; the first block that holds the number decides. Unused office slots are 0,
    // which no regional office has.
    static constexpr std::array<Block, 9> kBlocks = {{
        {32000, 42000, {45, 0, 0, 0}},
        {99000, 99999, {45, 0, 0, 0}},
        {42000, 52000, {29, 0, 0, 0}},
        {96000, 97000, {29, 0, 0, 0}},
        {72000, 82000, {30, 0, 0, 0}},
        {97000, 98000, {30, 0, 0, 0}},
        {52000, 62000, {45, 16, 30, 31}},
        {62000, 72000, {33, 0, 0, 0}},
        {98000, 99000, {33, 0, 0, 0}},
    }};
    const double q = val(nSeqncText.left(5));
    for (const Block& block : kBlocks) {
        if (q > block.above && q <= block.upTo) {
            for (int office : block.offices) {
                if (office != 0 && office == regional)
                    return QString();
            }
            return QStringLiteral("sim");
        }
    }
    return QString();
}

QString cepDigits(const QString& text) {
    QString result = text;
    for (const QChar literal : {u'-', u'.', u'_', u' '})
        result.remove(literal);
    return result;
}

bool cepCompleto(const QString& text) {
    return cepDigits(text).size() == kCepDigits;
}

bool telefoneIncompleto(const QString& clipText) {
    return clipText.size() < kTelefoneMinimo;
}

bool faxIncompleto(const QString& clipText) {
    return !clipText.isEmpty() && clipText.size() < kTelefoneMinimo;
}

bool dddIncorreto(const QString& text) {
    const QString ddd = trimSpaces(text);
    if (ddd.isEmpty())
        return false;
    return ddd.size() == 1 || val(ddd) < kMenorDdd;
}

QString formataDdd(const QString& text) {
    if (trimSpaces(text).isEmpty())
        return QString();
    return QString::number(qint64(val(text))).rightJustified(3, u'0');
}

} // namespace rules
