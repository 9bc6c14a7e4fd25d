#pragma once

#include "store/RowWriter.h"
#include "ui/AddressPanel.h"

namespace establishment {

// The columns of a stored address block whose municipality columns are named for the table
// (NMUNCPRESPN and DMUNCPRESPN, NMUNCPDISTRFORNC and DMUNCPDISTRFORNC).
struct AddressColumns {
    QString municipalityNumber;
    QString municipalityName;
};

// The address of a stored row as the panel shows it: the CEP in eight digits, the municipality
// by its number.
ui::AddressValues addressOf(const store::Row& row, const AddressColumns& columns);
// The address typed into the panel as the row's columns; empty optional values are Null.
// `municipalityName` is what the row keeps in its name column.
store::Row addressRow(const ui::AddressValues& values, const AddressColumns& columns,
                      const QVariant& municipalityName);

} // namespace establishment
