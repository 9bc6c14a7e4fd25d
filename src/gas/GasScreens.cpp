#include "gas/GasScreens.h"

#include "gas/BatteryList.h"
#include "gas/EquipmentFamily.h"
#include "ui/ListScreen.h"

namespace gas {

void registerScreens() {
    ui::ScreenRegistry::instance().add(QStringLiteral("frmPostoGasBatri"),
                                       [](ui::ScreenHost& host, const ui::Sequence::Place&) {
                                           return new ui::ListScreen(host, batteryList());
                                       });
    ui::ScreenRegistry::instance().add(
        QStringLiteral("frmPostoGasCompr"), [](ui::ScreenHost& host, const ui::Sequence::Place&) {
            return new ui::ListScreen(host, equipmentList(compressors()));
        });
    ui::ScreenRegistry::instance().add(
        QStringLiteral("frmPostoGasBomba"), [](ui::ScreenHost& host, const ui::Sequence::Place&) {
            return new ui::ListScreen(host, equipmentList(dispensers()));
        });
}

} // namespace gas
