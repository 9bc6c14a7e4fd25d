#pragma once

#include <QString>

namespace app {

inline const QString kDatabaseFileName = QStringLiteral("VOR-POSTO.db");

// Joins a folder and a file name with one separator, adding it only where the folder does not
// already end in one: a folder at the root of a drive must not give a doubled separator.
QString joinPath(const QString& folder, const QString& fileName);

// The database in use: the --database argument, else $VOR_DATABASE, else
// $XDG_DATA_HOME/vor/VOR-POSTO.db ($XDG_DATA_HOME defaulting to ~/.local/share).
QString databasePath(const QString& commandLineArgument);

// Where a new release leaves its database for the next start: incoming/ beside the database
// in use, with the same file name.
QString incomingDatabasePath(const QString& databasePath);

} // namespace app
