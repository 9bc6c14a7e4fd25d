#include "environment/WaterTotal.h"

#include "store/Database.h"

#include <QSqlQuery>

namespace environment {

namespace {

const char* const kTable = "TB_POSTOBALNCHIDRC";

} // namespace

void rebuildWaterTotal(store::Database& db, const store::Row& registerKey,
                       const QVariant& informationDate) {
    store::Row total = registerKey;
    total.insert(QStringLiteral("IFONTEABAST"), kWaterTotal);
    store::deleteRows(db, kTable, total);
    QSqlQuery sums = db.run(QStringLiteral("Select Count(*), Sum(QCONSMSANTR), Sum(QCONSMCOMRC)"
                                           " From TB_POSTOBALNCHIDRC Where NMUNCP = ?"
                                           " And NSEQNC = ? And IFONTEABAST <> ?"),
                            {registerKey.value(QStringLiteral("NMUNCP")),
                             registerKey.value(QStringLiteral("NSEQNC")), kWaterTotal});
    if (!sums.next() || sums.value(0).toInt() == 0)
        return;
    total.insert(QStringLiteral("AINFRM"), informationDate);
    total.insert(QStringLiteral("NFONTEABASTIDENT"), 1);
    total.insert(QStringLiteral("DFONTEABAST"), QStringLiteral(" "));
    total.insert(QStringLiteral("QCONSMSANTR"), sums.value(1));
    total.insert(QStringLiteral("QCONSMCOMRC"), sums.value(2));
    store::insertRow(db, kTable, total);
}

} // namespace environment
