#include "fuel/TankRows.h"

#include "store/Database.h"
#include "ui/Session.h"

namespace fuel {

store::Row tankKey(const ui::Session& session, const QString& itanqu, const QVariant& ntanqu) {
    store::Row key = session.keyRow();
    key.insert(QStringLiteral("ITANQU"), itanqu);
    key.insert(QStringLiteral("NTANQU"), ntanqu);
    return key;
}

void deleteTank(store::Database& db, const ui::Session& session, const QString& itanqu,
                const QVariant& ntanqu) {
    const store::Row key = tankKey(session, itanqu, ntanqu);
    store::deleteRows(db, "TB_POSTOBOMBATANQU", key);
    store::deleteRows(db, "TB_POSTOTANQUCOMPR", key);
    store::deleteRows(db, "TB_POSTOTANQUPROPR", key);
    store::deleteRow(db, "TB_POSTOTANQU", key);
}

void deleteCompartment(store::Database& db, const ui::Session& session, const QString& itanqu,
                       const QVariant& ntanqu, const QVariant& ncompr) {
    const store::Row tank = tankKey(session, itanqu, ntanqu);
    store::Row compartment = tank;
    compartment.insert(QStringLiteral("NCOMPR"), ncompr);
    store::deleteRows(db, "TB_POSTOBOMBATANQU", compartment);
    store::deleteRow(db, "TB_POSTOTANQUCOMPR", compartment);
    store::updateRow(db, "TB_POSTOTANQU", tank,
                     {{QStringLiteral("QCOMPRT"), countCompartments(db, session, itanqu, ntanqu)}});
}

int countCompartments(store::Database& db, const ui::Session& session, const QString& itanqu,
                      const QVariant& ntanqu) {
    return db
        .scalar(QStringLiteral("Select Count(NCOMPR) as CountNCOMPR From TB_POSTOTANQUCOMPR"
                               " Where NMUNCP = ? And NSEQNC = ? And ITANQU = ? And NTANQU = ?"),
                {session.nmuncp, session.nseqnc, itanqu, ntanqu})
        .toInt();
}

} // namespace fuel
