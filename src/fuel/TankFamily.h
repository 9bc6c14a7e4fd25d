#pragma once

#include "ui/ListScreen.h"
#include "ui/OwnerPanel.h"

#include <QString>
#include <vector>

namespace fuel {

// What tells the underground tanks (frmTanqu, frmTanquM) from the aboveground ones
// (frmTanquAereo, frmTanquAereoM). Both keep their rows in the same tables, told apart by
// ITANQU; they differ in words, in a few messages and in the fields that only an aboveground
// tank has. One list and one maintenance screen read it.
struct TankFamily {
    QString itanqu; // "S" underground, "A" aboveground

    QString listName;
    QString maintenanceName;
    QString listCaption;
    QString maintenanceCaption;
    QString tankWord;   // the tank block, the option of the list, the report's band
    QString tanksTitle; // frame of the tank grid

    // The tank grid: its columns and its rows (bound: NMUNCP, NSEQNC, ITANQU).
    std::vector<ui::GridColumn> tankColumns;
    QString tankQuery;
    // The grid column of the declared number of compartments.
    int compartmentsColumn = 0;

    QString materialLabel;

    // Words of the compartment block and its grid.
    QString loadingMouthLabel;
    QString ventTitle;
    QString ventHeightLabel;
    QString ventDistanceLabel;

    // gOperacaoItem of the tank level.
    QString incluirTanque;
    QString alterarTanque;

    // Messages that differ between the two families.
    QString noTankYet;
    QString compartmentsComplete;
    QString numberRequired;
    QString numberInvalid;
    QString numberTaken;
    QString countLowered;
    QString deleteTankQuestion;
    QString deleteCompartmentQuestion;
    ui::OwnerPanel::Texts ownerTexts;

    // The fields of an aboveground tank: cmbIPOSCA; the fixed material list "Aço" / "Outros"
    // with txtDMATRLOUTRO in place of the dictionary's list; cmbNBASE.
    bool hasPosition = false;
    bool fixedMaterials = false;
    bool hasBase = false;
};

const TankFamily& undergroundTanks();
const TankFamily& abovegroundTanks();

// The codes of the aboveground tank's fixed material list.
inline constexpr int kMaterialAco = 10;
inline constexpr int kMaterialOutros = 9;

} // namespace fuel
