// "vor export": the joined file of a register without the mail step.
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

} // namespace

class TestExportCommand : public QObject {
    Q_OBJECT

private slots:
    void exportsAndPrintsThePath() {
        testsupport::TestEnvironment env;
        const QString path = env.newDatabasePath();
        {
            store::Database db(path);
            db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, CSITU) "
                                  "VALUES (35, 12, 'Posto', 12345678000195, 1)"));
        }
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        const Run run = vor({QStringLiteral("export"), QStringLiteral("--database"), path,
                             QStringLiteral("--register"), QStringLiteral("0350012"),
                             QStringLiteral("--dir"), dir});
        QCOMPARE(run.exitCode, 0);
        const QString joined = dir + QStringLiteral("/REUNIDO_12345678000195.TXT");
        QCOMPARE(run.out.trimmed(), joined);
        QVERIFY(QFile::exists(joined));
        store::Database db(path);
        QCOMPARE(db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS")).toInt(), 2);
    }

    void refusals_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("dir");
        QTest::addColumn<QString>("message");
        QTest::newRow("no such register") << "0010001"
                                          << "out"
                                          << "O posto 0010001 não está cadastrado.";
        QTest::newRow("bad code") << "35-12"
                                  << "out"
                                  << "--register CODE";
        QTest::newRow("no directory") << "0350012"
                                      << "missing"
                                      << "Disquete não está na unidade especificada.";
        QTest::newRow("write protected") << "0350012"
                                         << "/sys"
                                         << "Disquete protegido contra gravação.";
        QTest::newRow("no dir given") << "0350012"
                                      << ""
                                      << "--dir DIR are required";
    }
    void refusals() {
        QFETCH(QString, code);
        QFETCH(QString, dir);
        QFETCH(QString, message);
        testsupport::TestEnvironment env;
        const QString path = env.newDatabasePath();
        {
            store::Database db(path);
            db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CCGC, CSITU) VALUES (35, 12, "
                                  "1, 1)"));
        }
        QDir().mkpath(env.path(QStringLiteral("out")));
        QStringList args{QStringLiteral("export"), QStringLiteral("--database"), path,
                         QStringLiteral("--register"), code};
        if (!dir.isEmpty())
            args << QStringLiteral("--dir")
                 << (dir.startsWith(QLatin1Char('/')) ? dir : env.path(dir));
        const Run run = vor(args);
        QVERIFY(run.exitCode != 0);
        QVERIFY2(run.err.contains(message), qPrintable(run.err));
        QVERIFY(run.out.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestExportCommand)
#include "test_export_command.moc"
