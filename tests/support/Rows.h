#pragma once

#include <QString>
#include <QVariantMap>

namespace store {
class Database;
}

namespace testsupport {

// Every column of the rows of `table` that `where` selects (bound: `values`), in the
// catalogue's order, as "COLUMN=value" with "COLUMN=Null" for a Null, between "; "; one line
// per row.
QStringList rowsOf(store::Database& db, const char* table, const QString& where,
                   const QVariantList& values = {});

} // namespace testsupport
