#include "gas/EquipmentMaintenance.h"

#include "gas/EquipmentFamily.h"
#include "gas/GasFields.h"
#include "store/Database.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
#include "ui/OwnerPanel.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace gas {

namespace {

const QString kBattery = QStringLiteral("cmbNBATRI");
const QString kMaterial = QStringLiteral("cmbDMATRILINHA");

QList<ui::Operation> operationsOf(const EquipmentFamily& family) {
    return {
        {family.insertEquipment(), 0, true, true},
        {family.alterEquipment(), 0, false, true},
        {kIncluirLigacao, 1, true, false},
        {kAlterarLigacao, 1, false, true},
    };
}

} // namespace

EquipmentMaintenance::EquipmentMaintenance(ui::ScreenHost& host, const EquipmentFamily& family,
                                           QWidget* parent)
    : GasMaintenance(host, family.listName, operationsOf(family), family.tables, parent)
    , m_family(family) {
    setObjectName(family.maintenanceName);
    m_fraBateria = new QGroupBox(QStringLiteral("Bateria"), this);
    m_fraBateria->setObjectName(QStringLiteral("fraBateria"));
    m_fraBateria->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);

    // Declared in the order of the checks of Ok: a new dispenser or compressor names its first
    // battery between its installation and its last maintenance.
    auto* ident = qobject_cast<QLineEdit*>(
        fields().add({.name = QStringLiteral("txtNIDENT"),
                      .label = QStringLiteral("Identificação"),
                      .column = "NIDENT",
                      .required = QStringLiteral("Preenchimento Obrigatório da Identificação."),
                      .length = 15},
                     block()));
    ident->setMinimumWidth(ident->fontMetrics().horizontalAdvance(QString(15, QLatin1Char('N'))) +
                           16);
    addInstallation(
        QStringLiteral("Data da Instalação Deve Ser Menor ou Igual a Data da Última Manutenção."));
    if (family.nozzles) {
        fields()
            .add({.name = QStringLiteral("txtNBICOS"),
                  .label = QStringLiteral("Nº Bicos"),
                  .kind = ui::FieldKind::Number,
                  .column = "NBICO",
                  .required = QStringLiteral("Preenchimento Obrigatório do Número de Bicos."),
                  .length = 2},
                 block())
            ->setMaximumWidth(40);
    }
    // The first link, asked only of a new piece of equipment.
    const auto firstLink = [this] {
        return operation().name == m_family.insertEquipment() && !m_fraBateria->isHidden();
    };
    QWidget* battery =
        fields().add({.name = kBattery,
                      .label = QStringLiteral("Ligado à Bateria"),
                      .kind = ui::FieldKind::Dictionary,
                      .required = QStringLiteral("Preenchimento Obrigatório de pelo menos uma "
                                                 "Bateria"),
                      .applies = firstLink},
                     m_fraBateria);
    battery->setMinimumWidth(80);
    m_picNBATRI = ui::keyBox(QStringLiteral("picNBATRI"), battery, m_fraBateria);
    fields()
        .add({.name = kMaterial,
              .label = QStringLiteral("Material da Linha"),
              .kind = ui::FieldKind::Dictionary,
              .required = QStringLiteral("Preenchimento Obrigatório do Material da Linha"),
              .dictionary = QStringLiteral("Select NMATRL, DMATRL From DICNRMATRLTANQU"
                                           " WHERE IMATRLTANQULINHA='L' Order By NMATRL"),
              .applies = firstLink},
             m_fraBateria)
        ->setMinimumWidth(260);
    addTail(family.situationRequired);

    auto* grid = new QGridLayout(block());
    fields().place(grid, 0, 0, family.tables.field);
    fields().place(grid, 0, 2, QStringLiteral("txtNIDENT"));
    fields().place(grid, 1, 0, QStringLiteral("mskAINSTL"));
    fields().place(grid, 1, 2, QStringLiteral("mskAMANTN"));
    int row = 2;
    if (family.nozzles)
        fields().place(grid, row++, 0, QStringLiteral("txtNBICOS"));
    fields().place(grid, row, 0, QStringLiteral("cmbIPROPR"));
    fields().place(grid, row, 2, QStringLiteral("cmbISITCA"));
    grid->setColumnStretch(4, 1);
    auto* link = new QGridLayout(m_fraBateria);
    fields().place(link, 0, 0, kBattery);
    fields().place(link, 0, 2, kMaterial);
    link->setColumnStretch(4, 1);
    // The keyboard follows the screen, not the order of the checks.
    QWidget* order[] = {fields().widget(family.tables.field),
                        fields().widget(QStringLiteral("txtNIDENT")),
                        fields().widget(QStringLiteral("mskAINSTL")),
                        fields().widget(QStringLiteral("mskAMANTN")),
                        family.nozzles ? fields().widget(QStringLiteral("txtNBICOS")) : nullptr,
                        fields().widget(QStringLiteral("cmbIPROPR")),
                        fields().widget(QStringLiteral("cmbISITCA")),
                        battery,
                        fields().widget(kMaterial)};
    QWidget* previous = nullptr;
    for (QWidget* next : order) {
        if (!next)
            continue;
        if (previous)
            setTabOrder(previous, next);
        previous = next;
    }

    body()->addWidget(block());
    body()->addWidget(m_fraBateria);
    body()->addWidget(ownerPanel());
    body()->addStretch(1);
}

bool EquipmentMaintenance::onEquipment() const {
    return operation().level == 0;
}

void EquipmentMaintenance::prepare() {
    ui::databaseList(database(), fields().combo(kBattery),
                     QStringLiteral("Select NBATRI, NBATRI From TB_POSTOGASBATRI"
                                    " WHERE NMUNCP=? AND NSEQNC=? Order By NBATRI"),
                     {session().nmuncp, session().nseqnc});
    // The line materials; the batteries are the register's own.
    fields().loadLists(database());
}

void EquipmentMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (operation().name == m_family.insertEquipment())
        return;
    loadEquipment(rows.main.value(0).toInt());
    if (operation().name != kAlterarLigacao)
        return;
    m_oldBattery = rows.detail.value(0).toInt();
    if (const std::optional<store::Row> link =
            store::readRow(database(), m_family.linkTable, linkKey(m_oldBattery))) {
        fields().setValue(kBattery, link->value(QStringLiteral("NBATRI")));
        fields().setValue(kMaterial, link->value(QStringLiteral("NMATRL")));
    }
}

QWidget* EquipmentMaintenance::arrangePanels() {
    if (onEquipment()) {
        // A new one is saved with its first link; a change touches the equipment alone.
        m_fraBateria->setVisible(operation().insert);
        m_fraBateria->setEnabled(true);
        m_picNBATRI->setEnabled(true);
        return arrangeEquipment(fields().widget(QStringLiteral("txtNIDENT")));
    }
    block()->setEnabled(false);
    keyBox()->setEnabled(false);
    m_fraBateria->show();
    m_fraBateria->setEnabled(true);
    ownerPanel()->setEnabled(false);
    // A changed link keeps its battery: only the line's material changes.
    m_picNBATRI->setEnabled(operation().insert);
    return operation().insert ? fields().widget(kBattery) : fields().widget(kMaterial);
}

ui::Check EquipmentMaintenance::validate() {
    return onEquipment() ? validateEquipment() : consistirLigacao();
}

ui::Check EquipmentMaintenance::consistirLigacao() const {
    if (fields().isEmpty(kBattery))
        return ui::Refusal{fields().widget(kBattery),
                           QStringLiteral("Preenchimento Obrigatório do Número da Bateria")};
    if (operation().insert &&
        store::rowExists(database(), m_family.linkTable, linkKey(fields().value(kBattery))))
        return ui::Refusal{fields().widget(kBattery),
                           QStringLiteral("Número de Bateria já está cadastrado, preencha com "
                                          "outro valor")};
    if (!operation().insert && fields().isEmpty(kMaterial))
        return ui::Refusal{fields().widget(kMaterial),
                           QStringLiteral("É necessário a seleção de um material de linha")};
    return {};
}

store::Row EquipmentMaintenance::linkKey(const QVariant& nbatri) const {
    store::Row key = keyOf(number());
    key.insert(QStringLiteral("NBATRI"), nbatri);
    return key;
}

void EquipmentMaintenance::insertLink(store::Database& db) const {
    store::Row row = session().newRow();
    row.insert(linkKey(fields().value(kBattery)));
    row.insert(QStringLiteral("NMATRL"), fields().value(kMaterial));
    store::insertRow(db, m_family.linkTable, row);
}

void EquipmentMaintenance::write(store::Database& db) {
    if (onEquipment()) {
        writeEquipment(db);
        if (operation().insert)
            insertLink(db);
    } else if (operation().insert) {
        insertLink(db);
    } else {
        // Only the link that was opened: the battery it had, of this equipment, of this
        // register. Its information date becomes the register's.
        store::updateRow(db, m_family.linkTable, linkKey(m_oldBattery),
                         {{QStringLiteral("AINFRM"), session().ainfrm.toString(Qt::ISODate)},
                          {QStringLiteral("NMATRL"), fields().value(kMaterial)}});
    }
}

QString EquipmentMaintenance::newKey() const {
    // As the list's first columns show the rows: the equipment's number, the link's battery.
    return QString::number((onEquipment() ? number() : fields().value(kBattery)).toInt());
}

int EquipmentMaintenance::childrenDue() const {
    // After a new one and its first link, further links may follow until the user closes.
    return operation().name == m_family.insertEquipment() ? 1 : 0;
}

bool EquipmentMaintenance::chainMayClose(const ui::ListSelection& rows) const {
    return !rows.detail.isEmpty();
}

} // namespace gas
