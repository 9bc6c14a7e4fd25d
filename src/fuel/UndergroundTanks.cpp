#include "fuel/UndergroundTanks.h"

#include "fuel/TankMaintenance.h"
#include "fuel/TankRows.h"
#include "store/Database.h"
#include "ui/Session.h"

namespace fuel {

namespace {

const QString kUnderground = QStringLiteral("S");

using Kind = ui::GridColumn::Kind;

} // namespace

const QHash<QString, QString>& situacaoLabels() {
    static const QHash<QString, QString> labels = {
        {QStringLiteral("A"), QStringLiteral("Em Uso")},
        {QStringLiteral("D"), QStringLiteral("Desativado")},
    };
    return labels;
}

const QHash<QString, QString>& proprietarioLabels() {
    static const QHash<QString, QString> labels = {
        {QStringLiteral("P"), QStringLiteral("Proprietário")},
        {QStringLiteral("D"), QStringLiteral("Distribuidora")},
        {QStringLiteral("O"), QStringLiteral("Outros")},
    };
    return labels;
}

ui::ListDefinition undergroundTankList() {
    ui::ListDefinition def;
    def.name = QStringLiteral("frmTanqu");
    def.caption = QStringLiteral("Sistema de Armazenamento de Combustível - Subterrâneo");
    def.noParentMessage = QStringLiteral("É necessário incluir um tanque primeiramente");

    ui::ListLevel tanks;
    tanks.gridName = QStringLiteral("fgrPostoTanqu");
    tanks.frameTitle = QStringLiteral("Tanques");
    tanks.optionCaption = QStringLiteral("Tanque");
    tanks.columns = {
        {QStringLiteral("Nº Tanque"), 60},
        {QStringLiteral("Identificação"), 90},
        {QStringLiteral("Data de Instalação"), 120, Kind::Date},
        {QStringLiteral("Tipo de Material"), 120},
        {QStringLiteral("Nº de Compartimentos"), 140},
        {QStringLiteral("Situação"), 75, Kind::Text, situacaoLabels()},
        {QStringLiteral("Data do Último Laudo de Integridade"), 215, Kind::Date},
        {QStringLiteral("Proprietário"), 90, Kind::Text, proprietarioLabels()},
    };
    tanks.query = [](const ui::Session& s, const QStringList&) {
        return ui::Query{
            QStringLiteral("Select NTANQU,NIDENT,AINSTL,dicm.DMATRL,QCOMPRT,tnpt.ISITCA,"
                           "ATESTEESTNQ,IPROPR From TB_POSTOTANQU tnpt,DICNRMATRLTANQU dicm"
                           " Where tnpt.NMATRL = dicm.NMATRL And nMuncp = ? And nseqnc = ?"
                           " And ITANQU = 'S' Order By NTANQU"),
            {s.nmuncp, s.nseqnc}};
    };
    tanks.insertOperation = QStringLiteral("Incluir Tanque");
    tanks.alterOperation = QStringLiteral("Alterar Tanque");
    tanks.deleteQuestion = QStringLiteral(
        "Deseja Excluir o Item Selecionado? (Serão Excluídos Todos os Compartimentos do Tanque e "
        "Todas as Ligações das Bombas Para os Compartimentos deste Tanque)");
    tanks.cascade = [](store::Database& db, const ui::Session& s, const ui::ListSelection& rows) {
        deleteTank(db, s, kUnderground, rows.main.value(0));
    };

    ui::ListLevel compartments;
    compartments.gridName = QStringLiteral("fgrPostoTanquCompar");
    compartments.frameTitle = QStringLiteral("Compartimentos");
    compartments.optionCaption = QStringLiteral("Compartimento");
    compartments.columns = {
        {QStringLiteral("Nº do Compartimento"), 140},
        {QStringLiteral("Boca de Carregamento"), 200},
        {QStringLiteral("Capacidade"), 100},
        {QStringLiteral("Produto Estocado"), 240},
    };
    compartments.query = [](const ui::Session& s, const QStringList& tank) {
        return ui::Query{
            QStringLiteral("Select NCOMPR,DBOCACARRG,QCAPCD,DCOMBS From TB_POSTOTANQUCOMPR tbptc,"
                           " DICNRBOCACARRG dicbc, DICNRCOMBS dicnc Where NMUNCP = ?"
                           " And NSEQNC = ? And ITANQU = 'S'"
                           " And tbptc.NBOCACARRG = dicbc.NBOCACARRG"
                           " And tbptc.NCOMBS = dicnc.NCOMBS And NTANQU = ? Order By NCOMPR"),
            {s.nmuncp, s.nseqnc, tank.value(0)}};
    };
    compartments.insertOperation = QStringLiteral("Incluir Compartimento");
    compartments.alterOperation = QStringLiteral("Alterar Compartimento");
    compartments.deleteQuestion =
        QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídas As Ligações das "
                       "Bombas Para Este Compartimento.)");
    compartments.cascade = [](store::Database& db, const ui::Session& s,
                              const ui::ListSelection& rows) {
        deleteCompartment(db, s, kUnderground, rows.main.value(0), rows.detail.value(0));
    };

    def.levels = {tanks, compartments};
    def.checkDetailInsert = [](ui::ScreenHost& host, const ui::ListSelection& rows) -> ui::Check {
        const int count =
            countCompartments(host.database(), host.session(), kUnderground, rows.main.value(0));
        if (count >= rows.main.value(4).toInt())
            return ui::Refusal{nullptr, QStringLiteral("Número de compartimentos já atingido ao "
                                                       "cadastrado no Tanque")};
        return {};
    };
    def.maintenance = [](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new TankMaintenance(host);
    };
    return def;
}

} // namespace fuel
