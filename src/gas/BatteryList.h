#pragma once

#include "ui/ListScreen.h"

namespace gas {

// frmPostoGasBatri: the storage batteries of the register.
ui::ListDefinition batteryList();

// A battery and everything that hangs on it: the links of the compressors and of the
// dispensers to it and its owner row, children first.
void deleteBattery(store::Database& db, const ui::Session& session, const QVariant& nbatri);

} // namespace gas
