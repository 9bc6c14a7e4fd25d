#include "store/RowWriter.h"

#include "store/Database.h"
#include "store/Failure.h"
#include "store/TableCatalogue.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>

namespace store {

namespace {

// The column names of `row`, each checked against the table.
QStringList columnsOf(const Table& table, const Row& row) {
    QStringList names;
    for (auto it = row.cbegin(); it != row.cend(); ++it) {
        const QByteArray name = it.key().toLatin1();
        if (table.indexOf(std::string_view(name.constData(), std::size_t(name.size()))) < 0)
            throw Failure::other(3265, QStringLiteral("Coluna %1 desconhecida na tabela %2.")
                                           .arg(it.key(), table.qname()));
        names << it.key();
    }
    return names;
}

QString whereClause(const Table& table, const Row& where, QVariantList& values) {
    const QStringList names = columnsOf(table, where);
    if (names.isEmpty())
        return {};
    QStringList terms;
    for (const QString& name : names) {
        terms << name + QStringLiteral(" = ?");
        values << where.value(name);
    }
    return QStringLiteral(" WHERE ") + terms.join(QStringLiteral(" AND "));
}

int countRows(Database& db, const Table& table, const Row& where) {
    QVariantList bound;
    const QString clause = whereClause(table, where, bound);
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM ") + table.qname() + clause, bound)
        .toInt();
}

// A statement meant for one row that would touch another number of rows: it is not run.
void expectOne(int affected, const Table& table, const char* what) {
    if (affected == 1)
        return;
    // 3021 is the engine's "no current record": the row the screen showed is not there (any
    // more), or the key names more than one.
    throw Failure(Failure::Kind::OtherDatabase, 3021, QString::fromLatin1(kEngineSource),
                  QStringLiteral("%1 de %2 alcançou %3 registros em lugar de um.")
                      .arg(QString::fromLatin1(what), table.qname(), QString::number(affected)));
}

} // namespace

void insertRow(Database& db, std::string_view tableName, const Row& values) {
    const Table& t = table(tableName);
    const QStringList names = columnsOf(t, values);
    QVariantList bound;
    for (const QString& name : names)
        bound << values.value(name);
    db.run(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
               .arg(t.qname(), names.join(QLatin1Char(',')),
                    QStringList(names.size(), QStringLiteral("?")).join(QLatin1Char(','))),
           bound);
}

void updateRow(Database& db, std::string_view tableName, const Row& key, const Row& values) {
    const Table& t = table(tableName);
    const QStringList names = columnsOf(t, values);
    if (names.isEmpty())
        return;
    QStringList assignments;
    QVariantList bound;
    for (const QString& name : names) {
        assignments << name + QStringLiteral(" = ?");
        bound << values.value(name);
    }
    expectOne(countRows(db, t, key), t, "Alteração");
    const QString where = whereClause(t, key, bound);
    db.run(
        QStringLiteral("UPDATE %1 SET %2").arg(t.qname(), assignments.join(QStringLiteral(", "))) +
            where,
        bound);
}

void deleteRow(Database& db, std::string_view tableName, const Row& key) {
    const Table& t = table(tableName);
    expectOne(countRows(db, t, key), t, "Exclusão");
    QVariantList bound;
    const QString where = whereClause(t, key, bound);
    db.run(QStringLiteral("DELETE FROM ") + t.qname() + where, bound);
}

int deleteRows(Database& db, std::string_view tableName, const Row& where) {
    const Table& t = table(tableName);
    QVariantList bound;
    const QString clause = whereClause(t, where, bound);
    return db.run(QStringLiteral("DELETE FROM ") + t.qname() + clause, bound).numRowsAffected();
}

std::optional<Row> readRow(Database& db, std::string_view tableName, const Row& key) {
    const Table& t = table(tableName);
    QVariantList bound;
    const QString where = whereClause(t, key, bound);
    QSqlQuery query = db.run(QStringLiteral("SELECT * FROM ") + t.qname() + where, bound);
    if (!query.next())
        return std::nullopt;
    Row row;
    const QSqlRecord record = query.record();
    for (int i = 0; i < record.count(); ++i)
        row.insert(record.fieldName(i).toUpper(), query.value(i));
    return row;
}

bool rowExists(Database& db, std::string_view tableName, const Row& where) {
    const Table& t = table(tableName);
    QVariantList bound;
    const QString clause = whereClause(t, where, bound);
    return db
        .scalar(QStringLiteral("SELECT 1 FROM ") + t.qname() + clause + QStringLiteral(" LIMIT 1"),
                bound)
        .isValid();
}

} // namespace store
