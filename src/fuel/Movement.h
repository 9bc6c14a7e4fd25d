#pragma once

#include "ui/FieldSet.h"
#include "ui/MaintenanceScreen.h"

namespace store {
class Database;
}

namespace fuel {

// frmPostoMovmn: the mean monthly movement per product, with the total row of each group of
// products (gasolines, diesels, alcohols) that the program keeps itself.
ui::ListDefinition movementList();

// The total row of the group of `ncombs` computed again from the group's rows: gone when the
// group has none. Products outside the three groups have no total.
void recomputeGroupTotal(store::Database& db, const ui::Session& session, int ncombs);

// Whether the code is one of the three total rows.
bool isGroupTotal(int ncombs);

// frmPostoMovmnM: the movement of one product.
class MovementMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    explicit MovementMaintenance(ui::ScreenHost& host, QWidget* parent = nullptr);

protected:
    void prepare() override;
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    QString newKey() const override;
    QList<QWidget*> snapshotFields() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;

private:
    bool otherProduct() const;
    void productChosen();

    ui::FieldSet m_fields;
    store::Row m_oldKey;
};

} // namespace fuel
