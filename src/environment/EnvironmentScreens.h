#pragma once

// The screens of the environmental controls: water, effluents, waste, air emissions, noise and
// accident prevention, registered under their names in the chain.
namespace environment {

void registerScreens();

} // namespace environment
