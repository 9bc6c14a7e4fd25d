#pragma once

#include "store/RowWriter.h"
#include "store/TableCatalogue.h"

#include <QDate>

namespace testsupport {

// A row of `table` as a test needs it, written through the catalogue's row writer: only the
// columns that matter to the test are given; a table with an information date gets one.
inline void seedRow(store::Database& db, std::string_view table, store::Row values) {
    if (store::table(table).indexOf("AINFRM") >= 0 && !values.contains(QStringLiteral("AINFRM")))
        values.insert(QStringLiteral("AINFRM"), QStringLiteral("2024-01-10"));
    store::insertRow(db, table, values);
}

// The key of register 100/1, which the screen tests work on, with further columns.
inline store::Row onRegister(store::Row values) {
    values.insert(QStringLiteral("NMUNCP"), 100);
    values.insert(QStringLiteral("NSEQNC"), 1);
    return values;
}

} // namespace testsupport
