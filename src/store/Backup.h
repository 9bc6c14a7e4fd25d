#pragma once

#include <QDateTime>
#include <QString>

namespace store {

class Database;

// Where the copy of a database is kept before an operation that replaces its registers:
// backups/VOR-POSTO-YYYYMMDD-HHMMSS.db beside the database file. A name already taken within
// the same second gets "-2", "-3", ... behind the time.
QString backupPath(const QString& databasePath, const QDateTime& when);

// Writes a consistent copy of the open database to backupPath(); returns where. The copy gets
// that name only once it is complete. Throws store::Failure (not from the database: its text
// names the backup and why it failed) when the copy cannot be written, and then leaves neither
// a partial file nor a folder that it made.
QString writeBackup(Database& db, const QDateTime& when = QDateTime::currentDateTime());

} // namespace store
