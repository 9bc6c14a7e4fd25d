#pragma once

namespace app {

// Puts every screen of the questionnaire's chain into the screen registry, each area its own.
void registerScreens();

} // namespace app
