#pragma once

#include "gas/GasMaintenance.h"
#include "ui/ListScreen.h"

namespace gas {

// What tells the gas dispensers (frmPostoGasBomba) from the compressors (frmPostoGasCompr).
// Both are numbered equipment with an owner and links to the storage batteries, in tables of
// the same shape; they differ in names, words and messages, and a dispenser counts its nozzles.
// One list and one maintenance screen read it.
struct EquipmentFamily {
    EquipmentTables tables;     // the equipment and its owner
    std::string_view linkTable; // TB_POSTOGASBOMBABATRI, TB_POSTOGASCOMPRBATRI
    QString listName;           // frmPostoGasBomba, frmPostoGasCompr
    QString maintenanceName;    // frmPostoGasBombaM, frmPostoGasComprM
    QString word;               // the equipment in the operations: "Bomba", "Compressor"
    QString listTitle;          // the frame of the equipment grid
    QString grid;               // the equipment grid
    QString linkGrid;           // the grid of the selected equipment's links
    bool nozzles = false;       // txtNBICOS, NBICO
    QString noEquipment;        // cmdIncluir on the links with no equipment
    QString deleteQuestion;     // the equipment's cascade
    QString situationRequired;  // cmbISITCA left empty

    QString insertEquipment() const { return QStringLiteral("Incluir ") + word; }
    QString alterEquipment() const { return QStringLiteral("Alterar ") + word; }
};

// "Incluir Ligação" and "Alterar Ligação": a link of either family to a battery.
inline const QString kIncluirLigacao = QStringLiteral("Incluir Ligação");
inline const QString kAlterarLigacao = QStringLiteral("Alterar Ligação");

const EquipmentFamily& dispensers();
const EquipmentFamily& compressors();

// The list of the family's equipment and the links of the selected one.
ui::ListDefinition equipmentList(const EquipmentFamily& family);

} // namespace gas
