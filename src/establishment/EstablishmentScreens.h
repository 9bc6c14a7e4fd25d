#pragma once

namespace establishment {

// Puts the establishment's screens of the questionnaire's chain into the screen registry.
void registerScreens();

} // namespace establishment
