#pragma once

#include "store/RowWriter.h"
#include "ui/FieldSet.h"
#include "ui/MaintenanceScreen.h"

#include <string_view>

namespace fuel {

// What tells the leaks of the underground system from those of the aboveground one: their
// words, messages, and the small differences of their checks.
struct LeakFamily {
    QString itanqu;          // "S" or "A"
    QString listName;        // frmPostoHistrVazmnSubtr, frmPostoHistrVazmnAereo
    QString maintenanceName; // with "M"
    QString caption;
    std::string_view locations; // the code list of cmbILOCAL
    QString tankLabel;          // cmbNTANQU and its grid column
    QString pumpLabel;          // cmbNBOMBA and its grid column
    QString tankRequired;
    QString pumpRequired;
    QString tankFuelRequired; // a tank chosen and no product; empty where the check is absent
    QString tankTaken;        // the duplicate of a leak at a tank
    QString ventTaken;        // at a vent or an extraction valve
    QString lineTaken;        // at a line
    QString tankTooOld;       // the leak before the tank's installation
    QString pumpTooOld;       // before the pump's installation
    bool pumpTakenByLocation = false; // the pump's duplicate test includes the location
    bool tankDateByRegister = false;  // the tank's installation is read within the register
    bool pumpDateByRegister = false;  // the pump's installation is read within the register
    bool pumpFuelsFiltered = false;   // a pump's products leave out the totals and the gas
};

const LeakFamily& undergroundLeaks();
const LeakFamily& abovegroundLeaks();

ui::ListDefinition leakList(const LeakFamily& family);

// The key of a leak from its row in the list, as the list shows it.
store::Row leakKey(const ui::Session& session, const LeakFamily& family, const QStringList& row);

// frmPostoHistrVazmnSubtrM, frmPostoHistrVazmnAereoM: one leak.
class LeakMaintenance : public ui::MaintenanceScreen {
    Q_OBJECT

public:
    LeakMaintenance(ui::ScreenHost& host, const LeakFamily& family, QWidget* parent = nullptr);

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
    QString location() const;
    int number(const QString& name) const;
    QComboBox* combo(const char* name) const;
    // The location decides which fields are open and where their lists come from.
    void locationChosen();
    void tankChosen();
    void compartmentChosen();
    void pumpChosen();
    void loadTanks(bool unidentified);
    void loadPumps(bool unidentified);
    void loadProducts(const QString& sql, const QVariantList& values = {});
    void loadPumpProducts();
    // Makes sure a stored code can be shown in its list, even if the list no longer offers it.
    void showStored(const char* name, const QVariant& code, const QString& caption);
    ui::Check checkLocation();
    ui::Check checkInstallation();
    bool taken(store::Row where) const;

    const LeakFamily& m_family;
    ui::FieldSet m_fields;
    store::Row m_oldKey;
};

} // namespace fuel
