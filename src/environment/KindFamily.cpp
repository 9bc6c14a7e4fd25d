#include "environment/KindFamily.h"

#include "environment/KindMaintenance.h"
#include "store/CodeLists.h"
#include "store/RowWriter.h"
#include "ui/Session.h"

namespace environment {

namespace {

using Kind = ui::GridColumn::Kind;
using ui::FieldKind;
using Rule = KindField::Rule;

KindFamily makeEffluents() {
    KindFamily f;
    f.listName = QStringLiteral("frmPostoEflntLiqdo");
    f.maintenanceName = QStringLiteral("frmPostoEflntLiqdoM");
    f.listCaption = QStringLiteral("Efluentes Líquidos");
    f.maintenanceCaption = f.listCaption;
    f.frameTitle = f.listCaption;
    f.gridName = QStringLiteral("fgrPostoEflntLiqdo");
    f.table = "TB_POSTOEFLNTLIQDO";
    f.kindColumn = "IEFLNTLIQDO";
    f.kindList = "IEFLNTLIQDO";
    f.kindField = QStringLiteral("cmbTIPOEFLNT");
    f.kindLabel = QStringLiteral("Tipo");
    f.kindRequired = QStringLiteral("Preenchimento Obrigatório do Tipo de Efluente Líquido");
    f.kindTaken =
        QStringLiteral("Tipo de Efluente Líquido já está cadastrado, preencha com outro tipo");
    f.fields = {
        {{.name = QStringLiteral("txtQEFLNT"),
          .label = QStringLiteral("Quantidade (m³/mês)"),
          .kind = FieldKind::Decimal,
          .column = "QEFLNTLIQDO",
          .required = QStringLiteral("Preenchimento Obrigatório da Quantidade de Efluente Líquido"),
          .length = 15},
         Rule::Quantity},
        {{.name = QStringLiteral("cmbSISTMTRATM"),
          .label = QStringLiteral("Sistema de Tratamento"),
          .kind = FieldKind::Dictionary,
          .column = "NTRATM",
          .required = QStringLiteral("Preenchimento Obrigatório do Sistema de Tratamento"),
          .dictionary = QStringLiteral("Select NTRATM, DTRATM From DICNRTRATM order by DTRATM")}},
        {{.name = QStringLiteral("cmbDISPSFINAL"),
          .label = QStringLiteral("Disposição Final"),
          .kind = FieldKind::Dictionary,
          .column = "NDISPSFINAL",
          .required = QStringLiteral("Preenchimento Obrigatório da Disposição Final"),
          .dictionary = QStringLiteral(
              "Select NDISPSFINAL, DDISPSFINAL From DICNRDISPSFINAL order by DDISPSFINAL")}},
    };
    f.columns = {
        {QStringLiteral("Tipo"), 150, Kind::Text, ui::codeLabels(f.kindList)},
        {QStringLiteral("Quantidade"), 90, Kind::Decimal},
        {QStringLiteral("Sistema de Tratamento"), 250},
        {QStringLiteral("Disposição Final"), 200},
    };
    // A treatment or disposal left empty still lists the row, with an empty cell; one that the
    // dictionary lost hides it.
    f.query = QStringLiteral(
        "Select e.IEFLNTLIQDO, e.QEFLNTLIQDO, t.DTRATM, d.DDISPSFINAL From TB_POSTOEFLNTLIQDO e"
        " Left Join DICNRTRATM t On t.NTRATM = e.NTRATM"
        " Left Join DICNRDISPSFINAL d On d.NDISPSFINAL = e.NDISPSFINAL"
        " Where e.NMUNCP = ? And e.NSEQNC = ?"
        " And (e.NTRATM Is Null Or t.NTRATM Is Not Null)"
        " And (e.NDISPSFINAL Is Null Or d.NDISPSFINAL Is Not Null)"
        " Order By e.IEFLNTLIQDO");
    f.insertOperation = QStringLiteral("Incluir Efluente");
    f.alterOperation = QStringLiteral("Alterar Efluente");
    return f;
}

KindFamily makeWaste() {
    KindFamily f;
    f.listName = QStringLiteral("frmPostoResdu");
    f.maintenanceName = QStringLiteral("frmPostoResduM");
    f.listCaption = QStringLiteral("Resíduos");
    f.maintenanceCaption = f.listCaption;
    f.frameTitle = f.listCaption;
    f.gridName = QStringLiteral("fgrPostoResdu");
    f.table = "TB_POSTORESDU";
    f.kindColumn = "IRESDU";
    f.kindList = "IRESDU";
    f.kindField = QStringLiteral("cmbTIPORESDU");
    f.kindLabel = QStringLiteral("Tipo");
    f.kindRequired = QStringLiteral("Preenchimento Obrigatório do Tipo de Resíduo");
    f.kindTaken = QStringLiteral("Tipo de Resíduo já está cadastrado, preencha com outro tipo");
    f.otherField = QStringLiteral("txtDRESDU");
    f.otherColumn = "DRESDU";
    f.otherLabel = QStringLiteral("Descrição");
    f.otherLength = 15;
    f.otherRequired = QStringLiteral("Preenchimento Necessário da Descrição do Resíduo");
    f.fields = {
        {{.name = QStringLiteral("txtQRESDU"),
          .label = QStringLiteral("Quantidade"),
          .kind = FieldKind::Decimal,
          .column = "QRESDU",
          .required = QStringLiteral("Preenchimento Obrigatório da Quantidade de Resíduo"),
          .length = 15},
         Rule::Quantity},
        {{.name = QStringLiteral("txtCUNIDD"),
          .label = QStringLiteral("Unidade"),
          .kind = FieldKind::Codes,
          .column = "CUNIDDMEDDA",
          .required = QStringLiteral("Preenchimento Obrigatório da Unidade de Medida"),
          .codes = "CUNIDDMEDDA.RESDU"}},
        {{.name = QStringLiteral("cmbARMZN"),
          .label = QStringLiteral("Armazenamento"),
          .kind = FieldKind::Dictionary,
          .column = "CDESTNRESDU",
          .required = QStringLiteral("Preenchimento Obrigatório do Armazenamento"),
          .dictionary = QStringLiteral("Select CDESTNRESDU, DDESTNRESDU From DICNRDESTNRESDU"
                                       " where isitca='A' order by DDESTNRESDU")}},
        // 'Outra' is no final destination to choose.
        {{.name = QStringLiteral("cmbDISPSFINAL"),
          .label = QStringLiteral("Disposição Final"),
          .kind = FieldKind::Dictionary,
          .column = "CDESTNRESDU1",
          .required = QStringLiteral("Preenchimento Obrigatório da Disposição Final"),
          .dictionary =
              QStringLiteral("Select CDESTNRESDU, DDESTNRESDU From DICNRDESTNRESDU"
                             " where isitca='D' AND DDESTNRESDU<>'Outra' order by DDESTNRESDU")}},
    };
    f.columns = {
        {QStringLiteral("Tipo"), 150, Kind::Text, ui::codeLabels(f.kindList)},
        {QStringLiteral("Quantidade"), 90, Kind::Decimal},
        {QStringLiteral("Unidade"), 70, Kind::Text, ui::codeLabels("CUNIDDMEDDA.RESDU")},
        {QStringLiteral("Armazenamento"), 170},
        {QStringLiteral("Disposição Final"), 170},
    };
    // A unit that is none of the four reads "L/ano"; a row whose storage or destination the
    // dictionary lost is not listed.
    f.query = QStringLiteral("Select r.IRESDU, r.QRESDU, Case When r.CUNIDDMEDDA In (2404, 2408, "
                             "2310) Then r.CUNIDDMEDDA"
                             " Else 2311 End, a.DDESTNRESDU, d.DDESTNRESDU"
                             " From TB_POSTORESDU r, DICNRDESTNRESDU a, DICNRDESTNRESDU d"
                             " Where r.NMUNCP = ? And r.NSEQNC = ?"
                             " And r.CDESTNRESDU = a.CDESTNRESDU"
                             " And r.CDESTNRESDU1 = d.CDESTNRESDU Order By r.IRESDU");
    f.insertOperation = QStringLiteral("Incluir Residuo");
    f.alterOperation = QStringLiteral("Alterar Residuo");
    return f;
}

KindFamily makeAirEmissions() {
    KindFamily f;
    f.listName = QStringLiteral("frmPostoPrevnEmissAr");
    f.maintenanceName = QStringLiteral("frmPostoPrevnEmissArM");
    f.listCaption = QStringLiteral("Emissões Atmosféricas");
    f.maintenanceCaption = f.listCaption;
    f.frameTitle = f.listCaption;
    f.gridName = QStringLiteral("fgrPostoPrevnEmissAr");
    f.table = "TB_POSTOPREVNEMISSAR";
    f.kindColumn = "IFONTE";
    f.kindList = "IFONTE.EMISSAR";
    f.kindField = QStringLiteral("cmbTIPOFONTE");
    f.kindLabel = QStringLiteral("Fonte de Emissão");
    f.kindRequired = QStringLiteral("Preenchimento Obrigatório da Fonte de emissão");
    f.kindTaken = QStringLiteral("Fonte de emissão já está cadastrada, preencha com outra fonte");
    f.otherField = QStringLiteral("txtDFONTE");
    f.otherColumn = "DFONTEOUTRO";
    f.otherLabel = QStringLiteral("Descrição");
    f.otherLength = 50;
    f.otherRequired = QStringLiteral("Preenchimento Necessário da Descrição da Fonte de emissão");
    f.fields = {
        {{.name = QStringLiteral("txtDDISPSCONTR"),
          .label = QStringLiteral("Dispositivo de Controle"),
          .column = "DDISPSCONTR",
          .required = QStringLiteral("Preenchimento Obrigatório do Dispositivo de Controle"),
          .length = 50}},
    };
    f.columns = {
        {QStringLiteral("Fonte de Emissão"), 170, Kind::Text, ui::codeLabels(f.kindList)},
        {QStringLiteral("Dispositivo de controle"), 250},
        {QStringLiteral("Descrição"), 250},
    };
    f.query = QStringLiteral("Select IFONTE, DDISPSCONTR, DFONTEOUTRO From TB_POSTOPREVNEMISSAR"
                             " Where NMUNCP = ? And NSEQNC = ? Order By IFONTE");
    f.insertOperation = QStringLiteral("Incluir Emissao Atmosferica");
    f.alterOperation = QStringLiteral("Alterar Emissao Atmosferica");
    return f;
}

// The grid words the combined measures its own way ("Base Vibratória", a missing blank), and
// shows a single measure, stored as its caption, as it stands.
QHash<QString, QString> measuresInTheGrid() {
    return {
        {QStringLiteral("12"), QStringLiteral("Adequação de Lay-out e Isolamento Acústico")},
        {QStringLiteral("123"), QStringLiteral("Adequação de Lay-out,Isolamento Acústico e "
                                               "Substituição de Equipamento")},
        {QStringLiteral("1234"),
         QStringLiteral("Adequação de Lay-out, Isolamento Acústico, Substituição de Equipamento e "
                        "Base Vibratória")},
        {QStringLiteral("13"),
         QStringLiteral("Adequação de Lay-out e Substituição de Equipamento")},
        {QStringLiteral("134"), QStringLiteral("Adequação de Lay-out, Substituição de Equipamento "
                                               "e Base Vibratória")},
        {QStringLiteral("14"), QStringLiteral("Adequação de Lay-out e Base Vibratória")},
        {QStringLiteral("124"),
         QStringLiteral("Adequação de Lay-out, Isolamento Acústico e Base Vibratória")},
        {QStringLiteral("23"), QStringLiteral("Isolamento Acústico e Substituição de Equipamento")},
        {QStringLiteral("24"), QStringLiteral("Isolamento Acústico e Base Anti-Vibratória")},
        {QStringLiteral("234"), QStringLiteral("Isolamento Acústico, Substituição de Equipamento e "
                                               "Base Vibratória")},
        {QStringLiteral("9"), QStringLiteral("Outras")},
        {QStringLiteral("0"), QStringLiteral("Nenhuma")},
    };
}

KindFamily makeNoise() {
    KindFamily f;
    f.listName = QStringLiteral("frmPostoRuido");
    f.maintenanceName = QStringLiteral("frmPostoRuidoM");
    f.listCaption = QStringLiteral("Ruído e Vibrações");
    f.maintenanceCaption = f.listCaption;
    f.frameTitle = f.listCaption;
    f.gridName = QStringLiteral("fgrPostoRuido");
    f.table = "TB_POSTORUIDO";
    f.kindColumn = "IFONTE";
    f.kindList = "IFONTE.RUIDO";
    f.kindField = QStringLiteral("cmbTIPOFONTE");
    f.kindLabel = QStringLiteral("Equipamento");
    f.kindRequired = QStringLiteral("Preenchimento Obrigatório do Equipamento");
    f.kindTaken =
        QStringLiteral("Tipo de Ruído já está cadastrado, preencha com outro equipamento");
    f.otherField = QStringLiteral("txtDFONTE");
    f.otherColumn = "DFONTEOUTRO";
    f.otherLabel = QStringLiteral("Descrição");
    f.otherLength = 50;
    f.otherRequired = QStringLiteral("Preenchimento Necessário da Descrição do Equipamento");
    f.otherInSnapshot = false;
    f.fields = {
        {{.name = QStringLiteral("txtQFONTE"),
          .label = QStringLiteral("Quantidade "),
          .kind = FieldKind::Number,
          .column = "QFONTE",
          .required = QStringLiteral("Preenchimento Obrigatório da Quantidade de Equipamentos"),
          .length = 5},
         Rule::Count},
        {{.name = QStringLiteral("mskHINICIFUNCM"),
          .label = QStringLiteral("Hora de Início de Funcionamento"),
          .kind = FieldKind::Time,
          .column = "HINICIFUNCM",
          .required =
              QStringLiteral("Preenchimento Obrigatório da Hora de Início de Funcionamento")},
         Rule::Hour},
        {{.name = QStringLiteral("mskHTERMNFUNCM"),
          .label = QStringLiteral("Hora de Término de Funcionamento"),
          .kind = FieldKind::Time,
          .column = "HTERMNFUNCM",
          .required =
              QStringLiteral("Preenchimento Obrigatório da Hora de Término de Funcionamento")},
         Rule::Hour},
        {{.name = QStringLiteral("cmbDMEDDACONTR"),
          .label = QStringLiteral("Medida de Controle"),
          .kind = FieldKind::Codes,
          .column = "DMEDDACONTR",
          .required = QStringLiteral("Preenchimento Obrigatório da Medida de Controle")},
         Rule::None,
         true},
    };
    f.columns = {
        {QStringLiteral("Equipamento"), 170, Kind::Text, ui::codeLabels(f.kindList)},
        {QStringLiteral("Quantidade"), 75},
        {QStringLiteral("Hora Início de Funcionamento"), 90, Kind::Time},
        {QStringLiteral("Hora Término de Funcionamento"), 90, Kind::Time},
        {QStringLiteral("Medida de Controle"), 300, Kind::Text, measuresInTheGrid()},
    };
    f.query = QStringLiteral(
        "Select IFONTE, Case When QFONTE Is Null Then Null Else Cast(round(QFONTE) As Integer)"
        " End, HINICIFUNCM, HTERMNFUNCM, DMEDDACONTR"
        " From TB_POSTORUIDO Where NMUNCP = ? And NSEQNC = ? Order By IFONTE");
    f.insertOperation = QStringLiteral("Incluir Ruido");
    f.alterOperation = QStringLiteral("Alterar Ruido");
    return f;
}

} // namespace

const KindFamily& effluents() {
    static const KindFamily family = makeEffluents();
    return family;
}

const KindFamily& waste() {
    static const KindFamily family = makeWaste();
    return family;
}

const KindFamily& airEmissions() {
    static const KindFamily family = makeAirEmissions();
    return family;
}

const KindFamily& noise() {
    static const KindFamily family = makeNoise();
    return family;
}

ui::ListDefinition kindList(const KindFamily& family) {
    ui::ListDefinition def;
    def.name = family.listName;
    def.caption = family.listCaption;
    ui::ListLevel rows;
    rows.gridName = family.gridName;
    rows.frameTitle = family.frameTitle;
    rows.columns = family.columns;
    rows.query = [&family](const ui::Session& s, const QStringList&) {
        return ui::Query{family.query, {s.nmuncp, s.nseqnc}};
    };
    rows.insertOperation = family.insertOperation;
    rows.alterOperation = family.alterOperation;
    rows.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado?");
    // The row goes by its stored kind, whatever caption the grid gave it.
    rows.cascade = [&family](store::Database& db, const ui::Session& s,
                             const ui::ListSelection& selected) {
        store::Row key = s.keyRow();
        key.insert(
            QString::fromLatin1(family.kindColumn.data(), qsizetype(family.kindColumn.size())),
            selected.mainStored.value(0));
        store::deleteRow(db, family.table, key);
    };
    def.levels = {rows};
    def.maintenance = [&family](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new KindMaintenance(host, family);
    };
    return def;
}

} // namespace environment
