#include "gas/BatteryList.h"

#include "gas/BatteryMaintenance.h"
#include "gas/GasFields.h"
#include "store/RowWriter.h"
#include "ui/Session.h"

namespace gas {

void deleteBattery(store::Database& db, const ui::Session& session, const QVariant& nbatri) {
    store::Row key = session.keyRow();
    key.insert(QStringLiteral("NBATRI"), nbatri);
    store::deleteRows(db, "TB_POSTOGASCOMPRBATRI", key);
    store::deleteRows(db, "TB_POSTOGASBOMBABATRI", key);
    store::deleteRows(db, "TB_POSTOGASBATRIPROPR", key);
    store::deleteRow(db, "TB_POSTOGASBATRI", key);
}

ui::ListDefinition batteryList() {
    using Kind = ui::GridColumn::Kind;
    ui::ListDefinition def;
    def.name = QStringLiteral("frmPostoGasBatri");
    def.caption = kCaption;

    ui::ListLevel batteries;
    batteries.gridName = QStringLiteral("fgrPostoGasBatri");
    batteries.frameTitle = QStringLiteral("Baterias de Armazenagem");
    batteries.optionCaption = QStringLiteral("Bateria");
    batteries.columns = {
        {QStringLiteral("Nº Bateria"), 80},
        {QStringLiteral("Data da Instalação"), 120, Kind::Date},
        {QStringLiteral("Nº de Cilindros"), 100},
        {QStringLiteral("Data da Última Manutenção"), 170, Kind::Date},
        {QStringLiteral("Proprietário"), 100},
        {QStringLiteral("Situação"), 90},
    };
    // The captions of the owner and the situation come from the query itself.
    batteries.query = [](const ui::Session& s, const QStringList&) {
        ui::Query q;
        const QString owner = shownAs("IPROPR", "IPROPR", q.values);
        const QString situation = shownAs("ISITCA", "ISITCA", q.values);
        q.sql = QStringLiteral("Select NBATRI,AINSTL,QCILND,AMANTNULTMA,") + owner +
                QLatin1Char(',') + situation +
                QStringLiteral(" From TB_POSTOGASBATRI Where nMuncp = ? And NSEQNC = ?"
                               " Order By NBATRI");
        q.values << s.nmuncp << s.nseqnc;
        return q;
    };
    batteries.insertOperation = QStringLiteral("Incluir Bateria");
    batteries.alterOperation = QStringLiteral("Alterar Bateria");
    batteries.deleteQuestion = QStringLiteral(
        "Deseja Excluir o Item Selecionado? (Serão Excluídas As Ligações das Bombas e "
        "Compressores para Esta Bateria de Armazenagem.)");
    batteries.cascade = [](store::Database& db, const ui::Session& s,
                           const ui::ListSelection& rows) {
        deleteBattery(db, s, rows.main.value(0).toInt());
    };

    def.levels = {batteries};
    def.maintenance = [](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new BatteryMaintenance(host);
    };
    return def;
}

} // namespace gas
