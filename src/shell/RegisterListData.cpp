#include "shell/RegisterListData.h"

#include "rules/Formats.h"

#include "store/Database.h"
#include "store/SqlValues.h"
#include "store/TableCatalogue.h"

#include <QSqlQuery>

namespace shell {

std::vector<RegisterRow> listRegisters(store::Database& db, ListOrder order) {
    // The sort column is one of two constants, never a value.
    const QString sql =
        QStringLiteral("SELECT NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, ACADST, CSITU FROM EMPRS "
                       "WHERE CSITU IS NOT NULL ORDER BY %1")
            .arg(order == ListOrder::RazaoSocial ? QStringLiteral("DRAZAOSOCIL")
                                                 : QStringLiteral("CCGC"));
    std::vector<RegisterRow> rows;
    QSqlQuery q = db.run(sql);
    while (q.next()) {
        const store::RegisterKey key{q.value(0).toInt(), q.value(1).toInt()};
        rows.push_back({key.code(), q.value(2).toString(), q.value(3), store::readDate(q.value(4)),
                        q.value(5)});
    }
    return rows;
}

QString statusWord(const QVariant& csitu) {
    if (csitu.isNull())
        return {};
    bool ok = false;
    const int value = csitu.toInt(&ok);
    switch (ok ? value : -1) {
    case 0:
        return QStringLiteral("EM MANUTENÇÃO");
    case 1:
        return QStringLiteral("OK");
    case 2:
        return QStringLiteral("EXPORTADO");
    case 3:
        return QStringLiteral("ENVIADO");
    case 4:
        return QStringLiteral("REENVIADO");
    default:
        return csitu.toString();
    }
}

QString cnpjText(const QVariant& ccgc) {
    return rules::cnpjText(ccgc);
}

void excluirDados(store::Database& db, const store::RegisterKey& key) {
    store::Transaction transaction(db);
    for (std::string_view name : store::registerDeleteOrder()) {
        // Table names come from the catalogue, never from a value.
        const QString table = QString::fromLatin1(name.data(), qsizetype(name.size()));
        db.run(QStringLiteral("DELETE FROM \"%1\" WHERE NMUNCP = ? AND NSEQNC = ?").arg(table),
               {key.nmuncp, key.nseqnc});
    }
    transaction.commit();
}

} // namespace shell
