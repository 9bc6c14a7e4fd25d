#pragma once

namespace fuel {

// Puts the fuel screens of the questionnaire's chain into the screen registry.
void registerScreens();

} // namespace fuel
