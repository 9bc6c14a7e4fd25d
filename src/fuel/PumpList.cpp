#include "fuel/PumpList.h"

#include "ui/FieldSet.h"

#include "fuel/PumpMaintenance.h"
#include "fuel/PumpRows.h"
#include "fuel/TankFamily.h"
#include "fuel/TankRows.h"
#include "store/Database.h"
#include "ui/Session.h"

namespace fuel {

namespace {

using Kind = ui::GridColumn::Kind;

const QString kDeleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado?");

} // namespace

const PumpFamily& undergroundPumps() {
    static const PumpFamily family = [] {
        PumpFamily f;
        f.itanqu = QStringLiteral("S");
        f.listName = QStringLiteral("frmBomba");
        f.maintenanceName = QStringLiteral("frmBombaM");
        f.listCaption = QStringLiteral("Sistema de Armazenamento de Combustível - Subterrâneo");
        f.maintenanceCaption = QStringLiteral("Equipamentos");
        f.pump = QStringLiteral("Bomba");
        f.pumpsTitle = QStringLiteral("Bombas");
        f.numberLabel = QStringLiteral("Nº Bico");
        f.identLabel = QStringLiteral("Ident. Bomba");
        f.identLength = 12;
        f.tankLabel = QStringLiteral("Nº Tanque");
        f.lineType = true;
        // "tanque" is what this message has always said, on the pump list as on the tank list.
        f.noPump = QStringLiteral("É necessário incluir um tanque primeiramente");
        f.pumpDeleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado? (Serão "
                                              "Excluídos todas as Bombas/Compartimentos do "
                                              "Tanque.)");
        f.numberRequired = QStringLiteral("Preenchimento Obrigatório do Número da Bomba");
        f.numberInvalid = QStringLiteral("Número da Bomba Inválido");
        f.numberTaken =
            QStringLiteral("Número de Bomba já está cadastrado, preencha com outro valor");
        f.fuelRule = QStringLiteral(
            "A Bomba só pode aceitar Compartimentos que Armazenem o mesmo combustível");
        f.noCompartmentsList =
            QStringLiteral("Não existe compartimentos cadastrados para esse tanque.");
        f.noCompartments = f.noCompartmentsList;
        f.cepRequired = QStringLiteral("Preenchimnto Obrigatório do CEP");
        return f;
    }();
    return family;
}

const PumpFamily& abovegroundPumps() {
    static const PumpFamily family = [] {
        PumpFamily f;
        f.itanqu = QStringLiteral("A");
        f.listName = QStringLiteral("frmBombaAereo");
        f.maintenanceName = QStringLiteral("frmBombaAereoM");
        f.listCaption = QStringLiteral("Sistema de Armazenamento de Combustível - Aéreo");
        f.maintenanceCaption = f.listCaption;
        f.pump = QStringLiteral("Unidade de Abastecimento");
        f.pumpsTitle = QStringLiteral("Unidades de Abastecimento");
        f.numberLabel = QStringLiteral("Nº Unidade");
        f.identLabel = QStringLiteral("Identificação");
        f.identLength = 30;
        f.tankLabel = QStringLiteral("Nº Reservatório");
        f.lineType = false;
        f.noPump = QStringLiteral("É Necessário Incluir um Reservatório Primeiramente");
        f.pumpDeleteQuestion = QStringLiteral(
            "Deseja Excluir o Item Selecionado? (Serão Excluídas todas as Unidades de "
            "Abastecimento/Compartimentos da Unidade de Abastecimento.)");
        f.numberRequired =
            QStringLiteral("Preenchimento Obrigatório do Número da Unidade de Abastecimento");
        f.numberInvalid = QStringLiteral("Número da Unidade de Abastecimento Inválido");
        f.numberTaken = QStringLiteral("Número da Unidade de Abastecimento já está cadastrado, "
                                       "preencha com outro valor");
        f.fuelRule = QStringLiteral("A Unidade de Abastecimento só pode aceitar Compartimentos "
                                    "que Armazenem o mesmo combustível");
        f.noCompartmentsList =
            QStringLiteral("Não existe compartimentos cadastrados para esse reservatório.");
        f.noCompartments = QStringLiteral(
            "Não existe Compartimentos cadastrados para essa Unidade de Abastecimento.");
        f.cepRequired = QStringLiteral("Preenchimento Obrigatório do CEP");
        return f;
    }();
    return family;
}

ui::ListDefinition pumpList(const PumpFamily& family) {
    const QString itanqu = family.itanqu;
    ui::ListDefinition def;
    def.name = family.listName;
    def.caption = family.listCaption;
    def.noParentMessage = family.noPump;

    ui::ListLevel pumps;
    pumps.gridName = QStringLiteral("fgrBomba");
    pumps.frameTitle = family.pumpsTitle;
    pumps.optionCaption = family.pump;
    pumps.columns = {
        {family.numberLabel, 60},
        {family.identLabel, 110},
        {QStringLiteral("Data de Instalação"), 120, Kind::Date},
        {QStringLiteral("Válvula de Retenção"), 130},
        {QStringLiteral("Tipo de Filtro"), 150},
        {QStringLiteral("Data do Último Laudo de Integridade"), 215, Kind::Date},
        {QStringLiteral("Proprietário"), 90, Kind::Text, ui::codeLabels("IPROPR")},
    };
    pumps.query = [itanqu](const ui::Session& s, const QStringList&) {
        return ui::Query{
            QStringLiteral("Select NBOMBA,NIDENT,AINSTL,dicval.DVALVLRETNC,dicf.DFILTRO,"
                           "ATESTEESTNQ,IPROPR From TB_POSTOBOMBA tbb, DICNRVALVLRETNC dicval,"
                           " DICNRFILTRO dicf Where nMuncp = ? And NSEQNC = ? And ITANQU = ?"
                           " And tbb.NVALVLRETNC = dicval.NVALVLRETNC"
                           " And tbb.NFILTRO= dicf.NFILTRO Order By NBOMBA"),
            {s.nmuncp, s.nseqnc, itanqu}};
    };
    pumps.insertOperation = family.insertPump();
    pumps.alterOperation = family.alterPump();
    pumps.deleteQuestion = family.pumpDeleteQuestion;
    pumps.cascade = [itanqu](store::Database& db, const ui::Session& s,
                             const ui::ListSelection& rows) {
        deletePump(db, s, itanqu, rows.main.value(0).toInt());
    };

    ui::ListLevel links;
    links.gridName = QStringLiteral("fgrBombaCompar");
    links.frameTitle = QStringLiteral("Compartimentos");
    links.optionCaption = family.pump + QStringLiteral("/Compartimento");
    links.columns = {
        {family.tankLabel, 200},
        {QStringLiteral("Nº Compartimento"), 220},
        {QStringLiteral("Material"), 200},
    };
    QString lineColumn;
    if (family.lineType) {
        links.columns.emplace_back(QStringLiteral("Tipo"), 100, Kind::Text,
                                   ui::codeLabels("ILINHA"));
        lineColumn = QStringLiteral(",ILINHA");
    }
    links.query = [itanqu, lineColumn](const ui::Session& s, const QStringList& pump) {
        return ui::Query{
            QStringLiteral("Select distinct t.NTANQU || ' - ' || t.NIDENT,"
                           " tc.NCOMPR || ' - ' || c.DCOMBS,DMATRL") +
                lineColumn +
                QStringLiteral(" From TB_POSTOTANQU t,TB_POSTOBOMBATANQU bt,TB_POSTOTANQUCOMPR tc,"
                               "DICNRMATRLTANQU dm,DICNRCOMBS C Where bt.NMUNCP = ?"
                               " And bt.NSEQNC = ? And bt.ITANQU = ? And t.NTANQU = bt.NTANQU"
                               " And t.NTANQU = tc.NTANQU And bt.NMATRL = dm.NMATRL"
                               " And bt.NCOMPR = tc.NCOMPR And tc.NCOMBS = c.NCOMBS"
                               " And NBOMBA = ? and t.nmuncp=bt.nmuncp and t.nseqnc=bt.nseqnc"
                               " and tc.nmuncp=bt.nmuncp and tc.nseqnc=bt.nseqnc"
                               " and bt.itanqu=t.itanqu AND tc.itanqu=bt.itanqu"
                               " Order By t.NTANQU, tc.NCOMPR"),
            {s.nmuncp, s.nseqnc, itanqu, pump.value(0).toInt()}};
    };
    links.insertOperation = family.insertLink();
    links.alterOperation = family.alterLink();
    links.deleteQuestion = kDeleteQuestion;
    links.cascade = [itanqu](store::Database& db, const ui::Session& s,
                             const ui::ListSelection& rows) {
        deleteLink(db, s, itanqu, rows.main.value(0).toInt(), leadingNumber(rows.detail.value(0)),
                   leadingNumber(rows.detail.value(1)));
    };

    def.levels = {pumps, links};
    def.checkDetailAlter = [&family](ui::ScreenHost& host,
                                     const ui::ListSelection& rows) -> ui::Check {
        if (countCompartments(host.database(), host.session(), family.itanqu,
                              leadingNumber(rows.detail.value(0))) == 0)
            return ui::Refusal{QString(), family.noCompartmentsList};
        return {};
    };
    def.maintenance = [&family](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new PumpMaintenance(host, family);
    };
    return def;
}

} // namespace fuel
