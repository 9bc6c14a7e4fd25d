#include "app/Screens.h"

#include "establishment/EstablishmentScreens.h"
#include "fuel/FuelScreens.h"
#include "shell/QuestionnaireFrame.h"

namespace app {

void registerScreens() {
    shell::registerScreens();
    establishment::registerScreens();
    fuel::registerScreens();
}

} // namespace app
