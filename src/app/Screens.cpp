#include "app/Screens.h"

#include "environment/EnvironmentScreens.h"
#include "establishment/EstablishmentScreens.h"
#include "fuel/FuelScreens.h"
#include "gas/GasScreens.h"
#include "shell/QuestionnaireFrame.h"

namespace app {

void registerScreens() {
    shell::registerScreens();
    establishment::registerScreens();
    fuel::registerScreens();
    gas::registerScreens();
    environment::registerScreens();
}

} // namespace app
