#include "gas/GasMaintenance.h"

#include "gas/GasFields.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
#include "ui/OwnerPanel.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>

namespace gas {

GasMaintenance::GasMaintenance(ui::ScreenHost& host, QString listName,
                               QList<ui::Operation> operations, EquipmentTables tables,
                               QWidget* parent)
    : ui::MaintenanceScreen(host, std::move(listName), std::move(operations), parent)
    , m_tables(std::move(tables))
    , m_fields(m_tables.table, this) {
    setWindowTitle(kCaption);
    m_block = new QGroupBox(m_tables.frameTitle, this);
    m_block->setObjectName(m_tables.frameName);
    m_block->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);

    QWidget* key =
        m_fields.add({.name = m_tables.field,
                      .label = m_tables.label,
                      .kind = ui::FieldKind::Number,
                      .column = m_tables.column,
                      .required = m_tables.required,
                      .length = 3,
                      .check = [this]() -> ui::Check {
                          // Only a new number is looked for; a number of 0 is a number like any
                          // other.
                          if (operation().level == 0 && operation().insert &&
                              store::rowExists(database(), m_tables.table, keyOf(number())))
                              return ui::Refusal{m_fields.widget(m_tables.field), m_tables.taken};
                          return {};
                      }},
                     m_block);
    auto* edit = qobject_cast<QLineEdit*>(key);
    edit->setAlignment(Qt::AlignCenter);
    edit->setMaximumWidth(60);
    m_keyBox = ui::keyBox(QStringLiteral("pic") + nameOf(m_tables.column), key, m_block);
}

void GasMaintenance::addInstallation(QString orderMessage) {
    m_fields.add(installationDate(&m_fields, std::move(orderMessage)), m_block)
        ->setMaximumWidth(100);
}

void GasMaintenance::addTail(QString situationRequired) {
    m_fields.add(maintenanceDate(&m_fields), m_block)->setMaximumWidth(100);
    auto* owner = qobject_cast<QComboBox*>(m_fields.add(ownerKind(), m_block));
    m_fields.add(situation(std::move(situationRequired)), m_block);
    // Built after the equipment's fields, the owner's come after them on the keyboard too.
    m_owner = new ui::OwnerPanel(database(), m_tables.ownerTable, {}, this);
    m_owner->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    m_owner->hide();
    m_owner->follow(owner);
}

bool GasMaintenance::ownerShown() const {
    return !m_owner->isHidden();
}

QVariant GasMaintenance::number() const {
    return m_fields.value(m_tables.field);
}

store::Row GasMaintenance::keyOf(const QVariant& number) const {
    store::Row key = session().keyRow();
    key.insert(nameOf(m_tables.column), number);
    return key;
}

void GasMaintenance::loadEquipment(const QVariant& number) {
    const std::optional<store::Row> row = store::readRow(database(), m_tables.table, keyOf(number));
    if (!row)
        return;
    m_fields.load(*row);
    if (row->value(QStringLiteral("IPROPR")).toString() == QLatin1String("O")) {
        m_owner->load(database(), keyOf(number));
        m_owner->show();
        m_owner->setEnabled(false);
    }
}

QWidget* GasMaintenance::arrangeEquipment(QWidget* afterKey) {
    m_block->setEnabled(true);
    if (operation().insert) {
        m_owner->hide();
        m_keyBox->setEnabled(true);
        return m_fields.widget(m_tables.field);
    }
    m_owner->setVisible(ui::chosenCode(m_fields.combo(QStringLiteral("cmbIPROPR"))).toString() ==
                        QLatin1String("O"));
    m_owner->setEnabled(true);
    m_keyBox->setEnabled(false);
    return afterKey;
}

ui::Check GasMaintenance::validateEquipment() const {
    if (ui::Check refused = m_fields.validate())
        return refused;
    if (ownerShown())
        return m_owner->validate();
    return {};
}

void GasMaintenance::writeEquipment(store::Database& db) {
    const store::Row key = keyOf(number());
    if (operation().insert) {
        store::Row row = session().newRow();
        row.insert(m_fields.values());
        store::insertRow(db, m_tables.table, row);
    } else {
        store::updateRow(db, m_tables.table, key, m_fields.values());
    }
    // The owner row exists exactly while a third party owns the equipment.
    m_owner->remove(db, key);
    if (ownerShown()) {
        store::Row owner = session().newRow();
        owner.insert(nameOf(m_tables.column), number());
        m_owner->write(db, owner);
    }
}

QList<QWidget*> GasMaintenance::snapshotFields() const {
    QList<QWidget*> shown = m_fields.shownWidgets();
    if (ownerShown() && operation().level == 0 && !operation().insert)
        shown << m_owner->fields();
    return shown;
}

ui::Check GasMaintenance::leaveCheck(QWidget* field) {
    if (field == m_fields.widget(QStringLiteral("cmbIPROPR"))) {
        m_owner->followOwnerChoice();
        return {};
    }
    return m_fields.leave(field);
}

} // namespace gas
