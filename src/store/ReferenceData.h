#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace store {

class Database;

// Rows of comma-separated text: fields may be quoted with '"', a doubled quote stands for one.
QList<QStringList> parseCsv(const QByteArray& utf8);

// Fills every reference table and dictionary of the catalogue from the CSV files compiled
// into the program (data/<TABLE>.csv: a header of column names, then the rows; an empty
// field is Null). Throws store::Failure when a file is missing or names an unknown column.
void loadReferenceData(Database& db);

} // namespace store
