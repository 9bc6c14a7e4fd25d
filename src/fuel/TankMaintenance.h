#pragma once

#include "store/RowWriter.h"
#include "ui/FormParts.h"
#include "ui/MaintenanceScreen.h"

class QComboBox;
class QGroupBox;
class QLineEdit;

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
    // The key of the tank's owner row; with the information date for an insert.
    store::Row ownerKey(const QVariant& ntanqu, bool withDate = false) const;
    bool onTank() const;
    bool ownerShown() const;
    ui::Check consistirTanque();
    ui::Check consistirCompartimento();
    void materialChosen();
    bool otherMaterial() const;
    void gravarTanque(store::Database& db);
    void alterarTanque(store::Database& db);
    // ISITCA as written: "A" for "Em Uso", otherwise "D".
    QVariant situacao() const;
    // DMATRLOUTRO as written: the description of "Outros", Null for any other material.
    QVariant materialDescription() const;
    void gravarCompartimento(store::Database& db);
    void alterarCompartimento(store::Database& db);

    const TankFamily& m_family;

    QGroupBox* m_fraTanque = nullptr;
    QWidget* m_picNTANQU = nullptr;
    QLineEdit* m_ntanqu = nullptr;
    QLineEdit* m_nident = nullptr;
    QLineEdit* m_ainstl = nullptr;
    QComboBox* m_iposca = nullptr;
    QComboBox* m_nmatrl = nullptr;
    QWidget* m_picDMATRLOUTRO = nullptr;
    QLineEdit* m_dmatrloutro = nullptr;
    QComboBox* m_nbase = nullptr;
    QLineEdit* m_qcomprt = nullptr;
    QComboBox* m_teste = nullptr;
    QLineEdit* m_atesteestnq = nullptr;
    ui::IntegrityReport m_report; // the installation date and the integrity report
    QComboBox* m_ipropr = nullptr;
    QComboBox* m_isitca = nullptr;

    QGroupBox* m_fraCompar = nullptr;
    QWidget* m_picNCOMPR = nullptr;
    QLineEdit* m_ncompr = nullptr;
    QComboBox* m_nbocacarrg = nullptr;
    QLineEdit* m_qcapcd = nullptr;
    QComboBox* m_ncombs = nullptr;
    QLineEdit* m_qrespraltra = nullptr;
    QLineEdit* m_qresprdistcrecpt = nullptr;

    ui::OwnerPanel* m_fraProp = nullptr;
    // QCOMPRT as the grid showed it when the tank was opened for a change.
    int m_oldCompartments = 0;
};

} // namespace fuel
