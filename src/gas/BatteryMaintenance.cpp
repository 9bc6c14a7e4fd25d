#include "gas/BatteryMaintenance.h"

#include "gas/GasFields.h"
#include "ui/OwnerPanel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace gas {

namespace {

EquipmentTables batteryTables() {
    return {.table = "TB_POSTOGASBATRI",
            .ownerTable = "TB_POSTOGASBATRIPROPR",
            .column = "NBATRI",
            .field = QStringLiteral("txtNBATRI"),
            .label = QStringLiteral("Nº"),
            .required = QStringLiteral("Preenchimento Obrigatório do Número da Bateria"),
            .taken =
                QStringLiteral("Número de Bateria já está cadastrado, preencha com outro valor"),
            .frameName = QStringLiteral("fraBateria"),
            .frameTitle = QStringLiteral("Bateria de Armazenagem")};
}

} // namespace

BatteryMaintenance::BatteryMaintenance(ui::ScreenHost& host, QWidget* parent)
    : GasMaintenance(host, QStringLiteral("frmPostoGasBatri"),
                     {{QStringLiteral("Incluir Bateria"), 0, true, true},
                      {QStringLiteral("Alterar Bateria"), 0, false, true}},
                     batteryTables(), parent) {
    setObjectName(QStringLiteral("frmPostoGasBatriM"));
    // The wording of the order of the two dates is this screen's own.
    addInstallation(QStringLiteral(
        "Data da Última Instalação Deve Ser Menor ou Igual a Data da Última Manutenção."));
    auto* cylinders = qobject_cast<QLineEdit*>(fields().add(
        {.name = QStringLiteral("txtQCILND"),
         .label = QStringLiteral("Nº de Cilindros"),
         .kind = ui::FieldKind::Number,
         .column = "QCILND",
         .required = QStringLiteral("Preenchimento Obrigatório da Quantidade de Cilindros")},
        block()));
    cylinders->setAlignment(Qt::AlignCenter);
    cylinders->setMaximumWidth(40);
    // The battery's situation has always been asked for with the tank's word.
    addTail(QStringLiteral("Preenchimento Obrigatório da Situação do Tanque"));

    auto* grid = new QGridLayout(block());
    fields().place(grid, 0, 0, QStringLiteral("txtNBATRI"));
    fields().place(grid, 0, 2, QStringLiteral("mskAINSTL"));
    fields().place(grid, 1, 0, QStringLiteral("txtQCILND"));
    fields().place(grid, 1, 2, QStringLiteral("mskAMANTN"));
    fields().place(grid, 2, 0, QStringLiteral("cmbIPROPR"));
    fields().place(grid, 2, 2, QStringLiteral("cmbISITCA"));
    grid->setColumnStretch(4, 1);

    body()->addWidget(block());
    body()->addWidget(ownerPanel());
    body()->addStretch(1);
}

void BatteryMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (!operation().insert)
        loadEquipment(rows.main.value(0).toInt());
}

QWidget* BatteryMaintenance::arrangePanels() {
    return arrangeEquipment(fields().widget(QStringLiteral("mskAINSTL")));
}

QString BatteryMaintenance::newKey() const {
    return QString::number(number().toInt());
}

} // namespace gas
