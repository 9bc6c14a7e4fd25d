#pragma once

#include "ui/ListScreen.h"

namespace fuel {

// frmTanqu: the underground tanks of the register and the compartments of the selected one.
ui::ListDefinition undergroundTankList();

// The labels that the tank grids show for stored codes.
const QHash<QString, QString>& situacaoLabels();     // ISITCA
const QHash<QString, QString>& proprietarioLabels(); // IPROPR

} // namespace fuel
