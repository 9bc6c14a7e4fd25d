#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace store {
class Database;
}

// The filling objective of the whole database, kept in the one row of TB_VORpMOVMN.
namespace shell {

// "C", "LF", "LP", "LI", "LP/LI" for the objectives 0 to 4.
QString objectiveCode(int objective);
// The objective of a stored code; nothing for a code the program does not know.
std::optional<int> objectiveFromCode(const QString& code);

// IMOVMN of the stored row; nothing when the objective was never chosen.
std::optional<QString> storedObjectiveCode(store::Database& db);

// GravaMovmn: stores `objective`. The first choice only inserts the row. A later one brings every
// register back to status 1, since a memorial for another objective must be exported anew, and
// replaces the row keeping its first date. One transaction.
void gravaMovmn(store::Database& db, int objective,
                const QDateTime& now = QDateTime::currentDateTime());

} // namespace shell
