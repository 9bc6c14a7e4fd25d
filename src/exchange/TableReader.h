#pragma once

#include "exchange/Layout.h"
#include "exchange/Tokeniser.h"

#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <map>
#include <memory>
#include <stdexcept>

namespace store {
class Database;
}

// Turning exchange lines back into rows: one reader for every table, driven by the table
// catalogue and the exchange layout.
namespace exchange {

// The register that the rows of a file go into. The first fields of every row (NMUNCP, NSEQNC
// and AINFRM) are never taken from the row itself.
struct RowContext {
    int nmuncp = 0;
    int nseqnc = 0;
    QVariant ainfrm; // the date of every AINFRM of a joined file (ACADST of its EMPRS row)
};

// A field that cannot be read as its column's type: a number that is no number, a date that
// is no date. The file it came from cannot be imported.
class UnreadableField : public std::runtime_error {
public:
    UnreadableField(QString table, QString column, QString field);
    const QString& table() const { return m_table; }
    const QString& column() const { return m_column; }
    const QString& field() const { return m_field; }

private:
    QString m_table;
    QString m_column;
    QString m_field;
};

// The decimal normaliser: the text of a decimal as a machine set up for Brazil writes it
// (thousands point, decimal comma) read as a number. Null, an empty text and anything that
// is not a number give an invalid QVariant.
QVariant normalisedDecimal(const QString& field);

// A field in the database form of its column's type; "Null" is a database Null. Throws
// UnreadableField. `pointDecimal`: the field was written with a decimal point.
QVariant fieldValue(const QString& field, const store::Column& column, bool pointDecimal,
                    const QString& table);

// The reader of one table: its look-up by the table's key and its INSERT, prepared once.
class TableReader {
public:
    TableReader(store::Database& db, const TableLayout& layout);

    // Reads the row of the line in `fields`, whose first field was taken already. The row is
    // inserted unless the register holds a row with its key already (the first row wins).
    // Returns true when the row was inserted. Throws UnreadableField and store::Failure.
    bool readRow(FieldTokeniser& fields, const QString& firstField, const RowContext& context);

    // The fields this reader takes from a line.
    int fieldCount() const { return m_fields; }

private:
    const TableLayout& m_layout;
    int m_fields = 0;
    std::vector<int> m_keyColumns;    // catalogue indexes of the look-up's columns
    std::vector<int> m_insertColumns; // catalogue indexes, in the INSERT's order
    QSqlQuery m_lookup;
    QSqlQuery m_insert;
};

// The readers of one database, one per table, made when first needed.
class Readers {
public:
    explicit Readers(store::Database& db);
    ~Readers();
    TableReader& of(const TableLayout& layout);

private:
    store::Database& m_db;
    std::map<const TableLayout*, std::unique_ptr<TableReader>> m_readers;
};

} // namespace exchange
