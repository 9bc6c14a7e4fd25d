#pragma once

#include "store/RowWriter.h"
#include "ui/FieldSet.h"
#include "ui/FormParts.h"
#include "ui/MaintenanceScreen.h"

class QComboBox;
class QGroupBox;
class QLineEdit;

namespace ui {
class OwnerPanel;
}

namespace fuel {

struct PumpFamily;

// frmBombaM, frmBombaAereoM: one pump, with its owner, or one of its links to a compartment.
class PumpMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    PumpMaintenance(ui::ScreenHost& host, const PumpFamily& family, QWidget* parent = nullptr);

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
    bool countedChain() const override { return false; }
    bool chainMayClose(const ui::ListSelection& rows) const override;

private:
    void declarePump();
    void declareLink();
    void layOut();
    bool onPump() const;
    bool ownerShown() const;
    store::Row pumpKey() const;
    store::Row linkKey(const QVariant& ncompr) const;
    ui::Check sameFuel();
    void tankChosen();
    void loadCompartments();
    void setLinkListsEnabled(bool enabled);
    QComboBox* tankList() const;
    QComboBox* compartmentList() const;

    const PumpFamily& m_family;
    ui::FieldSet m_pump;
    ui::FieldSet m_link;
    QGroupBox* m_fraBomba = nullptr;
    QGroupBox* m_fraBombaCompar = nullptr;
    QWidget* m_picNBOMBA = nullptr;
    QWidget* m_picNTANQU = nullptr;
    QWidget* m_picNCOMPR = nullptr;
    QWidget* m_laudo = nullptr; // the integrity report's frame
    ui::IntegrityReport m_report;
    ui::OwnerPanel* m_fraProp = nullptr;
    // The mark: the pump already has a link, so a new one must hold the same fuel, and a new
    // pump's chain of links may be closed.
    bool m_hasLinks = false;
    // The compartment of a link as it was when the link was opened for a change.
    QVariant m_oldCompartment;
};

} // namespace fuel
