#include "fuel/TankFamily.h"

#include "ui/FieldSet.h"

namespace fuel {

namespace {

using Kind = ui::GridColumn::Kind;

TankFamily makeUnderground() {
    TankFamily f;
    f.itanqu = QStringLiteral("S");
    f.listName = QStringLiteral("frmTanqu");
    f.maintenanceName = QStringLiteral("frmTanquM");
    f.listCaption = QStringLiteral("Sistema de Armazenamento de Combustível - Subterrâneo");
    f.maintenanceCaption = QStringLiteral("Sistema de Armazenamento de Combustíveis - Subterrâneo");
    f.tankWord = QStringLiteral("Tanque");
    f.tanksTitle = QStringLiteral("Tanques");
    f.tankColumns = {
        {QStringLiteral("Nº Tanque"), 60},
        {QStringLiteral("Identificação"), 90},
        {QStringLiteral("Data de Instalação"), 120, Kind::Date},
        {QStringLiteral("Tipo de Material"), 120},
        {QStringLiteral("Nº de Compartimentos"), 140},
        {QStringLiteral("Situação"), 75, Kind::Text, ui::codeLabels("ISITCA")},
        {QStringLiteral("Data do Último Laudo de Integridade"), 215, Kind::Date},
        {QStringLiteral("Proprietário"), 90, Kind::Text, ui::codeLabels("IPROPR")},
    };
    f.tankQuery = QStringLiteral(
        "Select NTANQU,NIDENT,AINSTL,dicm.DMATRL,QCOMPRT,tnpt.ISITCA,ATESTEESTNQ,IPROPR"
        " From TB_POSTOTANQU tnpt,DICNRMATRLTANQU dicm Where tnpt.NMATRL = dicm.NMATRL"
        " And nMuncp = ? And nseqnc = ? And ITANQU = ? Order By NTANQU");
    f.compartmentsColumn = 4;
    f.materialLabel = QStringLiteral("Tipo de Material");
    f.loadingMouthLabel = QStringLiteral("Boca de Carregamento");
    f.ventTitle = QStringLiteral("Respiro");
    f.ventHeightLabel = QStringLiteral("Altura (m)");
    f.ventDistanceLabel = QStringLiteral("Distância do Receptor (m)");
    f.incluirTanque = QStringLiteral("Incluir Tanque");
    f.alterarTanque = QStringLiteral("Alterar Tanque");
    f.noTankYet = QStringLiteral("É necessário incluir um tanque primeiramente");
    f.compartmentsComplete =
        QStringLiteral("Número de compartimentos já atingido ao cadastrado no Tanque");
    f.numberRequired = QStringLiteral("Preenchimento Obrigatório do Número do Tanque");
    f.numberInvalid = QStringLiteral("Número do Tanque Inválido");
    f.numberTaken = QStringLiteral("Número de Tanque já está cadastrado, preencha com outro valor");
    f.countLowered = QStringLiteral(
        "Atualizar os Compartimentos do Tanque Antes de Atualizar o Número de Compartimentos.");
    f.deleteTankQuestion = QStringLiteral(
        "Deseja Excluir o Item Selecionado? (Serão Excluídos Todos os Compartimentos do Tanque e "
        "Todas as Ligações das Bombas Para os Compartimentos deste Tanque)");
    f.deleteCompartmentQuestion =
        QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídas As Ligações das "
                       "Bombas Para Este Compartimento.)");
    return f;
}

TankFamily makeAboveground() {
    TankFamily f;
    f.itanqu = QStringLiteral("A");
    f.listName = QStringLiteral("frmTanquAereo");
    f.maintenanceName = QStringLiteral("frmTanquAereoM");
    f.listCaption = QStringLiteral("Sistema de Armazenamento de Combustíveis - Aéreo");
    f.maintenanceCaption = f.listCaption;
    f.tankWord = QStringLiteral("Reservatório");
    f.tanksTitle = QStringLiteral("Reservatórios");
    f.tankColumns = {
        {QStringLiteral("Nº Reservatório"), 100},
        {QStringLiteral("Identificação"), 90},
        {QStringLiteral("Data de Instalação"), 120, Kind::Date},
        {QStringLiteral("Tipo"), 75, Kind::Text, ui::codeLabels("IPOSCA")},
        {QStringLiteral("Material"), 75},
        {QStringLiteral("Tipo de Base"), 110},
        {QStringLiteral("Nº de Compartimentos"), 140},
        {QStringLiteral("Situação"), 75, Kind::Text, ui::codeLabels("ISITCA")},
        {QStringLiteral("Data do Último Laudo de Integridade"), 215, Kind::Date},
        {QStringLiteral("Proprietário"), 90, Kind::Text, ui::codeLabels("IPROPR")},
    };
    // A tank is listed only with a material that the dictionary knows; one without a base (come
    // with an older database or a file) is listed with the base empty, so that it can be
    // reached and completed.
    f.tankQuery = QStringLiteral(
        "Select NTANQU,NIDENT,AINSTL,IPOSCA,DMATRL,DBASE,QCOMPRT,pt.ISITCA,ATESTEESTNQ,IPROPR"
        " From TB_POSTOTANQU pt Left Join DICNRBASE db On pt.NBASE = db.NBASE,"
        " DICNRMATRLTANQU dm Where NMUNCP = ? And NSEQNC = ? And ITANQU = ?"
        " And pt.NMATRL = dm.NMATRL Order By NTANQU");
    f.compartmentsColumn = 6;
    f.materialLabel = QStringLiteral("Material");
    f.loadingMouthLabel = QStringLiteral("Alimentação");
    f.ventTitle = QStringLiteral("Respiro (m)");
    f.ventHeightLabel = QStringLiteral("Altura");
    f.ventDistanceLabel = QStringLiteral("Dist. Receptor");
    f.incluirTanque = QStringLiteral("Incluir Reservatório");
    f.alterarTanque = QStringLiteral("Alterar Reservatório");
    f.noTankYet = QStringLiteral("É necessário incluir um Reservatório primeiramente");
    f.compartmentsComplete =
        QStringLiteral("Número de Compartimentos já atingido ao cadastrado no Reservatório");
    f.numberRequired = QStringLiteral("Preenchimento Obrigatório do Número do Reservatório");
    f.numberInvalid = QStringLiteral("Número do Reservatório Inválido");
    f.numberTaken =
        QStringLiteral("Número do Reservatório já está cadastrado, preencha com outro valor");
    f.countLowered = QStringLiteral("Atualizar os Compartimentos do Reservatório Antes de "
                                    "Atualizar o Número de Compartimentos.");
    f.deleteTankQuestion = QStringLiteral(
        "Deseja Excluir o Item Selecionado? (Serão Excluídos todos os Compartimentos do Tanque e "
        "Todas as Ligações das Unidades de Abastecimento Para os Compartimentos deste "
        "Reservatório)");
    f.deleteCompartmentQuestion =
        QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídos As Ligações das "
                       "Unidades de Abastecimento Para Este Compartimento.)");
    f.ownerTexts.cepRequired = QStringLiteral("Preenchimento Obrigatório do CEP");
    f.hasPosition = true;
    f.fixedMaterials = true;
    f.hasBase = true;
    return f;
}

} // namespace

const TankFamily& undergroundTanks() {
    static const TankFamily family = makeUnderground();
    return family;
}

const TankFamily& abovegroundTanks() {
    static const TankFamily family = makeAboveground();
    return family;
}

} // namespace fuel
