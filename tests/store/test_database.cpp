#include "store/Backup.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/ReferenceData.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QTest>
#include <optional>
#include <sqlite3.h>

namespace {

QList<QVariant> column(store::Database& db, const QString& sql) {
    QList<QVariant> values;
    QSqlQuery q = db.run(sql);
    while (q.next())
        values << q.value(0);
    return values;
}

qlonglong count(store::Database& db, const QString& sql, const QVariantList& values = {}) {
    return db.scalar(sql, values).toLongLong();
}

const QString kInsertRegister =
    QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC) VALUES (?, ?, ?, ?)");

// Where a backup of `db` goes, and what a kill of the program at the moment a statement of the
// connection runs would leave there: the folder's files are copied to `left` the first time
// the folder holds any, and the statement is broken off as the kill would end it.
class KillDuringStatement {
public:
    KillDuringStatement(store::Database& db, QString folder, QString left)
        : m_connection(*static_cast<sqlite3* const*>(db.handle().driver()->handle().constData()))
        , m_folder(std::move(folder))
        , m_left(std::move(left)) {
        sqlite3_progress_handler(m_connection, 50, &KillDuringStatement::step, this);
    }
    ~KillDuringStatement() { sqlite3_progress_handler(m_connection, 0, nullptr, nullptr); }

    bool killed() const { return m_killed; }

private:
    static int step(void* self) {
        auto& kill = *static_cast<KillDuringStatement*>(self);
        const QDir folder(kill.m_folder);
        const QStringList files = folder.entryList(QDir::Files);
        if (files.isEmpty())
            return 0;
        QDir().mkpath(kill.m_left);
        for (const QString& name : files)
            QFile::copy(folder.filePath(name), QDir(kill.m_left).filePath(name));
        kill.m_killed = true;
        return 1;
    }

    sqlite3* m_connection;
    QString m_folder;
    QString m_left;
    bool m_killed = false;
};

} // namespace

class TestDatabase : public QObject {
    Q_OBJECT

private slots:
    void newDatabaseHoldsTheReferenceRows() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        QCOMPARE(db.userVersion(), store::Database::kSchemaVersion);

        // States below 99, municipalities of the state from 100 on, the capital being 100.
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM MUNCP WHERE NMUNCP < 99")), 26);
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM MUNCP WHERE NMUNCP >= 100")), 645);
        QCOMPARE(
            db.scalar(QStringLiteral("SELECT DMUNCP FROM MUNCP WHERE NMUNCP = 100")).toString(),
            QStringLiteral("SÃO PAULO"));
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM MUNCP WHERE NMUNCP >= 100 AND "
                                          "(NUGRHI IS NULL OR NBACIA IS NULL)")),
                 0);
        // Every municipality has CEP patterns, and every pattern a regional office that exists.
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM MUNCP m WHERE NMUNCP >= 100 AND "
                                          "NOT EXISTS (SELECT 1 FROM CEP c WHERE c.NMUNCP = "
                                          "m.NMUNCP)")),
                 0);
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM CEP c WHERE NOT EXISTS (SELECT 1 "
                                          "FROM REGNL r WHERE r.NREGNL = c.NREGNL)")),
                 0);
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM CEP WHERE length(CCEP) <> 5")), 0);
        // The capital's districts are served by the offices that check its number blocks.
        for (const QVariant& office :
             column(db, QStringLiteral("SELECT DISTINCT NREGNL FROM CEP WHERE NMUNCP = 100")))
            QVERIFY(QList<int>({16, 29, 30, 31, 33, 45}).contains(office.toInt()));
        // The agencies list counts on offices numbered 1 to N, 1 the head office.
        const qlonglong offices = count(db, QStringLiteral("SELECT COUNT(*) FROM REGNL"));
        QCOMPARE(db.scalar(QStringLiteral("SELECT MAX(NREGNL) FROM REGNL")).toLongLong(), offices);
        QVERIFY(
            !db.scalar(QStringLiteral("SELECT DRESMDREGNL FROM REGNL WHERE NREGNL = 1")).isNull());
        QVERIFY(count(db, QStringLiteral("SELECT COUNT(*) FROM MUNCPPOCO WHERE NPOCO > 0")) > 0);
    }

    void dictionariesHoldTheCodesTheScreensRelyOn() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        QList<QVariant> fuels =
            column(db, QStringLiteral("SELECT NCOMBS FROM DICNRCOMBS ORDER BY 1"));
        QList<QVariant> expected;
        for (int code = 101; code <= 135; ++code)
            expected << code;
        QCOMPARE(fuels.size(), expected.size());
        for (int i = 0; i < fuels.size(); ++i)
            QCOMPARE(fuels[i].toInt(), expected[i].toInt());

        QCOMPARE(db.scalar(QStringLiteral("SELECT DMATRL || '/' || IMATRLTANQULINHA FROM "
                                          "DICNRMATRLTANQU WHERE NMATRL = 10"))
                     .toString(),
                 QStringLiteral("Aço/T"));
        QCOMPARE(db.scalar(QStringLiteral("SELECT DMATRL || '/' || IMATRLTANQULINHA FROM "
                                          "DICNRMATRLTANQU WHERE NMATRL = 9"))
                     .toString(),
                 QStringLiteral("Outros/T"));
        QVERIFY(count(db, QStringLiteral("SELECT COUNT(*) FROM DICNRMATRLTANQU WHERE "
                                         "IMATRLTANQULINHA = 'L'")) > 0);
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM DICNRUNIDDMEDDA WHERE "
                                          "CUNIDDMEDDA IN (2404, 2408, 2310, 2311)")),
                 4);
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM DICNRDESTNRESDU WHERE ISITCA = "
                                          "'D' AND DDESTNRESDU = 'Outra'")),
                 1);
        QVERIFY(count(db, QStringLiteral(
                              "SELECT COUNT(*) FROM DICNRDESTNRESDU WHERE ISITCA = 'A'")) > 0);
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(DISTINCT IEQUPM) FROM DICNRMONTRAMBNT "
                                          "WHERE IEQUPM IN ('T', 'B', 'P', 'O')")),
                 4);
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(DISTINCT ISISTM) FROM DICNRMONTRAMBNT "
                                          "WHERE ISISTM IN ('S', 'A', 'D', 'G')")),
                 4);
        for (const QString& dictionary :
             {QStringLiteral("DICNRBASE"), QStringLiteral("DICNRBOCACARRG"),
              QStringLiteral("DICNRVALVLRETNC"), QStringLiteral("DICNRFILTRO"),
              QStringLiteral("DICNRTRATM"), QStringLiteral("DICNRDISPSFINAL")})
            QVERIFY2(count(db, QStringLiteral("SELECT COUNT(*) FROM ") + dictionary) > 0,
                     qPrintable(dictionary));
    }

    void reopeningKeepsRegistersAndDoesNotReloadReferences() {
        testsupport::TestEnvironment env;
        const QString path = env.newDatabasePath();
        qlonglong municipalities = 0;
        {
            store::Database db(path);
            db.run(kInsertRegister,
                   {100, 1, QStringLiteral("AUTO POSTO D`ÁGUA LTDA"), 12345678000195LL});
            municipalities = count(db, QStringLiteral("SELECT COUNT(*) FROM MUNCP"));
        }
        store::Database db(path);
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM MUNCP")), municipalities);
        QCOMPARE(db.scalar(QStringLiteral("SELECT DRAZAOSOCIL FROM EMPRS")).toString(),
                 QStringLiteral("AUTO POSTO D`ÁGUA LTDA"));
        // A CNPJ keeps all fourteen digits.
        QCOMPARE(db.scalar(QStringLiteral("SELECT CCGC FROM EMPRS")).toLongLong(),
                 12345678000195LL);
    }

    // A database of a newer release is not opened, and not touched: its tables may hold
    // what this program would leave behind in a wipe.
    void aDatabaseOfANewerSchemaIsRefused() {
        testsupport::TestEnvironment env;
        const QString path = env.newDatabasePath();
        {
            store::Database db(path);
            db.run(QStringLiteral("CREATE TABLE TB_POSTONOVA (NMUNCP INTEGER, NSEQNC INTEGER)"));
            db.run(QStringLiteral("PRAGMA user_version = %1")
                       .arg(store::Database::kSchemaVersion + 1));
        }
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray before = file.readAll();
        file.close();
        try {
            store::Database db(path);
            QFAIL("a database of a newer schema was opened");
        } catch (const store::NewerSchema& newer) {
            QCOMPARE(newer.description(),
                     QStringLiteral("O banco de dados %1 é da versão %2, gravada por uma versão "
                                    "mais nova do programa; esta versão conhece os bancos até a "
                                    "versão %3. Use a versão mais nova do programa com este "
                                    "banco de dados.")
                         .arg(path)
                         .arg(store::Database::kSchemaVersion + 1)
                         .arg(store::Database::kSchemaVersion));
        }
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), before);
    }

    // A database in memory has the whole schema and the reference rows, and no file anywhere.
    void aDatabaseInMemoryLeavesNoFile() {
        testsupport::TestEnvironment env;
        const QString before = QDir::currentPath();
        QDir::setCurrent(env.path(QString()));
        {
            store::Database db(store::Database::kInMemory);
            QCOMPARE(db.userVersion(), store::Database::kSchemaVersion);
            QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM MUNCP WHERE NMUNCP >= 100")),
                     645);
        }
        QCOMPARE(QDir(env.path(QString())).entryList(QDir::Files | QDir::Hidden), QStringList());
        QDir::setCurrent(before);
    }

    void valuesAreBoundNeverSpliced() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        const QString hostile = QStringLiteral("X'); DROP TABLE EMPRS; --");
        db.run(kInsertRegister, {100, 1, hostile, 0});
        QCOMPARE(db.scalar(QStringLiteral("SELECT DRAZAOSOCIL FROM EMPRS WHERE NSEQNC = ?"), {1})
                     .toString(),
                 hostile);
    }

    void duplicateKeyIsWordedForTheUser() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        db.run(kInsertRegister, {100, 1, QStringLiteral("A"), 0});
        try {
            db.run(kInsertRegister, {100, 1, QStringLiteral("B"), 0});
            QFAIL("a second row with the same key was accepted");
        } catch (const store::Failure& failure) {
            QCOMPARE(failure.kind(), store::Failure::Kind::Duplicate);
            QCOMPARE(store::databaseErrorText(failure),
                     QString::number(failure.number()) +
                         QStringLiteral("-Fonte : SQLite\nTentativa de inserir um registro já "
                                        "existente."));
            QVERIFY(failure.number() != 0);
        }
    }

    void otherEngineErrorsGetTheUnforeseenText() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        try {
            db.run(QStringLiteral("SELECT NOSUCHCOLUMN FROM EMPRS"));
            QFAIL("a bad statement ran");
        } catch (const store::Failure& failure) {
            QCOMPARE(failure.kind(), store::Failure::Kind::OtherDatabase);
            QVERIFY(store::databaseErrorText(failure).endsWith(
                QStringLiteral("-Fonte : SQLite:Ocorreu um erro não previsto de DAO.")));
        }
    }

    void failureInTheSecondStatementUndoesTheFirst() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        db.run(kInsertRegister, {100, 1, QStringLiteral("A"), 0});
        try {
            store::Transaction transaction(db);
            db.run(kInsertRegister, {100, 2, QStringLiteral("B"), 0});
            db.run(kInsertRegister, {100, 1, QStringLiteral("C"), 0});
            transaction.commit();
            QFAIL("the transaction committed");
        } catch (const store::Failure&) {
        }
        QVERIFY(!db.inTransaction());
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM EMPRS")), 1);
        // The connection is usable again at once.
        store::Transaction transaction(db);
        db.run(kInsertRegister, {100, 2, QStringLiteral("B"), 0});
        transaction.commit();
        QCOMPARE(count(db, QStringLiteral("SELECT COUNT(*) FROM EMPRS")), 2);
    }

    void transactionsDoNotNest() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        store::Transaction outer(db);
        QVERIFY_THROWS_EXCEPTION(store::Failure, store::Transaction inner(db));
        QVERIFY(db.inTransaction());
    }

    // A backup broken off (the program killed while it writes) never leaves a file under a
    // backup's name; a failed backup leaves neither its partial file nor the folder it made.
    void aBackupTakesItsNameOnlyWhenComplete() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        for (int i = 1; i <= 500; ++i)
            db.run(kInsertRegister, {100, i, QStringLiteral("Posto %1").arg(i), i});
        const QString folder = QFileInfo(db.path()).absolutePath() + QStringLiteral("/backups");
        const QString left = env.path(QStringLiteral("deixado"));
        const QRegularExpression backupName(QStringLiteral("^VOR-POSTO-\\d{8}-\\d{6}\\.db$"));
        std::optional<store::Failure> failed;
        try {
            KillDuringStatement kill(db, folder, left);
            store::writeBackup(db);
        } catch (const store::Failure& failure) {
            failed = failure;
        }
        const QStringList killedAt = QDir(left).entryList(QDir::Files);
        QVERIFY(!killedAt.isEmpty());
        for (const QString& name : killedAt)
            QVERIFY2(!backupName.match(name).hasMatch(), qPrintable(name));
        QVERIFY(failed);
        QVERIFY(!failed->fromDatabase());
        QVERIFY2(failed->description().startsWith(
                     QStringLiteral("Não foi possível gravar a cópia de segurança ") + folder +
                     QStringLiteral("/VOR-POSTO-")),
                 qPrintable(failed->description()));
        QVERIFY(!QFileInfo::exists(folder));

        // The next backup is whole, and clears what a killed one left.
        QDir().mkpath(folder);
        for (const QString& name : killedAt)
            QFile::copy(QDir(left).filePath(name), QDir(folder).filePath(name));
        const QString path = store::writeBackup(db);
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{QFileInfo(path).fileName()});
        QVERIFY(backupName.match(QFileInfo(path).fileName()).hasMatch());
        store::Database copy(path);
        QCOMPARE(count(copy, QStringLiteral("SELECT COUNT(*) FROM EMPRS")), 500);
    }

    void csvFieldsMayBeQuoted_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QList<QStringList>>("rows");
        QTest::newRow("plain") << QByteArray("A,B\n1,2\n")
                               << QList<QStringList>{{"A", "B"}, {"1", "2"}};
        QTest::newRow("empty fields")
            << QByteArray("1,,3\n,\n") << QList<QStringList>{{"1", "", "3"}, {"", ""}};
        QTest::newRow("quoted comma and quote") << QByteArray("\"a,b\",\"say \"\"hi\"\"\"\r\n")
                                                << QList<QStringList>{{"a,b", "say \"hi\""}};
        QTest::newRow("no final line break") << QByteArray("x,y") << QList<QStringList>{{"x", "y"}};
        QTest::newRow("accents") << QByteArray("SÃO PAULO,Aço\n")
                                 << QList<QStringList>{{"SÃO PAULO", "Aço"}};
    }

    void csvFieldsMayBeQuoted() {
        QFETCH(QByteArray, text);
        QFETCH(QList<QStringList>, rows);
        QCOMPARE(store::parseCsv(text), rows);
    }
};

QTEST_GUILESS_MAIN(TestDatabase)
#include "test_database.moc"
