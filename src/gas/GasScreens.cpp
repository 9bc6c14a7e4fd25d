#include "gas/GasScreens.h"

#include "gas/BatteryList.h"
#include "ui/ListScreen.h"

namespace gas {

void registerScreens() {
    ui::ScreenRegistry::instance().add(QStringLiteral("frmPostoGasBatri"),
                                       [](ui::ScreenHost& host, const ui::Sequence::Place&) {
                                           return new ui::ListScreen(host, batteryList());
                                       });
}

} // namespace gas
