// The print run as the operator meets it, and the command line that prints without asking.
#include "PdfText.h"
#include "RegisterFixture.h"
#include "printing/Memorial.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/PrintMemorial.h"

#include <QProcess>
#include <QTest>

namespace {
const store::RegisterKey kKey{100, 7};
}

class TestPrintRun : public QObject {
    Q_OBJECT

private slots:
    void answersDecideWhetherTheMemorialPrints_data() {
        QTest::addColumn<bool>("hasSurveyDate");
        QTest::addColumn<QList<bool>>("answers");
        QTest::addColumn<bool>("printed");
        QTest::addColumn<QStringList>("shown");
        const QString confirm = QStringLiteral("Confirma a Impressão do Memorial?");
        const QString survey = QStringLiteral(
            "Data do Levantamento não está cadastrada!\nExistem 2 alternativas:\n1) Imprimir o "
            "Relatório sem constar a Data de Levantamento.\n2) Inserir a data de levantamento, "
            "no Preenchimento do Memorial.\n\nContinuar a impressão?");
        const QString done = QStringLiteral("Impressão Concluída");
        QTest::newRow("no at the confirmation")
            << true << QList<bool>{false} << false << QStringList{confirm};
        QTest::newRow("with a survey date")
            << true << QList<bool>{true} << true << QStringList{confirm, done};
        QTest::newRow("no survey date, go on")
            << false << QList<bool>{true, true} << true << QStringList{confirm, survey, done};
        QTest::newRow("no survey date, stop")
            << false << QList<bool>{true, false} << false << QStringList{confirm, survey};
    }

    void answersDecideWhetherTheMemorialPrints() {
        QFETCH(bool, hasSurveyDate);
        QFETCH(QList<bool>, answers);
        QFETCH(bool, printed);
        QFETCH(QStringList, shown);
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        testsupport::insertEstablishment(db, kKey,
                                         hasSurveyDate ? QVariant("2024-03-15") : QVariant());
        testsupport::ScriptedDialogs dialogs;
        for (bool answer : answers)
            dialogs.answer(answer);
        int outputs = 0;
        QString surveyShown;
        const bool result = ui::printMemorial(db, kKey, [&](const printing::Memorial& memorial) {
            ++outputs;
            const QString pdf = env.path(QStringLiteral("run.pdf"));
            memorial.writePdf(pdf);
            surveyShown = testsupport::pdfPages(pdf).value(0);
            return true;
        });
        QCOMPARE(result, printed);
        QCOMPARE(outputs, printed ? 1 : 0);
        QCOMPARE(dialogs.texts(), shown);
        QCOMPARE(dialogs.pendingAnswers(), 0);
        QVERIFY(!QGuiApplication::overrideCursor());
        if (shown.size() > 1 && shown[1].startsWith(QStringLiteral("Data do Levantamento"))) {
            QCOMPARE(dialogs.shown()[1].title, QStringLiteral("Confirmação de Impressão"));
            QCOMPARE(dialogs.shown()[1].kind, testsupport::ScriptedDialogs::Shown::Kind::Question);
        }
        if (printed) {
            QCOMPARE(dialogs.last().title, QStringLiteral("VOR"));
            QCOMPARE(dialogs.last().icon, ui::Icon::Information);
            QCOMPARE(surveyShown.contains(QStringLiteral("15/03/2024")), hasSurveyDate);
        }
    }

    void aCancelledDestinationIsNoPrint() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        testsupport::insertEstablishment(db, kKey);
        testsupport::ScriptedDialogs dialogs;
        dialogs.answer(true);
        QVERIFY(!ui::printMemorial(db, kKey, [](const printing::Memorial&) { return false; }));
        QCOMPARE(dialogs.texts(), QStringList{QStringLiteral("Confirma a Impressão do Memorial?")});
    }

    void protocolGoesBesideTheJoinedFile() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        testsupport::fillRegister(db, kKey);
        testsupport::ScriptedDialogs dialogs;
        const QString pdf = env.path(QStringLiteral("PROTOCOLO.pdf"));
        QVERIFY(ui::printProtocol(db, kKey, QDateTime(QDate(2024, 4, 2), QTime(17, 45)), pdf));
        QVERIFY(testsupport::pdfPages(pdf).value(0).contains(QStringLiteral("02/04/2024 17:45")));
        QVERIFY(dialogs.shown().isEmpty());

        QVERIFY(!ui::printProtocol(db, kKey, QDateTime::currentDateTime(),
                                   env.path(QStringLiteral("missing/dir/p.pdf"))));
        QVERIFY(dialogs.last().text.startsWith(
            QStringLiteral("Durante a emissão ocorreu um erro com o seguinte código: ")));
    }

    void commandLinePrintsWithoutQuestions_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("out");
        QTest::newRow("the register") << "1000007" << 0 << "1\n";
        QTest::newRow("a register that isn't there") << "1000008" << 1 << "";
        QTest::newRow("not a code") << "12a" << 2 << "";
    }

    void commandLinePrintsWithoutQuestions() {
        QFETCH(QString, code);
        QFETCH(int, exitCode);
        QFETCH(QString, out);
        testsupport::TestEnvironment env;
        const QString database = env.newDatabasePath();
        {
            store::Database db(database);
            testsupport::insertEstablishment(db, kKey, QVariant());
        }
        const QString pdf = env.path(QStringLiteral("out.pdf"));
        QProcess vor;
        vor.start(qEnvironmentVariable("VOR_BINARY"),
                  {QStringLiteral("print"), QStringLiteral("--database"), database,
                   QStringLiteral("--register"), code, QStringLiteral("--pdf"), pdf});
        QVERIFY(vor.waitForFinished(120000));
        QCOMPARE(vor.exitCode(), exitCode);
        QCOMPARE(QString::fromUtf8(vor.readAllStandardOutput()), out);
        if (exitCode == 0) {
            const QString page = testsupport::pdfPages(pdf).value(0);
            QVERIFY(page.contains(QStringLiteral("Página 1 de 1")));
            QVERIFY(page.contains(QStringLiteral("Data do Levantamento:")));
        } else {
            QVERIFY(!QFile::exists(pdf));
            QVERIFY(!vor.readAllStandardError().isEmpty());
        }
    }
};

QTEST_MAIN(TestPrintRun)
#include "test_print_run.moc"
