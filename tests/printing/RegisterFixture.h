#pragma once

#include "store/RegisterKey.h"

#include <QString>
#include <QVariantMap>

namespace store {
class Database;
}

namespace testsupport {

// Inserts one row with bound values; the column names are checked against the catalogue.
void insertRow(store::Database& db, const char* table, const QVariantMap& values);

// The establishment alone: EMPRS and a TB_POSTO row that the general characteristics screen
// has not completed yet.
void insertEstablishment(store::Database& db, const store::RegisterKey& key,
                         const QVariant& surveyDate = QStringLiteral("2024-03-15"));

// A register with rows in every table that a report reads; `distributors` rows of
// TB_POSTODISTRFORNC make its report as long as a test needs.
void fillRegister(store::Database& db, const store::RegisterKey& key, int distributors = 2);

} // namespace testsupport
