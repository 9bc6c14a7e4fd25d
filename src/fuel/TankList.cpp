#include "fuel/TankList.h"

#include "fuel/TankFamily.h"
#include "fuel/TankMaintenance.h"
#include "fuel/TankRows.h"
#include "store/Database.h"
#include "ui/Session.h"

namespace fuel {

ui::ListDefinition tankList(const TankFamily& family) {
    // The families live for the whole run: the lambdas below keep a reference.
    const TankFamily* f = &family;
    ui::ListDefinition def;
    def.name = f->listName;
    def.caption = f->listCaption;
    def.noParentMessage = f->noTankYet;

    ui::ListLevel tanks;
    tanks.gridName = QStringLiteral("fgrPostoTanqu");
    tanks.frameTitle = f->tanksTitle;
    tanks.optionCaption = f->tankWord;
    tanks.columns = f->tankColumns;
    tanks.query = [f](const ui::Session& s, const QStringList&) {
        return ui::Query{f->tankQuery, {s.nmuncp, s.nseqnc, f->itanqu}};
    };
    tanks.insertOperation = f->incluirTanque;
    tanks.alterOperation = f->alterarTanque;
    tanks.deleteQuestion = f->deleteTankQuestion;
    tanks.cascade = [f](store::Database& db, const ui::Session& s, const ui::ListSelection& rows) {
        deleteTank(db, s, f->itanqu, rows.main.value(0));
    };

    ui::ListLevel compartments;
    compartments.gridName = QStringLiteral("fgrPostoTanquCompar");
    compartments.frameTitle = QStringLiteral("Compartimentos");
    compartments.optionCaption = QStringLiteral("Compartimento");
    compartments.columns = {
        {QStringLiteral("Nº do Compartimento"), 140},
        {f->loadingMouthLabel, 200},
        {QStringLiteral("Capacidade"), 100},
        {QStringLiteral("Produto Estocado"), 240},
    };
    compartments.query = [f](const ui::Session& s, const QStringList& tank) {
        return ui::Query{
            QStringLiteral("Select NCOMPR,DBOCACARRG,QCAPCD,DCOMBS From TB_POSTOTANQUCOMPR tbptc,"
                           " DICNRBOCACARRG dicbc, DICNRCOMBS dicnc Where NMUNCP = ?"
                           " And NSEQNC = ? And ITANQU = ?"
                           " And tbptc.NBOCACARRG = dicbc.NBOCACARRG"
                           " And tbptc.NCOMBS = dicnc.NCOMBS And NTANQU = ? Order By NCOMPR"),
            {s.nmuncp, s.nseqnc, f->itanqu, tank.value(0)}};
    };
    compartments.insertOperation = QStringLiteral("Incluir Compartimento");
    compartments.alterOperation = QStringLiteral("Alterar Compartimento");
    compartments.deleteQuestion = f->deleteCompartmentQuestion;
    compartments.cascade = [f](store::Database& db, const ui::Session& s,
                               const ui::ListSelection& rows) {
        deleteCompartment(db, s, f->itanqu, rows.main.value(0), rows.detail.value(0));
    };

    def.levels = {tanks, compartments};
    def.checkDetailInsert = [f](ui::ScreenHost& host, const ui::ListSelection& rows) -> ui::Check {
        const int count =
            countCompartments(host.database(), host.session(), f->itanqu, rows.main.value(0));
        if (count >= rows.main.value(f->compartmentsColumn).toInt())
            return ui::Refusal{QString(), f->compartmentsComplete};
        return {};
    };
    def.maintenance = [f](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new TankMaintenance(host, *f);
    };
    return def;
}

ui::ListDefinition undergroundTankList() {
    return tankList(undergroundTanks());
}

ui::ListDefinition abovegroundTankList() {
    return tankList(abovegroundTanks());
}

} // namespace fuel
