#pragma once

namespace fuel {

// Puts the screens that follow the tanks and pumps of each system into the screen registry:
// stock control, leaks, corrosion protection, monitoring, containment basins and the monthly
// movement.
void registerControlScreens();

} // namespace fuel
