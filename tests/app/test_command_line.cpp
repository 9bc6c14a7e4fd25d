// The program as the agency's scripts and the demo run it.
#include "store/Database.h"
#include "support/ProgramRun.h"
#include "support/TestEnvironment.h"

#include <QTest>

namespace {

using Run = testsupport::ProgramRun;

Run vor(const QStringList& arguments) {
    return testsupport::runProgram(arguments);
}

} // namespace

class TestCommandLine : public QObject {
    Q_OBJECT

private slots:
    void initCreatesDatabaseAndLeavesAnExistingOneAsItIs() {
        testsupport::TestEnvironment env;
        const QString path = env.path(QStringLiteral("sub/dir/agencia.db"));
        Run run = vor({QStringLiteral("init"), QStringLiteral("--database"), path});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(QFile::exists(path));
        {
            store::Database db(path);
            db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC) VALUES (100, 7)"));
        }
        run = vor({QStringLiteral("init"), QStringLiteral("--database"), path});
        QCOMPARE(run.exitCode, 0);
        store::Database db(path);
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 1);
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM MUNCP")).toInt(), 671);
    }

    void summaryListsEveryTable() {
        testsupport::TestEnvironment env;
        const QString path = env.path(QStringLiteral("x.db"));
        const Run run = vor({QStringLiteral("summary"), QStringLiteral("--database"), path});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.out.contains(QStringLiteral("EMPRS")));
        QVERIFY(run.out.contains(QStringLiteral("TB_POSTOAREATROCAOLEO")));
        QVERIFY(run.out.contains(QStringLiteral("DICNRMONTRAMBNT")));
    }

    void demoRegisterIsCreatedAndListed() {
        testsupport::TestEnvironment env;
        const QString path = env.path(QStringLiteral("demo.db"));
        const QStringList args = {QStringLiteral("demo-register"), QStringLiteral("--database"),
                                  path};
        QCOMPARE(vor(args).exitCode, 0);
        const Run run = vor(args);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.out.contains(QStringLiteral("VOR 1010002 incluído.")));
        QVERIFY(run.out.contains(QStringLiteral("1010001  AUTO POSTO BOA VIAGEM LTDA")));
        store::Database db(path);
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM TB_POSTO")).toInt(), 2);
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS WHERE CSITU = 1")).toInt(),
                 2);
    }

    void refusalsGoToStandardErrorWithNonZeroStatus() {
        Run run = vor({QStringLiteral("init")});
        QVERIFY(run.exitCode != 0);
        QVERIFY(run.err.contains(QStringLiteral("--database")));
        run = vor({QStringLiteral("frobnicate")});
        QVERIFY(run.exitCode != 0);
        // A database that cannot be created is reported, not crashed on.
        run = vor({QStringLiteral("init"), QStringLiteral("--database"),
                   QStringLiteral("/proc/vor/nao-pode.db")});
        QVERIFY(run.exitCode != 0);
        QVERIFY(!run.err.isEmpty());
        // A database of a newer release is refused with the versions named.
        testsupport::TestEnvironment env;
        const QString newer = env.path(QStringLiteral("nova.db"));
        {
            store::Database db(newer);
            db.run(QStringLiteral("PRAGMA user_version = 99"));
        }
        run = vor({QStringLiteral("summary"), QStringLiteral("--database"), newer});
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.contains(QStringLiteral("é da versão 99")), qPrintable(run.err));
        QCOMPARE(run.out, QString());
    }

    // Scripts tell a wrong call (2) from a failed run (1), whichever part of the line is wrong.
    void wrongArgumentsEndWithStatusTwo_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("said");
        QTest::newRow("unknown command") << QStringList{"frobnicate"} << "frobnicate";
        QTest::newRow("command without database") << QStringList{"summary"} << "--database";
        QTest::newRow("unknown option of a command")
            << QStringList{"init", "--database", "x.db", "--force"} << "force";
        QTest::newRow("option without its value")
            << QStringList{"init", "--database"} << "database";
        QTest::newRow("unknown option of print")
            << QStringList{"print", "--database", "x.db", "--colour"} << "colour";
        QTest::newRow("unknown option of the desktop program")
            << QStringList{"--colour"} << "colour";
        QTest::newRow("import without --yes")
            << QStringList{"import", "--database", "x.db", "."} << "--yes";
    }
    void wrongArgumentsEndWithStatusTwo() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, said);
        testsupport::TestEnvironment env;
        for (QString& argument : arguments) {
            if (argument == QLatin1String("x.db"))
                argument = env.path(argument);
        }
        const Run run = vor(arguments);
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.err.contains(said), qPrintable(run.err));
        QVERIFY(!QFile::exists(env.path(QStringLiteral("x.db"))));
    }

    void versionIsPrinted() {
        const Run run = vor({QStringLiteral("--version")});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.out.contains(QStringLiteral(VOR_VERSION)));
        // The program's own version line: 1.5, with the third part for its releases.
        QVERIFY2(QStringLiteral(VOR_VERSION).startsWith(QLatin1String("1.5.")),
                 qPrintable(run.out));
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "test_command_line.moc"
