#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

namespace store {

// The connection to one database file. Opening a file that does not exist creates it with the
// whole schema and the reference rows; opening an older file brings its schema up to date by
// PRAGMA user_version, never dropping a row; a file of a newer schema is refused (NewerSchema).
// Every failure is thrown as a store::Failure.
class Database {
public:
    static constexpr int kSchemaVersion = 3;
    static constexpr int kBusyTimeoutMs = 5000;

    // SQLite's name for a database that lives in memory alone, for as long as its connection.
    static inline const QString kInMemory = QStringLiteral(":memory:");

    explicit Database(const QString& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const QString& path() const { return m_path; }
    QSqlDatabase handle() const;

    // Prepares `sql`, binds `values` in order to its "?" placeholders and runs it.
    QSqlQuery run(const QString& sql, const QVariantList& values = {});
    // The first column of the first row, or an invalid QVariant when there is no row.
    QVariant scalar(const QString& sql, const QVariantList& values = {});

    int userVersion();
    bool inTransaction() const { return m_inTransaction; }

private:
    friend class Transaction;
    void begin();
    void commit();
    void rollback();
    void migrate();

    QString m_path;
    QString m_connectionName;
    bool m_inTransaction = false;
};

// One transaction, RAII: commit() makes it last, leaving the scope without it rolls back.
// Transactions do not nest; a second one on the same Database while one is open throws.
class Transaction {
public:
    explicit Transaction(Database& db);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database& m_db;
    bool m_done = false;
};

} // namespace store
