#pragma once

#include "printing/Layout.h"
#include "store/RegisterKey.h"

#include <QHash>
#include <QString>
#include <QVariant>

namespace store {
class Database;
}

namespace printing {

// A stored value in the words of the screens: codes as labels, dates dd/MM/yyyy, decimals with
// a comma. `row` holds the other columns of the same row (area codes, keys of a lookup).
QString formatValue(store::Database& db, const Format& format, const QVariant& value,
                    const QVariantHash& row);

// The body of one report for one register, as rich text for QTextDocument.
QString reportHtml(store::Database& db, const Layout& layout, const store::RegisterKey& key);

} // namespace printing
