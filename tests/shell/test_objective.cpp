#include "shell/Objective.h"
#include "shell/ObjectiveDialog.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/Session.h"

#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>
#include <QTest>

namespace {

const QStringList kOptions = {"optCadst", "optLF", "optLP", "optLI", "optLPLI"};

QRadioButton* option(QWidget* dialog, int i) {
    return dialog->findChild<QRadioButton*>(kOptions[i]);
}

void click(QWidget* dialog, const char* name) {
    auto* button = dialog->findChild<QAbstractButton*>(QString::fromLatin1(name));
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

QStringList statuses(store::Database& db) {
    QStringList result;
    QSqlQuery q = db.run(QStringLiteral("SELECT CSITU FROM EMPRS ORDER BY NSEQNC"));
    while (q.next())
        result << q.value(0).toString();
    return result;
}

void addRegisters(store::Database& db) {
    db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CSITU) VALUES (101, 1, 2), "
                          "(101, 2, 3), (102, 3, 4)"));
}

} // namespace

class TestObjective : public QObject {
    Q_OBJECT

private slots:
    void codes_data() {
        QTest::addColumn<int>("objective");
        QTest::addColumn<QString>("code");
        QTest::newRow("Cadastro") << 0 << "C";
        QTest::newRow("Licença de Funcionamento") << 1 << "LF";
        QTest::newRow("Licença Prévia") << 2 << "LP";
        QTest::newRow("Licença de Instalação") << 3 << "LI";
        QTest::newRow("Licença Prévia e de Instalação") << 4 << "LP/LI";
    }

    void codes() {
        QFETCH(int, objective);
        QFETCH(QString, code);
        QCOMPARE(shell::objectiveCode(objective), code);
        QCOMPARE(shell::objectiveFromCode(code), std::optional<int>(objective));
    }

    void firstRunOffersOnlyCadastroUntilAlterar() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        addRegisters(db);
        testsupport::ScriptedDialogs dialogs;
        ui::Session session;
        shell::ObjectiveDialog dialog(db, session);

        QCOMPARE(dialog.windowTitle(),
                 QStringLiteral("Selecione o objetivo para este preenchimento"));
        QVERIFY(option(&dialog, 0)->isEnabled());
        for (int i = 1; i < 5; ++i)
            QVERIFY(!option(&dialog, i)->isEnabled());
        for (int i = 0; i < 5; ++i)
            QVERIFY(!option(&dialog, i)->isChecked());

        click(&dialog, "cmdContnr");
        QCOMPARE(dialogs.texts(), QStringList{QStringLiteral("Selecione uma das opções")});
        QCOMPARE(dialogs.last().title, QStringLiteral("Aviso"));
        QVERIFY(!session.objetivo);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));

        click(&dialog, "optCadst");
        click(&dialog, "cmdContnr");
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(session.objetivo, std::optional<int>(0));
        QCOMPARE(shell::storedObjectiveCode(db), std::optional<QString>(QStringLiteral("C")));
        QVERIFY(db.scalar(QStringLiteral("SELECT ADOCMNALTRR FROM TB_VORpMOVMN")).isNull());
        // The first choice leaves the registers as they were.
        QCOMPARE(statuses(db), (QStringList{"2", "3", "4"}));
    }

    void storedObjectiveIsShownAndKeptWithoutAChange() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        addRegisters(db);
        shell::gravaMovmn(db, 2, QDateTime(QDate(2001, 2, 1), QTime(9, 0)));
        testsupport::ScriptedDialogs dialogs;
        ui::Session session;
        shell::ObjectiveDialog dialog(db, session);

        QVERIFY(option(&dialog, 2)->isChecked());
        QVERIFY(option(&dialog, 2)->isEnabled());
        QVERIFY(!option(&dialog, 0)->isEnabled());
        click(&dialog, "cmdContnr");
        QCOMPARE(session.objetivo, std::optional<int>(2));
        QVERIFY(db.scalar(QStringLiteral("SELECT ADOCMNALTRR FROM TB_VORpMOVMN")).isNull());
        QCOMPARE(statuses(db), (QStringList{"2", "3", "4"}));
    }

    void changingTheObjectiveBringsEveryRegisterBackToOne() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        addRegisters(db);
        shell::gravaMovmn(db, 0, QDateTime(QDate(2001, 2, 1), QTime(9, 0)));
        testsupport::ScriptedDialogs dialogs;
        ui::Session session;
        shell::ObjectiveDialog dialog(db, session);
        QVERIFY(option(&dialog, 0)->isChecked());

        click(&dialog, "cmdAltrr");
        QVERIFY(!dialog.findChild<QPushButton*>(QStringLiteral("cmdAltrr"))->isEnabled());
        for (int i = 0; i < 5; ++i)
            QVERIFY(option(&dialog, i)->isEnabled());
        click(&dialog, "optLF");
        click(&dialog, "cmdContnr");

        QCOMPARE(session.objetivo, std::optional<int>(1));
        QCOMPARE(statuses(db), (QStringList{"1", "1", "1"}));
        QSqlQuery row = db.run(QStringLiteral("SELECT IMOVMN, ADOCMNINCLR, ADOCMNALTRR FROM "
                                              "TB_VORpMOVMN"));
        QVERIFY(row.next());
        QCOMPARE(row.value(0).toString(), QStringLiteral("LF"));
        QCOMPARE(row.value(1).toString(), QStringLiteral("2001-02-01 09:00:00"));
        QVERIFY(!row.value(2).isNull());
        QVERIFY(!row.next());
    }

    void closingTheDialogLeavesTheObjective() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        testsupport::ScriptedDialogs dialogs;
        ui::Session session;
        session.objetivo = 3;
        {
            shell::ObjectiveDialog dialog(db, session);
            click(&dialog, "optCadst");
            dialog.reject();
        }
        QCOMPARE(session.objetivo, std::optional<int>(3));
        QVERIFY(!shell::storedObjectiveCode(db));
    }
};

QTEST_MAIN(TestObjective)
#include "test_objective.moc"
