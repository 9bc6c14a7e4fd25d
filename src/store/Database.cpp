#include "store/Database.h"

#include "store/Failure.h"
#include "store/PrivateFiles.h"
#include "store/ReferenceData.h"
#include "store/TableCatalogue.h"

#include <QAtomicInt>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <cstdio>
#include <functional>
#include <vector>

namespace store {

namespace {

QAtomicInt connectionCounter;

[[noreturn]] void fail(const QSqlError& error, const QString& statement) {
    throw Failure::fromSql(error, statement);
}

// Steps from each schema version to the next; step i takes a database from version i to i + 1.
// A new release appends steps (new tables, new columns) and never rewrites an old one.
const std::vector<std::function<void(Database&)>> kMigrations = {
    // 0 -> 1: the whole schema with the reference rows.
    [](Database& db) {
        for (const Table& t : allTables())
            db.run(createTableSql(t));
        loadReferenceData(db);
    },
    // 1 -> 2: the import looks every file's company up by its CNPJ.
    [](Database& db) { db.run(QStringLiteral("CREATE INDEX EMPRS_CCGC ON EMPRS (CCGC)")); },
    // 2 -> 3: new registers are numbered by a counter (a new database has its table already),
    // which starts behind the highest number in use.
    [](Database& db) {
        const Table& counter = table("TB_VORpSEQNC");
        if (!db.scalar(QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' AND "
                                      "name = ?"),
                       {counter.qname()})
                 .isValid())
            db.run(createTableSql(counter));
        db.run(QStringLiteral("INSERT INTO TB_VORpSEQNC (NSEQNC) SELECT COALESCE(MAX(NSEQNC), 0) "
                              "FROM EMPRS WHERE NOT EXISTS (SELECT 1 FROM TB_VORpSEQNC)"));
    },
};

// A new database file is created empty and private before SQLite opens it (SQLite takes an empty
// file for a new database, and gives its journal files the database's own permissions). One
// that an earlier version left open to other users is narrowed, and the user is told once.
void keepPrivate(const QString& path) {
    if (const auto before = narrowToOwner(path)) {
        const QString note = QStringLiteral("vor: permissões de %1 reduzidas de %2 para %3: o "
                                            "banco de dados guarda dados pessoais.\n")
                                 .arg(path, modeText(*before), modeText(QFile::permissions(path)));
        std::fputs(note.toLocal8Bit().constData(), stderr);
    }
    for (const char* journal : {"-wal", "-shm", "-journal"})
        narrowToOwner(path + QLatin1String(journal));
    makePrivateFile(path);
}

} // namespace

Database::Database(const QString& path)
    : m_path(path)
    , m_connectionName(QStringLiteral("vor-%1").arg(connectionCounter.fetchAndAddRelaxed(1))) {
    if (path != kInMemory) {
        const QFileInfo info(path);
        if (!info.absoluteDir().exists() && !makePrivateFolder(info.absolutePath()))
            throw Failure::other(76,
                                 QStringLiteral("Caminho não encontrado: ") + info.absolutePath());
        keepPrivate(path);
    }

    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    db.setDatabaseName(path);
    // Another program writing the file (a second copy of this one, a backup tool) is waited for
    // this long before a statement gives up as "database is locked".
    db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(kBusyTimeoutMs));
    if (!db.open()) {
        const QSqlError error = db.lastError();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connectionName);
        fail(error, QString());
    }
    try {
        migrate();
    } catch (...) {
        db.close();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connectionName);
        throw;
    }
}

Database::~Database() {
    {
        QSqlDatabase db = QSqlDatabase::database(m_connectionName, false);
        if (m_inTransaction)
            db.rollback();
        db.close();
    }
    QSqlDatabase::removeDatabase(m_connectionName);
}

QSqlDatabase Database::handle() const {
    return QSqlDatabase::database(m_connectionName, false);
}

QSqlQuery Database::run(const QString& sql, const QVariantList& values) {
    QSqlQuery query(handle());
    query.setForwardOnly(true);
    if (!query.prepare(sql))
        fail(query.lastError(), sql);
    for (const QVariant& v : values)
        query.addBindValue(v);
    if (!query.exec())
        fail(query.lastError(), sql);
    return query;
}

QVariant Database::scalar(const QString& sql, const QVariantList& values) {
    QSqlQuery query = run(sql, values);
    return query.next() ? query.value(0) : QVariant();
}

int Database::userVersion() {
    return scalar(QStringLiteral("PRAGMA user_version")).toInt();
}

void Database::begin() {
    if (m_inTransaction)
        throw Failure::other(3003, QStringLiteral("Uma transação já está aberta."));
    if (!handle().transaction())
        fail(handle().lastError(), QStringLiteral("BEGIN"));
    m_inTransaction = true;
}

void Database::commit() {
    if (!handle().commit())
        fail(handle().lastError(), QStringLiteral("COMMIT"));
    m_inTransaction = false;
}

void Database::rollback() {
    handle().rollback();
    m_inTransaction = false;
}

void Database::migrate() {
    const int from = userVersion();
    // Tables this program does not know would outlive its wipe and its register delete, and
    // their rows would attach to the next register of the same key.
    if (from > kSchemaVersion)
        throw NewerSchema(QDir::toNativeSeparators(m_path), from, kSchemaVersion);
    if (from == kSchemaVersion)
        return;
    Transaction transaction(*this);
    for (int v = from; v < kSchemaVersion; ++v)
        kMigrations[std::size_t(v)](*this);
    // PRAGMA takes no bound parameter; the value is our own constant.
    run(QStringLiteral("PRAGMA user_version = %1").arg(kSchemaVersion));
    transaction.commit();
}

Transaction::Transaction(Database& db)
    : m_db(db) {
    m_db.begin();
}

Transaction::~Transaction() {
    if (!m_done)
        m_db.rollback();
}

void Transaction::commit() {
    m_db.commit();
    m_done = true;
}

} // namespace store
