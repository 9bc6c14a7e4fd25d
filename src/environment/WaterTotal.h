#pragma once

#include "store/RowWriter.h"

#include <QString>
#include <QVariant>

namespace store {
class Database;
}

// The total row of a register's water balance: one row of source "5T", numbered 1, with a blank
// description and the sums of the sources' consumptions, kept by the program and never typed.
// Rebuilt inside the transaction of every change of a source, so that the sources and their
// total change together.
namespace environment {

inline const QString kWaterTotal = QStringLiteral("5T");

// Deletes the register's total row and, while the register has a source, writes it again with
// the sums; a sum over nothing but empty quantities is Null.
void rebuildWaterTotal(store::Database& db, const store::Row& registerKey,
                       const QVariant& informationDate);

} // namespace environment
