#include "fuel/FuelScreens.h"

#include "fuel/ControlScreens.h"
#include "fuel/PumpList.h"
#include "fuel/TankList.h"

namespace fuel {

void registerScreens() {
    ui::ScreenRegistry::instance().add(QStringLiteral("frmTanqu"),
                                       [](ui::ScreenHost& host, const ui::Sequence::Place&) {
                                           return new ui::ListScreen(host, undergroundTankList());
                                       });
    ui::ScreenRegistry::instance().add(QStringLiteral("frmTanquAereo"),
                                       [](ui::ScreenHost& host, const ui::Sequence::Place&) {
                                           return new ui::ListScreen(host, abovegroundTankList());
                                       });
    ui::ScreenRegistry::instance().add(
        QStringLiteral("frmBomba"), [](ui::ScreenHost& host, const ui::Sequence::Place&) {
            return new ui::ListScreen(host, pumpList(undergroundPumps()));
        });
    ui::ScreenRegistry::instance().add(
        QStringLiteral("frmBombaAereo"), [](ui::ScreenHost& host, const ui::Sequence::Place&) {
            return new ui::ListScreen(host, pumpList(abovegroundPumps()));
        });
    registerControlScreens();
}

} // namespace fuel
