#pragma once

namespace store {

class Database;

// Carries every register of the database in use (`from`) into a new database (`into`), as a
// new release of the program needs: every row of every register table, each column as it is
// stored (an empty text stays empty, a Null stays Null), one register per transaction. A row
// whose key `into` holds already is left out: the first row wins. The objective of `from`
// comes along unless `into` has one of its own. `from` is only read. Returns the number of
// registers carried. Throws store::Failure; a register that failed leaves nothing in `into`.
int carryOver(Database& from, Database& into);

} // namespace store
