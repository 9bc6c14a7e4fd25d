#pragma once

#include "store/RegisterKey.h"

#include <QString>
#include <QVariant>
#include <string_view>
#include <vector>

namespace store {
class Database;
}

// The reports of the printed memorial, in printing order, with the probe that decides whether
// each one belongs to a register's document.
namespace printing {

// One further condition on a column, as "ITANQU = 'S'" or "IPROPR <> 'O'". The column comes
// from the table catalogue; the value is always bound.
struct Condition {
    enum class Op { Equal, NotEqual, NotEmpty };
    std::string_view column;
    Op op = Op::Equal;
    QVariant value;
};

struct Probe {
    enum class Kind {
        Always,          // the identification: every register has it
        AnyRow,          // a row of any of `tables`, asked in order, with the conditions
        ColumnNotNull,   // the register's row of the first table has `column` set
        FirstTankColumn, // the first tank of the kind in `conditions` has `column` set
    };
    Kind kind = Kind::Always;
    std::vector<std::string_view> tables;
    std::vector<Condition> conditions;
    std::string_view column;
};

struct ReportEntry {
    int order;           // 1 to 35 in the chain; 36 for the protocol
    std::string_view id; // the layout's name, as "rpt04_tanqusubtr"
    QString title;       // the heading the reader sees
    Probe probe;
    std::vector<Condition> selection; // what the layout selects besides the register
};

// The 35 reports of the memorial in printing order.
const std::vector<ReportEntry>& catalogue();

// The receipt of an export; not part of the chain.
const ReportEntry& protocolEntry();

// The entry of that layout name; throws std::out_of_range for an unknown one.
const ReportEntry& entry(std::string_view id);

// True when the report has data for the register and so prints.
bool probe(store::Database& db, const ReportEntry& report, const store::RegisterKey& key);

// "Where NMUNCP = ? And NSEQNC = ?" followed by the conditions, with their values appended to
// `values`. Column names are checked against the table catalogue.
QString whereClause(std::string_view table, const std::vector<Condition>& conditions,
                    QVariantList& values);

} // namespace printing
