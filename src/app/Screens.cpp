#include "app/Screens.h"

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
}

} // namespace app
