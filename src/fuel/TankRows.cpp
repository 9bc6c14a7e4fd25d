#include "fuel/TankRows.h"

#include "store/Database.h"
#include "ui/Session.h"

namespace fuel {

namespace {

const QString kTankCondition =
    QStringLiteral(" Where NMUNCP = ? And NSEQNC = ? And ITANQU = ? And NTANQU = ?");

QVariantList tankKey(const ui::Session& session, const QString& itanqu, const QVariant& ntanqu) {
    return {session.nmuncp, session.nseqnc, itanqu, ntanqu};
}

} // namespace

void deleteTank(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& ntanqu) {
    const QVariantList key = tankKey(session, itanqu, ntanqu);
    db.run(QStringLiteral("Delete From TB_POSTOBOMBATANQU") + kTankCondition, key);
    db.run(QStringLiteral("Delete From TB_POSTOTANQUCOMPR") + kTankCondition, key);
    db.run(QStringLiteral("Delete From TB_POSTOTANQUPROPR") + kTankCondition, key);
    db.run(QStringLiteral("Delete From TB_POSTOTANQU") + kTankCondition, key);
}

void deleteCompartment(store::Database& db, const ui::Session& session, const QString& itanqu,
                       const QVariant& ntanqu, const QVariant& ncompr) {
    QVariantList key = tankKey(session, itanqu, ntanqu);
    key << ncompr;
    db.run(QStringLiteral("Delete From TB_POSTOBOMBATANQU") + kTankCondition +
               QStringLiteral(" And NCOMPR = ?"),
           key);
    db.run(QStringLiteral("Delete From TB_POSTOTANQUCOMPR") + kTankCondition +
               QStringLiteral(" And NCOMPR = ?"),
           key);
    const int remaining = countCompartments(db, session, itanqu, ntanqu);
    db.run(QStringLiteral("Update TB_POSTOTANQU Set QCOMPRT = ?") + kTankCondition,
           QVariantList{remaining} + tankKey(session, itanqu, ntanqu));
}

int countCompartments(store::Database& db, const ui::Session& session, const QString& itanqu,
                      const QVariant& ntanqu) {
    return db
        .scalar(QStringLiteral("Select Count(NCOMPR) as CountNCOMPR From TB_POSTOTANQUCOMPR") +
                    kTankCondition,
                tankKey(session, itanqu, ntanqu))
        .toInt();
}

void deleteTankOwner(store::Database& db, const ui::Session& session, const QString& itanqu,
                     const QVariant& ntanqu) {
    db.run(QStringLiteral("Delete From TB_POSTOTANQUPROPR") + kTankCondition,
           tankKey(session, itanqu, ntanqu));
}

} // namespace fuel
