#pragma once

#include "app/Paths.h"

namespace app {

// Tells the user what became of a database that a new release left waiting.
void reportIncoming(IncomingOutcome outcome, const QString& databasePath);

} // namespace app
