#pragma once

#include "app/Paths.h"

namespace app {

enum class IncomingOutcome {
    Nothing,         // no database waiting
    MovedInto,       // the waiting database became the one in use
    CarriedOver,     // the registers of the one in use were carried into the waiting one,
                     // which is now in use; the old file is kept as a backup
    MoveFailed,      // the waiting database could not be moved; it stays where it was
    CarryOverFailed, // the carry-over failed: both files stay as they were
};

struct IncomingResult {
    IncomingOutcome outcome = IncomingOutcome::Nothing;
    QString backupPath; // CarriedOver: where the old database is kept
    int registers = 0;  // CarriedOver: the registers carried
    QString detail;     // CarryOverFailed: what went wrong, in the user's words
};

// A new release leaves its database in the incoming place. With no database in use it is
// moved into place. With one in use, every register of the database in use (and its
// objective) is carried into the new one, every column of every table as it is stored; the
// new one then takes its place and the old file goes to backups/ beside it. The work is
// done on a copy, so a failure leaves both files as they were.
IncomingResult takeIncomingDatabase(const QString& databasePath);

// Tells the user what became of a database that a new release left waiting.
void reportIncoming(const IncomingResult& result, const QString& databasePath);

} // namespace app
