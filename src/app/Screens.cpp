#include "app/Screens.h"

#include "environment/EnvironmentScreens.h"
#include "fuel/FuelScreens.h"
#include "shell/QuestionnaireFrame.h"

namespace app {

void registerScreens() {
    shell::registerScreens();
    fuel::registerScreens();
    environment::registerScreens();
}

} // namespace app
