#include "environment/EnvironmentScreens.h"

#include "environment/AccidentPrevention.h"
#include "environment/KindFamily.h"
#include "environment/WaterUse.h"
#include "ui/ListScreen.h"

namespace environment {

namespace {

void addKindList(const KindFamily& family) {
    ui::ScreenRegistry::instance().add(family.listName,
                                       [&family](ui::ScreenHost& host, const ui::Sequence::Place&) {
                                           return new ui::ListScreen(host, kindList(family));
                                       });
}

} // namespace

void registerScreens() {
    ui::ScreenRegistry::instance().add(QStringLiteral("frmPostoConsmAgua"),
                                       [](ui::ScreenHost& host, const ui::Sequence::Place&) {
                                           return new ui::ListScreen(host, waterList());
                                       });
    addKindList(effluents());
    addKindList(waste());
    addKindList(airEmissions());
    addKindList(noise());
    ui::ScreenRegistry::instance().add(QStringLiteral("frmPostoPrevnAcidn"),
                                       [](ui::ScreenHost& host, const ui::Sequence::Place& place) {
                                           return new AccidentPrevention(host, place);
                                       });
}

} // namespace environment
