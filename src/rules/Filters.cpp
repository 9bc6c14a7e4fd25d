#include "rules/Filters.h"

#include <QRegularExpression>

namespace rules {

namespace {

NumberSeparators currentSeparators = kBrazilianSeparators;

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool isLineBreak(QChar c) {
    switch (c.unicode()) {
    // A tab splits a line as a break does, and the exchange file holds no tab either.
    case u'\t':
    case u'\n':
    case u'\r':
    case u'\v':
    case u'\f':
    case 0x0085: // next line
    case 0x2028: // line separator
    case 0x2029: // paragraph separator
        return true;
    default:
        return false;
    }
}

// The exchange files are Windows-1252: a capital that the set cannot hold (the Greek capital of
// the micro sign) would be refused there, so such a letter keeps its small form.
QChar upper(QChar c) {
    const QChar u = c.toUpper();
    if (u.unicode() <= 0xFF)
        return u;
    switch (u.unicode()) {
    case 0x0152: // OE ligature
    case 0x0160: // S caron
    case 0x0178: // Y diaeresis
    case 0x017D: // Z caron
        return u;
    default:
        return c;
    }
}

} // namespace

NumberSeparators numberSeparators() {
    return currentSeparators;
}

void setNumberSeparators(NumberSeparators separators) {
    currentSeparators = separators;
}

QString maiusculas(const QString& text) {
    if (trimSpaces(text).isEmpty())
        return text;
    QString result = text;
    for (QChar& c : result)
        c = upper(c);
    return result;
}

KeyCode filtroAspas(KeyCode key) {
    return key == kQuote ? kGrave : key;
}

KeyCode filtroDigitos(KeyCode key) {
    if ((key >= u'0' && key <= u'9') || key == kBackspace || key == kEnter)
        return key;
    return kSwallowed;
}

KeyCode filtroDecimal(const QString& text, KeyCode key) {
    if ((key >= u'0' && key <= u'9') || key == kBackspace)
        return key;
    if (key == kComma && isNumeric(text + QChar(kComma)))
        return key;
    return kSwallowed;
}

bool isNumeric(const QString& text) {
    const NumberSeparators sep = numberSeparators();
    const QString t = text.trimmed();
    qsizetype i = 0;
    if (!t.isEmpty() && (t.at(0) == u'+' || t.at(0) == u'-'))
        i = 1;
    bool digit = false;
    bool decimal = false;
    for (; i < t.size(); ++i) {
        const QChar c = t.at(i);
        if (isDigit(c))
            digit = true;
        else if (c == sep.decimal && !decimal)
            decimal = true;
        else if (c == sep.thousands && !decimal)
            continue;
        else
            return false;
    }
    return digit;
}

int excessoCasas(const QString& text, int casas) {
    const qsizetype comma = text.indexOf(numberSeparators().decimal);
    if (comma < 0)
        return 0;
    const qsizetype after = text.size() - comma - 1;
    return after > casas ? int(after - casas) : 0;
}

QString casasDecimaisMessage(int casas) {
    return QStringLiteral("Digitar apenas ") + QString::number(casas) +
           QStringLiteral(" casas decimais");
}

int contaSeparadores(const QString& text) {
    return int(text.count(u',') + text.count(u'.'));
}

int contaPontoBarra(const QString& text) {
    return int(text.count(u'.') + text.count(u'/'));
}

QString semEspacos(const QString& text) {
    if (text.isNull())
        return text;
    QString result = text;
    result.remove(u' ');
    return result;
}

QString tiraMascara(const QString& text, const QString& mask) {
    QString result = text;
    for (const QChar c : mask) {
        if (c != u'@')
            result.remove(c);
    }
    return result;
}

QString poeMascara(const QString& text, const QString& mask) {
    if (trimSpaces(text).isEmpty())
        return QString();
    QString laid(mask.size(), u' ');
    qsizetype next = text.size() - 1;
    for (qsizetype i = mask.size() - 1; i >= 0; --i) {
        if (mask.at(i) == u'@')
            laid[i] = next >= 0 ? text.at(next--) : QChar(u' ');
        else
            laid[i] = mask.at(i);
    }
    return trimSpaces(text.left(next + 1) + laid);
}

int mascaraPosicoes(const QString& mask) {
    return int(mask.count(u'@'));
}

int mascaraComprimento(const QString& mask) {
    return int(mask.size());
}

QString numeroParaSqlTexto(const QVariant& value) {
    if (!value.isValid() || value.isNull())
        return QString();
    switch (value.typeId()) {
    case QMetaType::QDate:
    case QMetaType::QDateTime:
    case QMetaType::QTime:
        return QString();
    case QMetaType::Double:
    case QMetaType::Float:
        return QString::number(value.toDouble(), 'g', 15);
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return value.toString();
    default:
        break;
    }
    const NumberSeparators sep = numberSeparators();
    QString text = value.toString();
    text.remove(sep.thousands);
    const qsizetype decimal = text.indexOf(sep.decimal);
    if (decimal >= 0)
        text[decimal] = u'.';
    return text;
}

QVariant numeroParaSql(const QVariant& value) {
    const QString text = numeroParaSqlTexto(value);
    if (text.isEmpty())
        return QVariant(QMetaType::fromType<double>());
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (ok)
        return number;
    return text;
}

QString trimSpaces(const QString& text) {
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == u' ')
        ++begin;
    while (end > begin && text.at(end - 1) == u' ')
        --end;
    return text.mid(begin, end - begin);
}

double val(const QString& text) {
    QString compact;
    for (const QChar c : text) {
        if (c != u' ' && c != u'\t' && c != u'\n' && c != u'\r')
            compact += c;
    }
    static const QRegularExpression leadingNumber(
        QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eEdD][+-]?\\d+)?"));
    const QRegularExpressionMatch match = leadingNumber.match(compact);
    if (!match.hasMatch())
        return 0;
    QString number = match.captured(0);
    number.replace(u'd', u'e').replace(u'D', u'e');
    return number.toDouble();
}

bool cabeNaLinha(QChar c) {
    return c != QChar(0x00AC) && !isLineBreak(c);
}

QString limpaLinha(const QString& text) {
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == QChar(0x00AC))
            continue;
        if (isLineBreak(c)) {
            // A pasted line break becomes one blank, a CR LF pair too, so that words of
            // consecutive lines stay apart.
            if (c == u'\r' && i + 1 < text.size() && text.at(i + 1) == u'\n')
                ++i;
            result += u' ';
            continue;
        }
        result += c;
    }
    return result;
}

} // namespace rules
