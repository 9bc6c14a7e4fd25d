#pragma once

#include "ui/ListScreen.h"

namespace fuel {

struct TankFamily;

// A family's tanks of the register and the compartments of the selected one.
ui::ListDefinition tankList(const TankFamily& family);

// frmTanqu and frmTanquAereo.
ui::ListDefinition undergroundTankList();
ui::ListDefinition abovegroundTankList();

} // namespace fuel
