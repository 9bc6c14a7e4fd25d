#include "establishment/EstablishmentScreens.h"

#include "establishment/CharacteristicsForm.h"

namespace establishment {

void registerScreens() {
    ui::ScreenRegistry& registry = ui::ScreenRegistry::instance();
    registry.add(QStringLiteral("frmPosto"),
                 [](ui::ScreenHost& host, const ui::Sequence::Place& place) {
                     return new CharacteristicsForm(host, place);
                 });
}

} // namespace establishment
