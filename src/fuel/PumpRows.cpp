#include "fuel/PumpRows.h"

#include "store/Database.h"
#include "ui/Session.h"

#include <QSqlQuery>

namespace fuel {

namespace {

const QString kPumpCondition =
    QStringLiteral(" Where NMUNCP = ? And NSEQNC = ? And ITANQU = ? And NBOMBA = ?");
const QString kLinkCondition = kPumpCondition + QStringLiteral(" And NTANQU = ? And NCOMPR = ?");

QVariantList pumpKey(const ui::Session& session, const QString& itanqu, const QVariant& nbomba) {
    return {session.nmuncp, session.nseqnc, itanqu, nbomba};
}

} // namespace

void deletePump(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& nbomba) {
    const QVariantList key = pumpKey(session, itanqu, nbomba);
    db.run(QStringLiteral("Delete From TB_POSTOBOMBATANQU") + kPumpCondition, key);
    db.run(QStringLiteral("Delete From TB_POSTOBOMBAPROPR") + kPumpCondition, key);
    db.run(QStringLiteral("Delete From TB_POSTOBOMBA") + kPumpCondition, key);
}

void deleteLink(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& nbomba, const QVariant& ntanqu, const QVariant& ncompr) {
    db.run(QStringLiteral("Delete From TB_POSTOBOMBATANQU") + kLinkCondition,
           pumpKey(session, itanqu, nbomba) << ntanqu << ncompr);
}

bool linkExists(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& nbomba, const QVariant& ntanqu, const QVariant& ncompr) {
    return db
        .scalar(QStringLiteral("Select * From TB_POSTOBOMBATANQU") + kLinkCondition,
                pumpKey(session, itanqu, nbomba) << ntanqu << ncompr)
        .isValid();
}

QVariant firstLinkFuel(store::Database& db, const ui::Session& session, const QString& itanqu,
                       const QVariant& nbomba, const QVariant& exceptTank,
                       const QVariant& exceptCompartment) {
    QSqlQuery links =
        db.run(QStringLiteral("Select NTANQU, NCOMPR From TB_POSTOBOMBATANQU") + kPumpCondition +
                   QStringLiteral(" And Not (NTANQU Is ? And NCOMPR Is ?)"
                                  " Order By NTANQU, NCOMPR"),
               pumpKey(session, itanqu, nbomba) << exceptTank << exceptCompartment);
    if (!links.next())
        return {};
    return compartmentFuel(db, session, itanqu, links.value(0), links.value(1));
}

bool anyCompartment(store::Database& db, const ui::Session& session, const QString& itanqu) {
    return db
        .scalar(QStringLiteral("Select 1 From TB_POSTOTANQUCOMPR Where NMUNCP = ? And NSEQNC = ?"
                               " And ITANQU = ? Limit 1"),
                {session.nmuncp, session.nseqnc, itanqu})
        .isValid();
}

QVariant compartmentFuel(store::Database& db, const ui::Session& session, const QString& itanqu,
                         const QVariant& ntanqu, const QVariant& ncompr) {
    return db.scalar(QStringLiteral("Select NCOMBS From TB_POSTOTANQUCOMPR Where NMUNCP = ?"
                                    " And NSEQNC = ? And ITANQU = ? And NTANQU = ? And NCOMPR = ?"),
                     {session.nmuncp, session.nseqnc, itanqu, ntanqu, ncompr});
}

int leadingNumber(const QString& text) {
    const QString trimmed = text.trimmed();
    qsizetype end = 0;
    while (end < trimmed.size() && trimmed.at(end) != QLatin1Char('-') &&
           trimmed.at(end) != QLatin1Char(' '))
        ++end;
    return trimmed.left(end).trimmed().toInt();
}

} // namespace fuel
