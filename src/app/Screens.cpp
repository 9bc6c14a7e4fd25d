#include "app/Screens.h"

#include "fuel/FuelScreens.h"
#include "shell/QuestionnaireFrame.h"

namespace app {

void registerScreens() {
    shell::registerScreens();
    fuel::registerScreens();
}

} // namespace app
