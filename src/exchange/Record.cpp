#include "exchange/Record.h"

#include "exchange/Cp1252.h"
#include "exchange/TableReader.h"
#include "exchange/Tokeniser.h"
#include "rules/Formats.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QTime>
#include <algorithm>
#include <cmath>

namespace exchange {

namespace {

using store::ColumnType;

const QString kNull = QStringLiteral("Null");

// Blanks for whatever would end or split a record: CR LF, a lone CR, a lone LF, "¬".
QString withoutBreaks(const QString& text) {
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == QLatin1Char('\r')) {
            if (i + 1 < text.size() && text[i + 1] == QLatin1Char('\n'))
                ++i;
            out += QLatin1Char(' ');
        } else if (c == QLatin1Char('\n') || c == QChar(kSeparator)) {
            out += QLatin1Char(' ');
        } else {
            out += c;
        }
    }
    return out;
}

// Leading and trailing blanks only, as the platform's Trim does; tabs and the like stay.
QString trimBlanks(const QString& text) {
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == QLatin1Char(' '))
        ++begin;
    while (end > begin && text[end - 1] == QLatin1Char(' '))
        --end;
    return text.mid(begin, end - begin);
}

bool isNumber(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

QString numberValueText(const QVariant& value, QChar decimalPoint) {
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return numberText(value.toDouble(), decimalPoint);
    case QMetaType::Bool:
        // A yes/no kept as a truth value is written as the number the platform stores for it.
        return value.toBool() ? QStringLiteral("-1") : QStringLiteral("0");
    default:
        return QString::number(value.toLongLong());
    }
}

QDate storedDate(const QString& text) {
    QDate date = QDate::fromString(text.left(10), QStringLiteral("yyyy-MM-dd"));
    return date;
}

QTime storedTime(const QString& text) {
    QTime time = QTime::fromString(text, QStringLiteral("HH:mm:ss"));
    if (!time.isValid())
        time = QTime::fromString(text, QStringLiteral("HH:mm"));
    return time;
}

} // namespace

QString numberText(double value, QChar decimalPoint) {
    if (value == 0)
        return QStringLiteral("0"); // also -0
    QString text = QString::number(value, 'f', QLocale::FloatingPointShortest);
    const qsizetype point = text.indexOf(QLatin1Char('.'));
    if (point >= 0)
        text[point] = decimalPoint;
    return text;
}

QString valueText(const QVariant& value, ColumnType type) {
    if (value.isNull() || !value.isValid())
        return kNull;
    if (isNumber(value))
        return numberValueText(value, QLatin1Char(','));
    const QString text = value.toString();
    switch (type) {
    case ColumnType::Date: {
        const QDate date = storedDate(text);
        if (date.isValid())
            return rules::shortDate(date);
        break;
    }
    case ColumnType::DateTime: {
        const QDateTime moment = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        if (moment.isValid()) {
            // A moment at midnight prints as its date alone.
            if (moment.time() == QTime(0, 0))
                return rules::shortDate(moment.date());
            return rules::shortDate(moment.date()) + QLatin1Char(' ') +
                   moment.time().toString(QStringLiteral("HH:mm:ss"));
        }
        const QDate date = storedDate(text);
        if (date.isValid() && text.size() == 10)
            return rules::shortDate(date);
        break;
    }
    case ColumnType::Time: {
        const QTime time = storedTime(text);
        if (time.isValid())
            return time.toString(QStringLiteral("HH:mm:ss"));
        break;
    }
    case ColumnType::Number:
    case ColumnType::Decimal:
    case ColumnType::Text:
        break;
    }
    // Text, and whatever a typed column holds that is not of its type: as it stands.
    return withoutBreaks(text);
}

namespace {

// The fields of a row as they are written, before they are joined.
QStringList recordFields(const TableLayout& layout, const QVariantList& values) {
    const store::Table& table = *layout.table;
    const int count = layout.exportFields;
    QStringList fields;
    fields.reserve(count);
    for (int i = 0; i < count; ++i) {
        const store::Column& column = table.columns[std::size_t(i)];
        const QVariant value = i < values.size() ? values[i] : QVariant();
        QString field;
        if (column.name == layout.pointDecimalColumn && isNumber(value) && !value.isNull()) {
            field = numberValueText(value, QLatin1Char('.'));
        } else {
            field = valueText(value, column.type);
            if (!(column.name == layout.blankKeptColumn && field == QLatin1String(" ")))
                field = trimBlanks(field);
        }
        fields << field;
    }
    return fields;
}

QString joinedFields(const TableLayout& layout, const QStringList& fields) {
    QString line = fields.join(QChar(kSeparator));
    if (layout.trailingSeparator)
        line += QChar(kSeparator);
    return line;
}

// Throws UnreadableRecord when the readers of the file would not read back what is written:
// a field cut by the limit of the line, or a field of a typed column that is not of its type.
void checkReadBack(const TableLayout& layout, const QStringList& fields) {
    const store::Table& table = *layout.table;
    const int read = std::min<int>(int(fields.size()), layout.sectionReaderFields);
    // The readers take the register's key and AINFRM from elsewhere.
    const int fromElsewhere = 3;
    qsizetype end = 0;
    for (int i = 0; i < read; ++i) {
        end += (i > 0 ? 1 : 0) + fields[i].size();
        // Past the limit a field keeps a single character.
        if (end > FieldTokeniser::kLimit && fields[i].size() > 1) {
            int longest = 0;
            for (int j = 1; j < read; ++j) {
                if (fields[j].size() > fields[longest].size())
                    longest = j;
            }
            throw UnreadableRecord(UnreadableRecord::Reason::TooLong, layout.qname(),
                                   table.columns[std::size_t(longest)].qname(), fields[longest]);
        }
        const store::Column& column = table.columns[std::size_t(i)];
        if (i < fromElsewhere || column.type == store::ColumnType::Text)
            continue;
        try {
            fieldValue(fields[i].isEmpty() ? QStringLiteral("Null") : fields[i], column,
                       column.name == layout.pointDecimalColumn, layout.qname());
        } catch (const UnreadableField&) {
            throw UnreadableRecord(UnreadableRecord::Reason::NotOfItsType, layout.qname(),
                                   column.qname(), fields[i]);
        }
    }
}

} // namespace

QString recordText(const TableLayout& layout, const QVariantList& values) {
    return joinedFields(layout, recordFields(layout, values));
}

QByteArray recordEndBytes(RecordEnd end) {
    switch (end) {
    case RecordEnd::Cr:
        return QByteArrayLiteral("\r");
    case RecordEnd::CrCrLf:
        return QByteArrayLiteral("\r\r\n");
    case RecordEnd::CrLf:
        return QByteArrayLiteral("\r\n");
    }
    return {};
}

UnencodableText::UnencodableText(QString table, QString column, QString character)
    : std::runtime_error("text not representable in Windows-1252")
    , m_table(std::move(table))
    , m_column(std::move(column))
    , m_character(std::move(character)) {}

QString UnencodableText::message() const {
    return QStringLiteral("O caractere \"%1\" do campo %2 da tabela %3 não pode ser gravado no "
                          "arquivo de exportação. Corrija o texto e exporte novamente.")
        .arg(m_character, m_column, m_table);
}

UnreadableRecord::UnreadableRecord(Reason reason, QString table, QString column, QString field)
    : std::runtime_error("record not readable as written")
    , m_reason(reason)
    , m_table(std::move(table))
    , m_column(std::move(column))
    , m_field(std::move(field)) {}

QString UnreadableRecord::message(const QString& registerCode) const {
    if (m_reason == Reason::TooLong)
        return QStringLiteral("O texto do campo %1 da tabela %2 do posto %3 é longo demais para o "
                              "arquivo de exportação, cujas linhas levam no máximo %4 "
                              "caracteres. Encurte o texto e exporte novamente.")
            .arg(m_column, m_table, registerCode)
            .arg(FieldTokeniser::kLimit);
    return QStringLiteral("O valor \"%1\" do campo %2 da tabela %3 do posto %4 não é um valor "
                          "que o arquivo de exportação possa levar. Corrija o valor e exporte "
                          "novamente.")
        .arg(m_field, m_column, m_table, registerCode);
}

QByteArray recordBytes(const TableLayout& layout, const QVariantList& values, RecordEnd end) {
    const QStringList fields = recordFields(layout, values);
    const QString text = joinedFields(layout, fields);
    cp1252::EncodeResult encoded = cp1252::encode(text);
    if (!encoded.ok()) {
        // Find the column that holds the character, for a message the user can act on.
        const int count = layout.exportFields;
        for (int i = 0; i < count && i < values.size(); ++i) {
            const QString value = values[i].toString();
            const cp1252::EncodeResult one = cp1252::encode(value);
            if (!one.ok()) {
                const qsizetype at = one.firstUnmappable;
                const qsizetype length = value[at].isHighSurrogate() ? 2 : 1;
                throw UnencodableText(layout.qname(), layout.table->columns[std::size_t(i)].qname(),
                                      value.mid(at, length));
            }
        }
        throw UnencodableText(layout.qname(), QString(), text.mid(encoded.firstUnmappable, 1));
    }
    checkReadBack(layout, fields);
    encoded.bytes += recordEndBytes(end);
    return encoded.bytes;
}

} // namespace exchange
