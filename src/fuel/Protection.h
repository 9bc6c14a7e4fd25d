#pragma once

#include "ui/FieldSet.h"
#include "ui/MaintenanceScreen.h"

#include <string_view>

namespace fuel {

// What tells the cathodic protection of the underground tanks from the protection against
// corrosion of the aboveground ones. Neither has a table of its own: both write the protection
// columns of the tank's row.
struct ProtectionFamily {
    QString itanqu;          // "S" or "A"
    QString listName;        // frmPostoProtcCatdcSubtr, frmPostoProtcCatdcAereo
    QString maintenanceName; // with "M"
    QString caption;         // window titles
    QString blockTitle;      // the frame of the fields
    QString tankHeading;     // the grid's first heading
    QString tankRequired;    // no tank chosen
    QString alreadyThere;    // an insert for a tank that has its protection
    std::string_view kinds;  // the code list of cmbIPROTC
};

const ProtectionFamily& undergroundProtection();
const ProtectionFamily& abovegroundProtection();

// The tanks whose protection was entered.
ui::ListDefinition protectionList(const ProtectionFamily& family);

// frmPostoProtcCatdcSubtrM, frmPostoProtcCatdcAereoM: the protection of one tank.
class ProtectionMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    ProtectionMaintenance(ui::ScreenHost& host, const ProtectionFamily& family,
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

private:
    bool protectedTank() const;
    bool otherKind() const;
    // "Sim" opens the protection's fields, "Não" (or no answer yet) empties and closes them.
    void followAnswer();
    void followKind();

    const ProtectionFamily& m_family;
    ui::FieldSet m_fields;
};

} // namespace fuel
