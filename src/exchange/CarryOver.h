#pragma once

#include <QString>

namespace store {
class Database;
}

namespace exchange {

// Carries every register of the database in use (`from`) into a new database (`into`), as a
// new release of the program needs: each register is dumped to its per-table files in
// `scratch`, read back into `into` by the readers of those files in one transaction, and the
// files are removed. The objective of `from` comes along unless `into` has one of its own.
// `from` is only read. Returns the number of registers carried. Throws store::Failure,
// ExportFailure and UnreadableField; a register that failed leaves nothing in `into`.
int carryOver(store::Database& from, store::Database& into, const QString& scratch);

} // namespace exchange
