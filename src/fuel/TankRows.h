#pragma once

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

// The owner row of a tank goes; GravarProprietario writes it again when the owner is "Outros".
void deleteTankOwner(store::Database& db, const ui::Session& session, const QString& itanqu,
                     const QVariant& ntanqu);

} // namespace fuel
