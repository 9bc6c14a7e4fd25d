#pragma once

namespace app {

// vor print --database FILE --register CODE --pdf OUT.pdf: the whole memorial of one register
// into a PDF, without questions (a missing survey date is left empty); prints the number of
// pages on standard output.
int runPrintCommand(int argc, char* argv[]);

} // namespace app
