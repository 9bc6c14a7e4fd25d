#pragma once

#include <QVariantMap>
#include <optional>
#include <string_view>

namespace store {

class Database;

// Column name to value: one row, or the key of one row. Names are the catalogue's columns.
using Row = QVariantMap;

// Writes rows of the catalogue's tables with every value bound. The statements are built from
// the catalogue, so a column unknown to the table is a fault of the program, never a silent
// no-op; an UPDATE or DELETE meant for one row that touches none, or several, is a Failure that
// reaches the error routine like any database failure.

// INSERT of `values` into `table`.
void insertRow(Database& db, std::string_view table, const Row& values);
// UPDATE of exactly the one row whose key is `key` (the key columns as they are now; `values`
// may give some of them new values).
void updateRow(Database& db, std::string_view table, const Row& key, const Row& values);
// DELETE of exactly the one row whose key is `key`.
void deleteRow(Database& db, std::string_view table, const Row& key);
// DELETE of every row matching `where` (a cascade: none is as good as many). Returns the count.
int deleteRows(Database& db, std::string_view table, const Row& where);
// The row matching `key` with every column of the table, or nothing.
std::optional<Row> readRow(Database& db, std::string_view table, const Row& key);
// Whether a row matching `where` exists.
bool rowExists(Database& db, std::string_view table, const Row& where);

} // namespace store
