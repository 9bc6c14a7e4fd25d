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
    // The key of the pump's owner row; with the information date for an insert.
    store::Row ownerKey(const QVariant& nbomba, bool withDate = false) const;
    bool onPump() const;
    bool ownerShown() const;
    ui::Check consistirBomba();
    ui::Check consistirLigacao();
    ui::Check sameFuel();
    void tankChosen();
    void loadCompartments();
    void setLinkListsEnabled(bool enabled);
    void gravarBomba(store::Database& db);
    void alterarBomba(store::Database& db);
    void gravarLigacao(store::Database& db);
    void alterarLigacao(store::Database& db);

    const PumpFamily& m_family;

    QGroupBox* m_fraBomba = nullptr;
    QWidget* m_picNBOMBA = nullptr;
    QLineEdit* m_nbomba = nullptr;
    QLineEdit* m_nident = nullptr;
    QLineEdit* m_ainstl = nullptr;
    QComboBox* m_nvalvlretnc = nullptr;
    QComboBox* m_nfiltro = nullptr;
    QComboBox* m_teste = nullptr;
    QLineEdit* m_atesteestnq = nullptr;
    QComboBox* m_ipropr = nullptr;
    ui::IntegrityReport m_report;

    QGroupBox* m_fraBombaCompar = nullptr;
    QWidget* m_picNTANQU = nullptr;
    QComboBox* m_ntanqu = nullptr;
    QWidget* m_picNCOMPR = nullptr;
    QComboBox* m_ncompr = nullptr;
    QComboBox* m_nmatrl = nullptr;
    QComboBox* m_ilinha = nullptr; // null for the aboveground links, which have no line type

    ui::OwnerPanel* m_fraProp = nullptr;
    // The mark: the pump already has a link, so a new one must hold the same fuel, and a new
    // pump's chain of links may be closed.
    bool m_hasLinks = false;
    // The compartment of a link as it was when the link was opened for a change.
    int m_oldCompartment = 0;
};

} // namespace fuel
