#pragma once

#include "ui/ListScreen.h"

namespace fuel {

// What tells the underground pumps from the aboveground ones ("Unidades de Abastecimento"):
// the rows they see, their words and messages, and the line type that only an underground
// link has. One list and one maintenance screen serve both.
struct PumpFamily {
    QString itanqu;             // "S" or "A", in every statement
    QString listName;           // frmBomba, frmBombaAereo
    QString maintenanceName;    // frmBombaM, frmBombaAereoM
    QString listCaption;        // window titles
    QString maintenanceCaption; //
    QString pump;               // the equipment's word in the operations: "Bomba"
    QString pumpsTitle;         // the frame of the main grid
    QString numberLabel;        // txtNBOMBA
    QString identLabel;         // txtNIDENT
    int identLength = 12;       // txtNIDENT
    QString tankLabel;          // cmbNTANQU and the link grid's first heading
    bool lineType = true;       // cmbILINHA and ILINHA
    QString noPump;             // cmdIncluir on level 1 with no pump
    QString pumpDeleteQuestion; //
    QString numberRequired;     // the key's messages
    QString numberInvalid;      //
    QString numberTaken;        //
    QString fuelRule;           // a link of another fuel
    QString noCompartmentsList; // the link's tank has no compartments: on the list
    QString noCompartments;     // and on the maintenance screen
    QString cepRequired;        // the owner's CEP

    QString insertPump() const { return QStringLiteral("Incluir ") + pump; }
    QString alterPump() const { return QStringLiteral("Alterar ") + pump; }
    QString insertLink() const { return insertPump() + QStringLiteral("/Compartimento"); }
    QString alterLink() const { return alterPump() + QStringLiteral("/Compartimento"); }
};

const PumpFamily& undergroundPumps();
const PumpFamily& abovegroundPumps();

// frmBomba, frmBombaAereo: the pumps of the register and the links of the selected one.
ui::ListDefinition pumpList(const PumpFamily& family);

} // namespace fuel
