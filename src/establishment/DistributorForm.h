#pragma once

#include "ui/MaintenanceScreen.h"

class QLineEdit;
class QRadioButton;

namespace ui {
class AddressPanel;
}

namespace establishment {

// frmPostoDistr, "Cadastro das Distribuidora/Fornecedoras:": one firm of the register, added
// or changed. At most one firm of a register is its distributor.
class DistributorForm : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    explicit DistributorForm(ui::ScreenHost& host, QWidget* parent = nullptr);

protected:
    void prepare() override {}
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    QString newKey() const override { return m_nident; }
    QString savedMessage() const override;
    QList<QWidget*> snapshotFields() const override;
    ui::Check validate() override;
    void write(store::Database& db) override;

private:
    // Whether another firm of the register is its distributor already.
    bool otherDistributor() const;
    void distributorChosen();
    QString kind() const;

    ui::AddressPanel* m_address = nullptr;
    QRadioButton* m_options[2] = {nullptr, nullptr};
    QString m_nident; // the firm being changed, or the one just added
};

} // namespace establishment
