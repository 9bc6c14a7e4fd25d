#include "support/Rows.h"

#include "store/Database.h"
#include "store/RowWriter.h"
#include "store/TableCatalogue.h"

#include <QSqlQuery>
#include <QStringList>

namespace testsupport {

QStringList rowsOf(store::Database& db, const char* table, const QString& where,
                   const QVariantList& values) {
    const store::Table& t = store::table(table);
    QStringList columns;
    for (const store::Column& c : t.columns)
        columns << QStringLiteral("\"%1\"").arg(c.qname());
    QSqlQuery query = db.run(QStringLiteral("SELECT %1 FROM \"%2\" WHERE %3")
                                 .arg(columns.join(QLatin1Char(',')), t.qname(), where),
                             values);
    QStringList rows;
    while (query.next()) {
        QStringList cells;
        for (qsizetype i = 0; i < qsizetype(t.columns.size()); ++i) {
            const QVariant value = query.value(int(i));
            cells << t.columns[std::size_t(i)].qname() + QLatin1Char('=') +
                         (value.isNull() ? QStringLiteral("Null") : value.toString());
        }
        rows << cells.join(QStringLiteral("; "));
    }
    return rows;
}

} // namespace testsupport
