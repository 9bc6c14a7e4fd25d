#pragma once

namespace gas {

// Puts the vehicle gas screens of the questionnaire's chain into the screen registry.
void registerScreens();

} // namespace gas
