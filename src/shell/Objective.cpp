#include "shell/Objective.h"

#include "store/Database.h"
#include "store/SqlValues.h"

#include <QSqlQuery>
#include <array>

namespace shell {

namespace {
const std::array<QString, 5> kCodes = {QStringLiteral("C"), QStringLiteral("LF"),
                                       QStringLiteral("LP"), QStringLiteral("LI"),
                                       QStringLiteral("LP/LI")};
}

QString objectiveCode(int objective) {
    return objective >= 0 && objective < int(kCodes.size()) ? kCodes[std::size_t(objective)]
                                                            : QString();
}

std::optional<int> objectiveFromCode(const QString& code) {
    for (std::size_t i = 0; i < kCodes.size(); ++i) {
        if (kCodes[i] == code.trimmed())
            return int(i);
    }
    return std::nullopt;
}

std::optional<QString> storedObjectiveCode(store::Database& db) {
    QSqlQuery q = db.run(QStringLiteral("SELECT IMOVMN FROM TB_VORpMOVMN"));
    if (!q.next())
        return std::nullopt;
    return q.value(0).toString();
}

void gravaMovmn(store::Database& db, int objective, const QDateTime& now) {
    const QString code = objectiveCode(objective);
    store::Transaction transaction(db);
    QSqlQuery row = db.run(QStringLiteral("SELECT ADOCMNINCLR FROM TB_VORpMOVMN"));
    if (!row.next()) {
        db.run(QStringLiteral("INSERT INTO TB_VORpMOVMN (IMOVMN, ADOCMNINCLR) VALUES (?, ?)"),
               {code, store::dateTimeValue(now)});
    } else {
        const QVariant firstChosen = row.value(0);
        row.finish();
        db.run(QStringLiteral("UPDATE EMPRS SET CSITU = 1"));
        db.run(QStringLiteral("DELETE FROM TB_VORpMOVMN"));
        db.run(QStringLiteral(
                   "INSERT INTO TB_VORpMOVMN (IMOVMN, ADOCMNINCLR, ADOCMNALTRR) VALUES (?, ?, ?)"),
               {code, firstChosen, store::dateTimeValue(now)});
    }
    transaction.commit();
}

} // namespace shell
