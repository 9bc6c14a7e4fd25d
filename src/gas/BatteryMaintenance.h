#pragma once

#include "gas/GasMaintenance.h"

namespace gas {

// frmPostoGasBatriM: one storage battery of compressed natural gas, with its owner.
class BatteryMaintenance : public GasMaintenance {
    Q_OBJECT

public:
    explicit BatteryMaintenance(ui::ScreenHost& host, QWidget* parent = nullptr);

protected:
    void prepare() override {}
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    ui::Check validate() override { return validateEquipment(); }
    void write(store::Database& db) override { writeEquipment(db); }
    QString newKey() const override;
};

} // namespace gas
