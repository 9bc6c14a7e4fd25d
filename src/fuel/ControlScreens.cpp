#include "fuel/ControlScreens.h"

#include "fuel/Basins.h"
#include "fuel/Leaks.h"
#include "fuel/Monitoring.h"
#include "fuel/Movement.h"
#include "fuel/Protection.h"
#include "fuel/StockControl.h"
#include "ui/ScreenHost.h"

namespace fuel {

namespace {

// A list screen of the chain, whatever the role of the place.
template <typename MakeList> void addList(const QString& name, MakeList makeList) {
    ui::ScreenRegistry::instance().add(
        name, [makeList](ui::ScreenHost& host, const ui::Sequence::Place&) -> QWidget* {
            return new ui::ListScreen(host, makeList());
        });
}

} // namespace

void registerControlScreens() {
    addList(QStringLiteral("frmPostoMontrAmbnt"),
            [] { return monitoringList(undergroundMonitoring()); });
    addList(QStringLiteral("frmPostoMontrAmbntAereo"),
            [] { return monitoringList(abovegroundMonitoring()); });
    addList(QStringLiteral("frmBaciaContn"), [] { return basinList(); });
    addList(QStringLiteral("frmPostoMovmn"), [] { return movementList(); });
    ui::ScreenRegistry::instance().add(
        QStringLiteral("frmPostoContrEstq"),
        [](ui::ScreenHost& host, const ui::Sequence::Place& place) -> QWidget* {
            return new StockControl(host, place);
        });
    addList(QStringLiteral("frmPostoHistrVazmnSubtr"), [] { return leakList(undergroundLeaks()); });
    addList(QStringLiteral("frmPostoHistrVazmnAereo"), [] { return leakList(abovegroundLeaks()); });
    addList(QStringLiteral("frmPostoProtcCatdcSubtr"),
            [] { return protectionList(undergroundProtection()); });
    addList(QStringLiteral("frmPostoProtcCatdcAereo"),
            [] { return protectionList(abovegroundProtection()); });
}

} // namespace fuel
