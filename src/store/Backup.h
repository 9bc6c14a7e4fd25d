#pragma once

#include <QDateTime>
#include <QString>

namespace store {

class Database;

// Where the copy of a database is kept before an operation that replaces its registers:
// backups/VOR-POSTO-YYYYMMDD-HHMMSS.db beside the database file. A name already taken within
// the same second gets "-2", "-3", ... behind the time.
QString backupPath(const QString& databasePath, const QDateTime& when);

// Writes a consistent copy of the open database to backupPath(); returns where. Throws
// store::Failure when the copy cannot be written, and then leaves no partial file behind.
QString writeBackup(Database& db, const QDateTime& when = QDateTime::currentDateTime());

} // namespace store
