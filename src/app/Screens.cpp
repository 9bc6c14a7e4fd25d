#include "app/Screens.h"

#include "fuel/FuelScreens.h"
#include "gas/GasScreens.h"
#include "shell/QuestionnaireFrame.h"

namespace app {

void registerScreens() {
    shell::registerScreens();
    fuel::registerScreens();
    gas::registerScreens();
}

} // namespace app
