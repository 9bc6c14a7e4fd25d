#pragma once

#include "ui/FieldSet.h"
#include "ui/ListScreen.h"

#include <QHash>
#include <QString>
#include <string_view>
#include <vector>

namespace ui {
class MaintenanceScreen;
}

namespace environment {

// A field of a kind pair beyond the kind itself, with the rule it follows on leaving.
struct KindField {
    enum class Rule {
        None,
        Quantity, // a decimal of two places, shown "0,00" on leaving; zero is refused
        Count,    // a whole number above zero; leading zeros go
        Hour,     // a time of day, "hh:mm"
    };
    ui::Field field;
    Rule rule = Rule::None;
    // A stored value that the field's list does not offer is shown as it stands and kept.
    bool keepsUnlisted = false;
};

// What tells one pair of the environmental screens from another where the register keeps one
// row per kind of thing (effluent, waste, emission source, noisy equipment): the kind is the
// row's key, chosen once and locked on Alterar, refused when the register has it already, and
// kind "O" ("Outros") may carry a description of its own. One list and one maintenance screen
// read it.
struct KindFamily {
    QString listName;
    QString maintenanceName;
    QString listCaption;
    QString maintenanceCaption;
    QString frameTitle; // frame of the list's grid and of the maintenance screen's fields
    QString gridName;

    std::string_view table;
    std::string_view kindColumn;
    std::string_view kindList; // code list of the kinds
    QString kindField;         // objectName of the kind's combo
    QString kindLabel;
    QString kindRequired;
    QString kindTaken; // the register has a row of that kind already

    // The description of kind "O"; no field name for a family without one.
    QString otherField;
    std::string_view otherColumn;
    QString otherLabel;
    int otherLength = 0;
    QString otherRequired;
    // Whether the description takes part in the change check that switches cmdOk on.
    bool otherInSnapshot = true;

    // The further fields, in the order of the screen and of the checks.
    std::vector<KindField> fields;

    // The grid: the first column is the kind's code, the query is bound to NMUNCP and NSEQNC.
    std::vector<ui::GridColumn> columns;
    QString query;

    QString insertOperation;
    QString alterOperation;

    bool hasOther() const { return !otherField.isEmpty(); }
};

const KindFamily& effluents();
const KindFamily& waste();
const KindFamily& airEmissions();
const KindFamily& noise();

// The list screen of a family.
ui::ListDefinition kindList(const KindFamily& family);

// The code of kind "Outros", which alone carries a description.
inline const QString kOtherKind = QStringLiteral("O");

} // namespace environment
