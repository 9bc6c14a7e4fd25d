// "vor import": the agency's batch from the command line, and its exit codes.
#include "store/Database.h"
#include "support/ProgramRun.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
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
