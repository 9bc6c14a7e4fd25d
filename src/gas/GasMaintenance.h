#pragma once

#include "store/RowWriter.h"
#include "ui/FieldSet.h"
#include "ui/MaintenanceScreen.h"

#include <string_view>

class QGroupBox;

namespace ui {
class OwnerPanel;
}

namespace gas {

// Where a piece of gas equipment is kept and how its number is asked.
struct EquipmentTables {
    std::string_view table;      // TB_POSTOGASBATRI, ...
    std::string_view ownerTable; // its owner, keyed as the equipment is
    std::string_view column;     // the number: NBATRI, NBOMBA, NCOMPR
    QString field;               // txtNBATRI, ...
    QString label;               // its caption
    QString required;            // the number left empty
    QString taken;               // a new number that the register already has
    QString frameName;           // the block of the equipment's fields
    QString frameTitle;
};

// The maintenance screen of one piece of vehicle gas equipment with its owner: the number in
// its frozen box, the dates, the owner kind that opens the owner panel, the situation, and the
// writes of the equipment and its owner row. The screens add their own fields between these
// (installationDate, tail) and, for dispensers and compressors, the links to the batteries.
class GasMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

protected:
    GasMaintenance(ui::ScreenHost& host, QString listName, QList<ui::Operation> operations,
                   EquipmentTables tables, QWidget* parent = nullptr);

    // Declares mskAINSTL in the block.
    void addInstallation(QString orderMessage);
    // Declares the fields that close the block: the last maintenance, the owner, the situation;
    // and builds the owner panel.
    void addTail(QString situationRequired);

    ui::FieldSet& fields() { return m_fields; }
    const ui::FieldSet& fields() const { return m_fields; }
    QGroupBox* block() const { return m_block; }
    QWidget* keyBox() const { return m_keyBox; }
    ui::OwnerPanel* ownerPanel() const { return m_owner; }
    bool ownerShown() const;
    const EquipmentTables& tables() const { return m_tables; }

    // The equipment's number as typed.
    QVariant number() const;
    // The register's key with the equipment's number.
    store::Row keyOf(const QVariant& number) const;
    // Shows the stored equipment of that number, and its owner when a third party owns it.
    void loadEquipment(const QVariant& number);
    // The panels of an insert or a change of the equipment; returns the first focus: the number
    // of a new one, `afterKey` otherwise.
    QWidget* arrangeEquipment(QWidget* afterKey);
    // Inserts or updates the equipment, as the operation says, and rewrites its owner row.
    void writeEquipment(store::Database& db);
    // The equipment's fields and then its owner, while the panel is shown.
    ui::Check validateEquipment() const;

    QList<QWidget*> snapshotFields() const override;
    ui::Check leaveCheck(QWidget* field) override;

private:
    EquipmentTables m_tables;
    ui::FieldSet m_fields;
    QGroupBox* m_block = nullptr;
    QWidget* m_keyBox = nullptr;
    ui::OwnerPanel* m_owner = nullptr;
};

} // namespace gas
