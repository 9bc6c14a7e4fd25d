#include "establishment/EstablishmentScreens.h"

#include "establishment/CharacteristicsForm.h"
#include "establishment/DeliveryForm.h"
#include "establishment/DistributorList.h"
#include "establishment/LandUseForm.h"
#include "establishment/ResponsiblesForm.h"
#include "establishment/ServiceAreasForm.h"

namespace establishment {

void registerScreens() {
    ui::ScreenRegistry& registry = ui::ScreenRegistry::instance();
    registry.add(QStringLiteral("frmPosto"),
                 [](ui::ScreenHost& host, const ui::Sequence::Place& place) {
                     return new CharacteristicsForm(host, place);
                 });
    registry.add(
        QStringLiteral("frmPostoDistrConsl"),
        [](ui::ScreenHost& host, const ui::Sequence::Place&) { return new DistributorList(host); });
    registry.add(QStringLiteral("frmPostoUSOOCUPCSOLO"),
                 [](ui::ScreenHost& host, const ui::Sequence::Place& place) {
                     return new LandUseForm(host, place);
                 });
    registry.add(QStringLiteral("frmPostoAreaServc"),
                 [](ui::ScreenHost& host, const ui::Sequence::Place& place) {
                     return new ServiceAreasForm(host, place);
                 });
    registry.add(QStringLiteral("frmPostoEntrg"),
                 [](ui::ScreenHost& host, const ui::Sequence::Place& place) {
                     return new DeliveryForm(host, place);
                 });
    registry.add(QStringLiteral("frmPostoRespnContt"),
                 [](ui::ScreenHost& host, const ui::Sequence::Place& place) {
                     return new ResponsiblesForm(host, place);
                 });
}

} // namespace establishment
