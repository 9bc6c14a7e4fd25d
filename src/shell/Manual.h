#pragma once

#include <QString>

namespace shell {

// The manual as installed with the program (share/doc/vor/manual/index.html of the prefix that
// holds bin/vor), or empty when the program runs from its build folder or the system leaves
// documentation out.
QString installedManual(const QString& programFolder);

// The file the manual opens from: the installed copy when there is one, else the copy compiled
// into the program, written into the user's cache folder. Empty when neither can be had.
QString manualFile(const QString& programFolder);

} // namespace shell
