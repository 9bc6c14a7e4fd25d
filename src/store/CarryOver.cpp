#include "store/CarryOver.h"

#include "store/Database.h"
#include "store/RegisterKey.h"
#include "store/TableCatalogue.h"

#include <QSqlQuery>
#include <QStringList>
#include <vector>

namespace store {

namespace {

// The name under which the database in use is attached to the new one.
const QString kFrom = QStringLiteral("em_uso");

// "INSERT OR IGNORE INTO main.T (c...) SELECT c... FROM em_uso.T", every column of the table.
QString copySql(const Table& table) {
    QStringList columns;
    for (const Column& c : table.columns)
        columns << QLatin1Char('"') + c.qname() + QLatin1Char('"');
    const QString list = columns.join(QLatin1Char(','));
    return QStringLiteral("INSERT OR IGNORE INTO main.\"%1\" (%2) SELECT %2 FROM %3.\"%1\"")
        .arg(table.qname(), list, kFrom);
}

// Attached for the length of the carry-over, detached on every way out.
class Attached {
public:
    Attached(Database& into, const QString& path)
        : m_into(into) {
        m_into.run(QStringLiteral("ATTACH DATABASE ? AS ") + kFrom, {path});
    }
    ~Attached() {
        try {
            m_into.run(QStringLiteral("DETACH DATABASE ") + kFrom);
        } catch (...) {
            // The connection closes with it anyway.
        }
    }
    Attached(const Attached&) = delete;
    Attached& operator=(const Attached&) = delete;

private:
    Database& m_into;
};

} // namespace

int carryOver(Database& from, Database& into) {
    std::vector<RegisterKey> registers;
    {
        QSqlQuery rows =
            from.run(QStringLiteral("SELECT NMUNCP, NSEQNC FROM EMPRS ORDER BY rowid"));
        while (rows.next())
            registers.push_back({rows.value(0).toInt(), rows.value(1).toInt()});
    }

    const Attached attached(into, from.path());
    for (const RegisterKey& key : registers) {
        Transaction transaction(into);
        for (const Table* table : registerTables())
            into.run(copySql(*table) + QStringLiteral(" WHERE NMUNCP = ? AND NSEQNC = ?"),
                     {key.nmuncp, key.nseqnc});
        transaction.commit();
    }
    Transaction transaction(into);
    if (!into.scalar(QStringLiteral("SELECT 1 FROM main.TB_VORpMOVMN")).isValid())
        into.run(copySql(table("TB_VORpMOVMN")));
    transaction.commit();
    return int(registers.size());
}

} // namespace store
