#pragma once

#include "ui/FieldSet.h"
#include "ui/ListScreen.h"
#include "ui/MaintenanceScreen.h"

class QLineEdit;

namespace environment {

// frmPostoConsmAgua: the register's sources of water and, last, their total, which the program
// keeps: it can be neither opened nor changed nor deleted, whichever way it is chosen.
ui::ListDefinition waterList();

// frmPostoConsmAguaM: one source of water, with the total rebuilt in the same transaction.
class WaterMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    explicit WaterMaintenance(ui::ScreenHost& host, QWidget* parent = nullptr);

protected:
    void prepare() override {}
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    QList<QWidget*> snapshotFields() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;
    QString newKey() const override;

private:
    bool inserting() const { return operation().insert; }
    // A source chosen on an insert takes the next number of its kind.
    void sourceChosen();
    // On leaving a quantity that holds one, the total shows the sum of both.
    ui::Check quantityLeft(const QString& name);
    ui::Check oneQuantity() const;

    ui::FieldSet m_fields;
    QLineEdit* m_total = nullptr;
    store::Row m_key; // the source's key as stored, on Alterar
};

} // namespace environment
