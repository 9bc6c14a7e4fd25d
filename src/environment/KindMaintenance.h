#pragma once

#include "ui/FieldSet.h"
#include "ui/MaintenanceScreen.h"

#include <QVariant>

class QComboBox;
class QGroupBox;

namespace environment {

struct KindFamily;

// The maintenance screen of a kind pair: one row of the register for one kind of effluent,
// waste, emission source or noisy equipment.
class KindMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    KindMaintenance(ui::ScreenHost& host, const KindFamily& family, QWidget* parent = nullptr);

protected:
    void prepare() override;
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    QList<QWidget*> snapshotFields() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;
    QString newKey() const override;

private:
    bool inserting() const { return operation().insert; }
    QVariant kind() const;
    QString kindColumn() const;
    // The description of kind "Outros" opens only for that kind.
    void kindChosen();
    ui::Check kindTaken();

    const KindFamily& m_family;
    ui::FieldSet m_fields;
    QGroupBox* m_frame = nullptr;
    QComboBox* m_kind = nullptr;
    QWidget* m_other = nullptr;
};

} // namespace environment
