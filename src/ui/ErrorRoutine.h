#pragma once

#include "store/Failure.h"

#include <exception>
#include <functional>

namespace ui {

// The one routine through which every run-time failure reaches the user. A database failure
// shows its worded message and the operation stops. Any other failure asks "Anote este
// Numero ...": Yes cancels the operation, No lets the caller go on behind the failed step.
// Returns true when the caller may go on. By the time it runs, an open store::Transaction has
// already rolled back: the failure left its scope.
bool reportFailure(const store::Failure& failure);

// Runs `operation` and sends whatever it throws to reportFailure. Returns true when the
// operation ran to its end, false when it stopped on a failure.
bool runGuarded(const std::function<void()>& operation);

} // namespace ui
