#pragma once

#include <QString>
#include <QVariant>

namespace store {
class Database;
}
namespace ui {
struct Session;
}

// The statements on pumps and their links to compartments that the underground and the
// aboveground screens share; `itanqu` is "S" or "A" and keeps the two families apart.
namespace fuel {

// A pump with its links and its owner.
void deletePump(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& nbomba);

// One link of a pump to a compartment.
void deleteLink(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& nbomba, const QVariant& ntanqu, const QVariant& ncompr);

// Whether a link of the pump to the compartment exists.
bool linkExists(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& nbomba, const QVariant& ntanqu, const QVariant& ncompr);

// The fuel (NCOMBS) of the compartment the pump's first link draws from; invalid when the pump
// has no link or that compartment is gone. A link being changed is left out (`exceptTank`,
// `exceptCompartment`), so that it is held to the pump's other links.
QVariant firstLinkFuel(store::Database& db, const ui::Session& session, const QString& itanqu,
                       const QVariant& nbomba, const QVariant& exceptTank = {},
                       const QVariant& exceptCompartment = {});

// Whether any tank of the family has a compartment that a pump could draw from.
bool anyCompartment(store::Database& db, const ui::Session& session, const QString& itanqu);

// The fuel that a compartment stores; invalid when there is no such compartment.
QVariant compartmentFuel(store::Database& db, const ui::Session& session, const QString& itanqu,
                         const QVariant& ntanqu, const QVariant& ncompr);

// The number at the head of a list or grid text such as "7 - TANQUE SETE": the digits before
// the first "-" or blank.
int leadingNumber(const QString& text);

} // namespace fuel
