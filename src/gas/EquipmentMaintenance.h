#pragma once

#include "gas/GasMaintenance.h"

class QGroupBox;

namespace gas {

struct EquipmentFamily;

// frmPostoGasBombaM, frmPostoGasComprM: one dispenser or compressor with its owner, or one of
// its links to a storage battery. A new one is saved with its first link; the chain of further
// links that follows is closed by the user.
class EquipmentMaintenance : public GasMaintenance {
    Q_OBJECT

public:
    EquipmentMaintenance(ui::ScreenHost& host, const EquipmentFamily& family,
                         QWidget* parent = nullptr);

protected:
    void prepare() override;
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    ui::Check validate() override;
    void write(store::Database& db) override;
    QString newKey() const override;
    int childrenDue() const override;
    bool countedChain() const override { return false; }
    bool chainMayClose(const ui::ListSelection& rows) const override;

private:
    bool onEquipment() const;
    ui::Check consistirLigacao() const;
    // The register's key with the equipment's number and the battery's.
    store::Row linkKey(const QVariant& nbatri) const;
    void insertLink(store::Database& db) const;

    const EquipmentFamily& m_family;
    QGroupBox* m_fraBateria = nullptr;
    QWidget* m_picNBATRI = nullptr;
    // The battery of a link opened for a change: the row that the change rewrites.
    QVariant m_oldBattery;
};

} // namespace gas
