#pragma once

namespace app {

// Names the running program to Qt and to the desktop: the name and version that --version
// prints, the folder of its settings (~/.config/vor/vor.conf) and the desktop entry that
// the desktop matches its windows with.
void identifyApplication();

} // namespace app
