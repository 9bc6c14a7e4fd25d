#pragma once

#include "store/RowWriter.h"
#include "ui/FieldSet.h"
#include "ui/MaintenanceScreen.h"

class QGroupBox;

namespace fuel {

// frmBaciaContn: the containment basins of the register and the aboveground tanks in each.
ui::ListDefinition basinList();

// frmBaciaContnM: one basin, or one tank of a basin.
class BasinMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    explicit BasinMaintenance(ui::ScreenHost& host, QWidget* parent = nullptr);

protected:
    void prepare() override;
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    QString newKey() const override;
    QList<QWidget*> snapshotFields() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;
    int childrenDue() const override;
    bool countedChain() const override { return false; }
    bool chainMayClose(const ui::ListSelection&) const override { return true; }

private:
    bool onBasin() const;
    bool otherLining() const;
    bool drained() const;
    void liningChosen();
    // IREVST: the lining chosen, or for "Outros" the text typed for it; and back.
    QVariant lining() const;
    void showLining(const QVariant& stored);
    store::Row basinKey() const;

    ui::FieldSet m_basin;
    ui::FieldSet m_link;
    QGroupBox* m_fraBacia = nullptr;
    QGroupBox* m_fraResrv = nullptr;
    store::Row m_oldLink;
};

} // namespace fuel
