#pragma once

#include "store/RowWriter.h"
#include "ui/FieldSet.h"
#include "ui/FormParts.h"
#include "ui/MaintenanceScreen.h"

class QGroupBox;

namespace ui {
class OwnerPanel;
}

namespace fuel {

struct TankFamily;

// frmTanquM and frmTanquAereoM: one tank of the family, with its owner, or one of its
// compartments.
class TankMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    TankMaintenance(ui::ScreenHost& host, const TankFamily& family, QWidget* parent = nullptr);

protected:
    void prepare() override;
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    QList<QWidget*> snapshotFields() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;
    QString newKey() const override;
    int childrenDue() const override;

private:
    void declareTank();
    void declareCompartment();
    void layOut();
    bool onTank() const;
    bool otherMaterial() const;
    void materialChosen();
    store::Row tankKey() const;
    store::Row compartmentKey() const;
    // The tank's row as written: DMATRLOUTRO describes "Outros" alone, Null for any other
    // material.
    store::Row tankValues() const;

    const TankFamily& m_family;
    ui::FieldSet m_tank;
    ui::FieldSet m_compartment;
    QGroupBox* m_fraTanque = nullptr;
    QGroupBox* m_fraCompar = nullptr;
    QWidget* m_picNTANQU = nullptr;
    QWidget* m_picNCOMPR = nullptr;
    QWidget* m_picDMATRLOUTRO = nullptr;
    QWidget* m_laudo = nullptr;   // the integrity report's frame
    ui::IntegrityReport m_report; // the installation date and the integrity report
    ui::OwnerPanel* m_fraProp = nullptr;
    // QCOMPRT as stored when the tank was opened for a change.
    int m_oldCompartments = 0;
};

} // namespace fuel
