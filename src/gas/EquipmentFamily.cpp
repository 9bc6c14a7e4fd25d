#include "gas/EquipmentFamily.h"

#include "gas/EquipmentMaintenance.h"
#include "gas/GasFields.h"
#include "store/RowWriter.h"
#include "ui/Session.h"

namespace gas {

namespace {

EquipmentFamily makeDispensers() {
    EquipmentFamily f;
    f.tables = {.table = "TB_POSTOGASBOMBA",
                .ownerTable = "TB_POSTOGASBOMBAPROPR",
                .column = "NBOMBA",
                .field = QStringLiteral("txtNBOMBA"),
                .label = QStringLiteral("Nº Bomba"),
                .required = QStringLiteral("Preenchimento Obrigatório do Número da Bomba"),
                // The dispenser's number has always been refused with these words.
                .taken = QStringLiteral("Número de Unidade de Armazenamento já está cadastrado, "
                                        "preencha com outro valor"),
                .frameName = QStringLiteral("fraBomba"),
                .frameTitle = QStringLiteral("Unidade de Abastecimento")};
    f.linkTable = "TB_POSTOGASBOMBABATRI";
    f.listName = QStringLiteral("frmPostoGasBomba");
    f.maintenanceName = QStringLiteral("frmPostoGasBombaM");
    f.word = QStringLiteral("Bomba");
    f.listTitle = QStringLiteral("Unidades de Abastecimento");
    f.grid = QStringLiteral("fgrPostoGasBomba");
    f.linkGrid = QStringLiteral("fgrPostoGasBombaBatri");
    f.nozzles = true;
    f.noEquipment =
        QStringLiteral("É necessário incluir uma unidade de abastecimento primeiramente");
    f.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídos As "
                                      "Ligações das Baterias para Esta Unidade de Abastecimento.)");
    // The dispenser's situation has always been asked for with the compressor's word.
    f.situationRequired = QStringLiteral("Preenchimento Obrigatório da Situação do Compressor");
    return f;
}

EquipmentFamily makeCompressors() {
    EquipmentFamily f;
    f.tables = {.table = "TB_POSTOGASCOMPR",
                .ownerTable = "TB_POSTOGASCOMPRPROPR",
                .column = "NCOMPR",
                .field = QStringLiteral("txtNCOMPR"),
                .label = QStringLiteral("Nº Compressor"),
                .required = QStringLiteral("Preenchimento Obrigatório do Número do Compressor"),
                .taken = QStringLiteral(
                    "Número de Compressor já está cadastrado, preencha com outro valor"),
                .frameName = QStringLiteral("fraCompressor"),
                .frameTitle = QStringLiteral("Compressor")};
    f.linkTable = "TB_POSTOGASCOMPRBATRI";
    f.listName = QStringLiteral("frmPostoGasCompr");
    f.maintenanceName = QStringLiteral("frmPostoGasComprM");
    f.word = QStringLiteral("Compressor");
    f.listTitle = QStringLiteral("Compressores");
    f.grid = QStringLiteral("fgrPostoGasCompr");
    f.linkGrid = QStringLiteral("fgrPostoGasComprBatri");
    f.nozzles = false;
    f.noEquipment = QStringLiteral("É necessário incluir um compressor primeiramente");
    f.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídos As "
                                      "Ligações das Baterias para Este Compressor.)");
    f.situationRequired = QStringLiteral("Preenchimento Obrigatório da Situação do Compressor");
    return f;
}

} // namespace

const EquipmentFamily& dispensers() {
    static const EquipmentFamily family = makeDispensers();
    return family;
}

const EquipmentFamily& compressors() {
    static const EquipmentFamily family = makeCompressors();
    return family;
}

ui::ListDefinition equipmentList(const EquipmentFamily& family) {
    using Kind = ui::GridColumn::Kind;
    const QString key = nameOf(family.tables.column);
    ui::ListDefinition def;
    def.name = family.listName;
    def.caption = kCaption;
    def.noParentMessage = family.noEquipment;

    ui::ListLevel equipment;
    equipment.gridName = family.grid;
    equipment.frameTitle = family.listTitle;
    equipment.optionCaption = family.word;
    equipment.columns = {{family.tables.label, 90}, {QStringLiteral("Identificação"), 130}};
    QString nozzles;
    if (family.nozzles) {
        equipment.columns.emplace_back(QStringLiteral("Nº Bicos"), 70);
        nozzles = QStringLiteral("NBICO,");
    }
    equipment.columns.insert(equipment.columns.end(),
                             {{QStringLiteral("Data da Instalação"), 120, Kind::Date},
                              {QStringLiteral("Data da Última Manutenção"), 170, Kind::Date},
                              {QStringLiteral("Proprietário"), 100},
                              {QStringLiteral("Situação"), 90}});
    const QString table = nameOf(family.tables.table);
    // The captions of the owner and the situation come from the query itself.
    equipment.query = [key, nozzles, table](const ui::Session& s, const QStringList&) {
        ui::Query q;
        const QString owner = shownAs("IPROPR", "IPROPR", q.values);
        const QString situation = shownAs("ISITCA", "ISITCA", q.values);
        q.sql = QStringLiteral("Select ") + key + QStringLiteral(",NIDENT,") + nozzles +
                QStringLiteral("AINSTL,AMANTNULTMA,") + owner + QLatin1Char(',') + situation +
                QStringLiteral(" From ") + table +
                QStringLiteral(" Where nMuncp = ? And NSEQNC = ? Order By ") + key;
        q.values << s.nmuncp << s.nseqnc;
        return q;
    };
    equipment.insertOperation = family.insertEquipment();
    equipment.alterOperation = family.alterEquipment();
    equipment.deleteQuestion = family.deleteQuestion;
    equipment.cascade = [&family, key](store::Database& db, const ui::Session& s,
                                       const ui::ListSelection& rows) {
        store::Row where = s.keyRow();
        where.insert(key, rows.main.value(0).toInt());
        store::deleteRows(db, family.linkTable, where);
        store::deleteRows(db, family.tables.ownerTable, where);
        store::deleteRow(db, family.tables.table, where);
    };

    ui::ListLevel links;
    links.gridName = family.linkGrid;
    links.frameTitle = QStringLiteral("Baterias");
    links.optionCaption = QStringLiteral("Ligação");
    links.columns = {{QStringLiteral("Nº da Bateria"), 120},
                     {QStringLiteral("Material da Linha"), 300}};
    const QString linkTable = nameOf(family.linkTable);
    links.query = [key, linkTable](const ui::Session& s, const QStringList& row) {
        return ui::Query{QStringLiteral("Select NBATRI,DMATRL From ") + linkTable +
                             QStringLiteral(" l, DICNRMATRLTANQU d Where l.NMUNCP = ?"
                                            " And l.NSEQNC = ? And l.") +
                             key + QStringLiteral(" = ? And l.NMATRL = d.NMATRL Order By NBATRI"),
                         {s.nmuncp, s.nseqnc, row.value(0).toInt()}};
    };
    links.insertOperation = kIncluirLigacao;
    links.alterOperation = kAlterarLigacao;
    links.deleteQuestion = QStringLiteral(
        "Deseja Excluir o Item Selecionado? (Será Excluída A Ligação Com Esta Bateria.)");
    links.cascade = [&family, key](store::Database& db, const ui::Session& s,
                                   const ui::ListSelection& rows) {
        store::Row where = s.keyRow();
        where.insert(key, rows.main.value(0).toInt());
        where.insert(QStringLiteral("NBATRI"), rows.detail.value(0).toInt());
        store::deleteRow(db, family.linkTable, where);
    };

    def.levels = {equipment, links};
    def.maintenance = [&family](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new EquipmentMaintenance(host, family);
    };
    return def;
}

} // namespace gas
