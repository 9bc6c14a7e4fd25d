#include "fuel/FuelScreens.h"

#include "fuel/UndergroundTanks.h"

namespace fuel {

void registerScreens() {
    ui::ScreenRegistry::instance().add(QStringLiteral("frmTanqu"),
                                       [](ui::ScreenHost& host, const ui::Sequence::Place&) {
                                           return new ui::ListScreen(host, undergroundTankList());
                                       });
}

} // namespace fuel
