// "vor import": the agency's batch from the command line, and its exit codes.
#include "store/Database.h"
#include "support/ProgramRun.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

namespace {

using Run = testsupport::ProgramRun;

Run vor(const QStringList& arguments) {
    return testsupport::runProgram(arguments);
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

int registers(const QString& path) {
    store::Database db(path);
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt();
}

QStringList importArguments(const QString& database, const QString& dir) {
    return {QStringLiteral("import"), QStringLiteral("--database"), database,
            QStringLiteral("--yes"), dir};
}

// A batch of one register exported by the program, and an agency database that holds another
// register, each in the scratch folder; the agency's database alone in a folder of its own.
struct Batch {
    testsupport::TestEnvironment env;
    QString dir = env.path(QStringLiteral("lote"));
    QString agencyFolder = env.path(QStringLiteral("agencia"));
    QString agency = agencyFolder + QStringLiteral("/agencia.db");

    Batch() {
        QDir().mkpath(dir);
        const QString station = env.newDatabasePath(QStringLiteral("posto.db"));
        {
            store::Database db(station);
            db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, ACADST, "
                                  "CSITU) VALUES (35, 12, 'Posto', 12345678000195, '2003-03-14', "
                                  "1)"));
            store::Database old(agency);
            old.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CCGC) VALUES (1, 1, 1)"));
        }
        QCOMPARE(runProgram({QStringLiteral("export"), QStringLiteral("--database"), station,
                             QStringLiteral("--register"), QStringLiteral("0350012"),
                             QStringLiteral("--dir"), dir})
                     .exitCode,
                 0);
    }

    static Run runProgram(const QStringList& arguments) {
        return testsupport::runProgram(arguments);
    }
};

// A second connection to a database, as another program would hold it.
class OtherProgram {
public:
    explicit OtherProgram(const QString& path) {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kName);
        db.setDatabaseName(path);
        QVERIFY(db.open());
    }
    ~OtherProgram() {
        QSqlDatabase::database(kName).close();
        QSqlDatabase::removeDatabase(kName);
    }
    // A write begun and not yet committed: the database's write lock is this program's.
    void holdWriteLock() {
        QSqlQuery query(QSqlDatabase::database(kName));
        QVERIFY(query.exec(QStringLiteral("BEGIN IMMEDIATE")));
        QVERIFY(query.exec(QStringLiteral("UPDATE EMPRS SET CSITU = 4")));
    }
    void release() {
        QVERIFY(QSqlQuery(QSqlDatabase::database(kName)).exec(QStringLiteral("ROLLBACK")));
    }

private:
    static inline const QString kName = QStringLiteral("outro-programa");
};

} // namespace

class TestImportCommand : public QObject {
    Q_OBJECT

private slots:
    void importsTheBatchAndReportsRefusalsWithoutFailing() {
        testsupport::TestEnvironment env;
        const QString station = env.newDatabasePath(QStringLiteral("posto.db"));
        const QString agency = env.newDatabasePath(QStringLiteral("agencia.db"));
        const QString dir = env.path(QStringLiteral("lote"));
        QDir().mkpath(dir);
        {
            store::Database db(station);
            db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, ACADST, "
                                  "CSITU) VALUES (35, 12, 'Posto', 12345678000195, '2003-03-14', "
                                  "1)"));
            store::Database old(agency);
            old.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CCGC) VALUES (1, 1, 1)"));
        }
        QCOMPARE(vor({QStringLiteral("export"), QStringLiteral("--database"), station,
                      QStringLiteral("--register"), QStringLiteral("0350012"),
                      QStringLiteral("--dir"), dir})
                     .exitCode,
                 0);
        writeFile(dir + QStringLiteral("/vazio.txt"), QByteArray());

        const Run run = vor({QStringLiteral("import"), QStringLiteral("--database"), agency,
                             QStringLiteral("--yes"), dir});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.err.trimmed(), QStringLiteral("O Arquivo vazio.txt está vazio."));
        QVERIFY2(run.out.contains(QStringLiteral("Total de Arquivos Existentes no Diretório : 2\n"
                                                 "Total de Arquivos Importados : 1\n"
                                                 "Importação Concluída")),
                 qPrintable(run.out));
        QVERIFY(run.out.contains(QFileInfo(agency).absolutePath() +
                                 QStringLiteral("/backups/VOR-POSTO-")));
        store::Database db(agency);
        QCOMPARE(db.scalar(QStringLiteral("SELECT NMUNCP || '/' || NSEQNC FROM EMPRS")).toString(),
                 QStringLiteral("35/12"));
    }

    // A folder that cannot be written does not let the backup be made, and the batch does not
    // begin; a database that cannot be written ends the batch with the error routine's
    // message. Nothing is lost either way.
    void aDatabaseThatCannotBeWrittenEndsTheBatchWithAMessage() {
        Batch batch;
        std::optional<Run> run = testsupport::runProgramReadOnly(
            batch.agencyFolder, importArguments(batch.agency, batch.dir));
        if (!run)
            QSKIP("neither permissions nor a mount namespace can make a folder read-only here");
        QVERIFY2(!run->crashed, qPrintable(run->err));
        QCOMPARE(run->exitCode, 1);
        QCOMPARE(run->out, QString());
        QCOMPARE(run->err,
                 QStringLiteral("vor import: Não foi possível gravar a cópia de "
                                "segurança %1/backups/VOR-POSTO-")
                         .arg(batch.agencyFolder) +
                     run->err.mid(run->err.indexOf(QStringLiteral("/VOR-POSTO-")) + 11, 15) +
                     QStringLiteral(".db: não foi possível criar a pasta %1/backups\n")
                         .arg(batch.agencyFolder));
        QCOMPARE(registers(batch.agency), 1);

        run =
            testsupport::runProgramReadOnly(batch.agency, importArguments(batch.agency, batch.dir));
        QVERIFY(run);
        QVERIFY2(!run->crashed, qPrintable(run->err));
        QCOMPARE(run->exitCode, 1);
        QVERIFY2(run->err.startsWith(QStringLiteral("vor import: 8-Fonte : SQLite")),
                 qPrintable(run->err));
        QCOMPARE(registers(batch.agency), 1);
    }

    // The batch waits a while for a database that another program is writing; a lock held
    // longer ends it with the error routine's message, a lock released meanwhile does not.
    void aDatabaseHeldByAnotherProgramIsWaitedFor() {
        Batch batch;
        {
            OtherProgram other(batch.agency);
            other.holdWriteLock();
            QElapsedTimer waited;
            waited.start();
            const Run run = testsupport::runProgram(importArguments(batch.agency, batch.dir));
            QVERIFY2(!run.crashed, qPrintable(run.err));
            QCOMPARE(run.exitCode, 1);
            QVERIFY2(run.err.startsWith(QStringLiteral("vor import: 5-Fonte : SQLite")),
                     qPrintable(run.err));
            QVERIFY2(waited.elapsed() >= 4000, qPrintable(QString::number(waited.elapsed())));
            other.release();
        }
        QCOMPARE(registers(batch.agency), 1);

        OtherProgram other(batch.agency);
        other.holdWriteLock();
        QProcess process;
        process.start(qEnvironmentVariable("VOR_BINARY"), importArguments(batch.agency, batch.dir));
        QVERIFY(process.waitForStarted());
        QTest::qWait(1000);
        other.release();
        const Run run = testsupport::finishedRun(process);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.err, QString());
        store::Database db(batch.agency);
        QCOMPARE(db.scalar(QStringLiteral("SELECT group_concat(NMUNCP || '/' || NSEQNC || '/' || "
                                          "CSITU) FROM EMPRS"))
                     .toString(),
                 QStringLiteral("35/12/1"));
    }

    // A disk that fills up ends the batch with the driver's message and a failing exit:
    // during the wipe, which then leaves every register, or during a file, which leaves the
    // files before it imported and nothing of itself.
    void aFullDiskEndsTheBatchAndTheCommandFails_data() {
        QTest::addColumn<int>("roomKib");
        QTest::addColumn<int>("registers");
        QTest::addColumn<int>("businesses");
        QTest::newRow("during the wipe") << 128 << 1 << 0;
        QTest::newRow("during a file") << 768 << 1 << 0;
    }

    void aFullDiskEndsTheBatchAndTheCommandFails() {
        QFETCH(int, roomKib);
        QFETCH(int, registers);
        QFETCH(int, businesses);
        Batch batch;
        // Behind the exported register, one too big for the room left.
        QByteArray big = "[EMPRS]\r\n35\xAC"
                         "13\xACNull\xACPosto Grande";
        for (int i = 0; i < 8; ++i)
            big += "\xACNull";
        big += "\xAC"
               "44556677000186\xACNull\xACNull\xACNull\xACNull\xACNull\xAC"
               "14/03/2003\r\n[TB_POSTOCOMRCSERVC]\r\n";
        for (int i = 1; i <= 40000; ++i)
            big += "35\xAC"
                   "13\xAC"
                   "14/03/2003\xAC" +
                   QByteArray::number(i) + "\xACLoja de conveni\xEAncia n\xFAmero " +
                   QByteArray::number(i) + "\r\n";
        writeFile(batch.dir + QStringLiteral("/REUNIDO_44556677000186.TXT"), big);

        // The database and its backup on a file system with little room beside them; what it
        // holds afterwards is read there, as the file system ends with the run.
        const QString small = batch.env.path(QStringLiteral("cheio"));
        QDir().mkpath(small);
        const qint64 size = QFileInfo(batch.agency).size() * 2 / 1024 + roomKib;
        const std::optional<Run> run = testsupport::runInMountNamespace(
            QStringLiteral("mount -t tmpfs -o size=%1k tmpfs \"$1\" && cp \"$2\" \"$1/agencia.db\" "
                           "|| exit 99\n"
                           "\"$0\" import --database \"$1/agencia.db\" --yes \"$3\"; rc=$?\n"
                           "\"$0\" summary --database \"$1/agencia.db\"\n"
                           "exit $rc")
                .arg(size),
            {small, batch.agency, batch.dir});
        if (!run)
            QSKIP("no mount namespace for a small file system here");
        QVERIFY2(!run->crashed, qPrintable(run->err));
        QCOMPARE(run->exitCode, 1);
        QCOMPARE(run->err, QStringLiteral("vor import: Espaço na unidade especificada como "
                                          "destino é insuficiente.\n"));
        QVERIFY2(run->out.contains(
                     QRegularExpression(QStringLiteral("EMPRS +%1 linhas").arg(registers))),
                 qPrintable(run->out));
        QVERIFY2(run->out.contains(QRegularExpression(
                     QStringLiteral("TB_POSTOCOMRCSERVC +%1 linhas").arg(businesses))),
                 qPrintable(run->out));
    }

    void refusesToRunWithoutItsArgumentsOrFiles() {
        testsupport::TestEnvironment env;
        const QString agency = env.newDatabasePath();
        const QString dir = env.path(QStringLiteral("lote"));
        QDir().mkpath(dir);
        {
            store::Database db(agency);
            db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CCGC) VALUES (1, 1, 1)"));
        }
        // Without --yes nothing is wiped.
        writeFile(dir + QStringLiteral("/REUNIDO_1.TXT"), "[EMPRS]\r\n");
        Run run = vor({QStringLiteral("import"), QStringLiteral("--database"), agency, dir});
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.err.contains(QStringLiteral("--yes")));
        QCOMPARE(registers(agency), 1);

        run = vor({QStringLiteral("import"), QStringLiteral("--yes"), dir});
        QCOMPARE(run.exitCode, 2);

        // A directory without "*.txt" files: the batch cannot run and nothing is wiped.
        QFile::remove(dir + QStringLiteral("/REUNIDO_1.TXT"));
        run = vor({QStringLiteral("import"), QStringLiteral("--database"), agency,
                   QStringLiteral("--yes"), dir});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.err.contains(QStringLiteral("Selecione um diretório.")));
        QCOMPARE(registers(agency), 1);
    }
};

QTEST_MAIN(TestImportCommand)
#include "test_import_command.moc"
