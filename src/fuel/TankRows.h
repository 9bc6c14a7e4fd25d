#pragma once

#include "store/RowWriter.h"

#include <QString>
#include <QVariant>

namespace store {
class Database;
}
namespace ui {
struct Session;
}

// The statements on tanks and compartments that the underground and the aboveground screens
// share; `itanqu` is "S" or "A" and keeps the two families apart.
namespace fuel {

// The key of a tank of the open register.
store::Row tankKey(const ui::Session& session, const QString& itanqu, const QVariant& ntanqu);

// A tank with its compartments, its owner and the pumps' links to it. Pumps stay, with or
// without links.
void deleteTank(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& ntanqu);

// A compartment with the pumps' links to it; the tank's declared number of compartments
// becomes the number that remains.
void deleteCompartment(store::Database& db, const ui::Session& session, const QString& itanqu,
                       const QVariant& ntanqu, const QVariant& ncompr);

// The number of compartments a tank has.
int countCompartments(store::Database& db, const ui::Session& session, const QString& itanqu,
                      const QVariant& ntanqu);

} // namespace fuel
