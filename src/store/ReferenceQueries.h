#pragma once

#include "rules/Address.h"

#include <QString>
#include <optional>
#include <vector>

namespace store {

class Database;

// One row of MUNCP as the address block shows it.
struct Municipality {
    int number = 0;       // NMUNCP
    QString name;         // DMUNCP
    QString abbreviation; // DRESMDMUNCP
};

// The municipalities of the state served (NMUNCP 100 and above), in alphabetical order.
std::vector<Municipality> municipalities(Database& db);
// The other states of the federation (NMUNCP below 99), in alphabetical order.
std::vector<Municipality> states(Database& db);
// The row of one number, if there is one.
std::optional<Municipality> municipality(Database& db, int number);

// The regional office (NREGNL) of the first CEP row of municipality `nmuncp` whose pattern
// CCEP is one of the three given, or nothing when there is none.
std::optional<int> cepRegional(Database& db, int nmuncp, const QString& fourAndStar,
                               const QString& threeAndStars, const QString& five);

// consscep: whether the CEP belongs to the municipality, and the regional office that serves
// it. A database failure is thrown as a store::Failure, for the caller's error routine.
rules::CepCheck consscep(Database& db, const QString& cep, int nmuncp);

} // namespace store
