#pragma once

#include "store/RowWriter.h"
#include "ui/FieldSet.h"
#include "ui/MaintenanceScreen.h"

class QLineEdit;

namespace fuel {

// What tells the monitoring of the underground installation from that of the aboveground one.
struct MonitoringFamily {
    QString itanqu;          // "S" or "A"
    QString listName;        // frmPostoMontrAmbnt, frmPostoMontrAmbntAereo
    QString maintenanceName; // with "M"
    QString title;
    QString insertAction; // gOperacaoItem
    QString alterAction;
};

const MonitoringFamily& undergroundMonitoring();
const MonitoringFamily& abovegroundMonitoring();

ui::ListDefinition monitoringList(const MonitoringFamily& family);

// frmPostoMontrAmbntM, frmPostoMontrAmbntAereoM: one monitoring system, attached to a tank, a
// pump, the establishment as a whole, or described as "Outros".
class MonitoringMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    MonitoringMaintenance(ui::ScreenHost& host, const MonitoringFamily& family,
                          QWidget* parent = nullptr);

protected:
    void prepare() override;
    void copyFromList(const ui::ListSelection& rows) override;
    QWidget* arrangePanels() override;
    QString newKey() const override;
    QList<QWidget*> snapshotFields() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool inserting() const;
    // IEQUPM as the fields tell it: "O" with the description open, "B" with a pump chosen, "T"
    // with a tank chosen, "P" otherwise.
    QString equipmentKind() const;
    QVariant equipmentNumber() const;
    QString kindOfSystem() const;
    void systemChosen();
    // neq: the numbers of the equipment of that kind that bear any system, each closed by "#",
    // the list by "@".
    void fillEquipmentList(const QString& kind);
    bool rowExists(const QVariant& nmontr, const QString& kind, const QVariant& nequpm) const;
    // A refusal after which cmdOk and cmdCancelar are off and cmdFechar on.
    ui::Check dropEdit(QWidget* field, const QString& message, ui::Icon icon = ui::Icon::Critical);

    const MonitoringFamily& m_family;
    ui::FieldSet m_fields;
    QLineEdit* m_dverif = nullptr;
    QLineEdit* m_neq = nullptr;
    store::Row m_oldKey;
};

} // namespace fuel
