#pragma once

#include <QString>
#include <string_view>
#include <vector>

// The one description of every table of the database: name, columns in exchange order with
// their type and length, and the key. The DDL, the register delete, the import wipe and the
// exchange writer and readers all work from it.
namespace store {

enum class ColumnType {
    Text,     // TEXT
    Number,   // INTEGER
    Decimal,  // REAL
    Date,     // TEXT yyyy-MM-dd
    DateTime, // TEXT yyyy-MM-dd HH:mm:ss
    Time,     // TEXT HH:mm:ss
};

enum class TableRole {
    Register,   // rows of one establishment, keyed by NMUNCP and NSEQNC
    Objective,  // TB_VORpMOVMN: the filling objective of the whole database
    Counter,    // TB_VORpSEQNC: the last register number given
    Reference,  // municipalities, CEP patterns, regional offices, wells
    Dictionary, // code lists
};

struct Column {
    std::string_view name;
    ColumnType type;
    int length; // longest input the screens accept; 0 where no limit is given

    QString qname() const { return QString::fromLatin1(name.data(), qsizetype(name.size())); }
};

struct Table {
    std::string_view name;
    TableRole role;
    std::vector<std::string_view> key;
    std::vector<Column> columns;

    QString qname() const { return QString::fromLatin1(name.data(), qsizetype(name.size())); }
    // Index of the column in exchange order, or -1.
    int indexOf(std::string_view column) const;
    const Column& column(std::string_view column) const;
};

// Every table: the register tables in the order of the joined exchange file, then the
// objective, the reference tables and the dictionaries.
const std::vector<Table>& allTables();

// The table of that name; throws std::out_of_range for an unknown name.
const Table& table(std::string_view name);

// The register tables in the order of the joined exchange file (EMPRS first, SUGESTOES last).
std::vector<const Table*> registerTables();

// The register tables in the order in which a register is deleted and the import wipes the
// database: children before their parents, EMPRS last.
const std::vector<std::string_view>& registerDeleteOrder();

QString sqlType(ColumnType type);
QString createTableSql(const Table& table);

} // namespace store
