#pragma once

namespace app {

// Names the running program to Qt and to the desktop: the name and version that --version
// prints, the folder of its settings (~/.config/vor/vor.conf) and the desktop entry that
// the desktop matches its windows with.
void identifyApplication();

// Qt's own dialogs, menus and buttons speak Brazilian Portuguese, as the program's screens do,
// whatever the machine's language; numbers and dates follow Brazil. Returns false when Qt's
// Portuguese texts are not installed (the dialogs then stay in English).
bool speakPortuguese();

} // namespace app
