#pragma once

#include "exchange/Layout.h"
#include "store/TableCatalogue.h"

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <stdexcept>

class QIODevice;

// One row of a table as a line of an exchange file.
namespace exchange {

// A value as a machine set up for Brazil writes it: Null as "Null"; dates "dd/MM/yyyy"; times
// "HH:mm:ss"; numbers as the shortest text of their value with a decimal comma and no thousands
// separator; text as it stands. Line breaks and separators inside a text become blanks, so a
// value can never split or shift its record. No trimming here.
QString valueText(const QVariant& value, store::ColumnType type);

// The shortest text of a number, with `decimalPoint` between the whole and the fraction.
QString numberText(double value, QChar decimalPoint = QLatin1Char(','));

// The fields of one row joined by the separator, after the table's own rules (the field count,
// trimming, the kept blank, the decimal point, the trailing separator); without the end of the
// record. `values` hold the table's columns in catalogue order; those behind the field count
// are not written.
QString recordText(const TableLayout& layout, const QVariantList& values);

// The bytes of a record end.
QByteArray recordEndBytes(RecordEnd end);

// A text that Windows-1252 cannot hold. The message names the table, the column and the
// character, in the user's words.
class UnencodableText : public std::runtime_error {
public:
    UnencodableText(QString table, QString column, QString character);
    const QString& table() const { return m_table; }
    const QString& column() const { return m_column; }
    const QString& character() const { return m_character; }
    QString message() const;

private:
    QString m_table;
    QString m_column;
    QString m_character;
};

// A record that the readers of its file would not read back as it is written: a text that
// carries a field past the limit of the line, or a field of a number, date or time column
// that holds no such value (an older database, a direct edit).
class UnreadableRecord : public std::runtime_error {
public:
    enum class Reason { TooLong, NotOfItsType };
    UnreadableRecord(Reason reason, QString table, QString column, QString field);
    Reason reason() const { return m_reason; }
    const QString& column() const { return m_column; }
    // In the user's words, naming the field, the table and the register.
    QString message(const QString& registerCode) const;

private:
    Reason m_reason;
    QString m_table;
    QString m_column;
    QString m_field;
};

// The record and its end in Windows-1252; throws UnencodableText and UnreadableRecord.
QByteArray recordBytes(const TableLayout& layout, const QVariantList& values, RecordEnd end);

} // namespace exchange
