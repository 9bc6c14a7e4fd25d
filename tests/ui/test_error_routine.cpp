#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/ErrorRoutine.h"

#include <QApplication>
#include <QTest>

namespace {
const QString kInsert =
    QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL) VALUES (?, ?, ?)");
const QString kAdvice = QStringLiteral(
    ". O que recomendamos neste caso é Anotar o Numero do Erro, Cancelar a Operacao e "
    "comunicar-se com o Depto de Informática. Voce deseja cancelar esta operação ?");
} // namespace

class TestErrorRoutine : public QObject {
    Q_OBJECT

private slots:
    void duplicateRegisterShowsMessageAndKeepsNothing() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        store::Database db(env.newDatabasePath());
        db.run(kInsert, {100, 1, QStringLiteral("PRIMEIRO")});

        QApplication::setOverrideCursor(Qt::WaitCursor);
        const bool completed = ui::runGuarded([&] {
            store::Transaction transaction(db);
            db.run(kInsert, {100, 2, QStringLiteral("SEGUNDO")});
            db.run(kInsert, {100, 1, QStringLiteral("REPETIDO")});
            transaction.commit();
        });

        QVERIFY(!completed);
        QCOMPARE(dialogs.shown().size(), 1);
        QCOMPARE(dialogs.last().title, QStringLiteral("VOR"));
        QVERIFY(dialogs.last().text.endsWith(
            QStringLiteral("-Fonte : SQLite\nTentativa de inserir um registro já existente.")));
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 1);
        QVERIFY(!db.inTransaction());
        QVERIFY(!QApplication::overrideCursor()); // the pointer is back to normal
    }

    void unexpectedFailureAsksToCancel_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<bool>("cancel");
        QTest::newRow("disk error, cancel") << 57 << true;
        QTest::newRow("disk error, go on") << 57 << false;
        // Numbers from 3000 on used to end the program; they ask like any other.
        QTest::newRow("3000 and more") << 3022 << true;
        QTest::newRow("2446") << 2446 << false;
    }

    void unexpectedFailureAsksToCancel() {
        QFETCH(int, number);
        QFETCH(bool, cancel);
        testsupport::ScriptedDialogs dialogs;
        dialogs.answer(cancel);
        const bool goOn =
            ui::reportFailure(store::Failure::other(number, QStringLiteral("Erro de disco")));
        QCOMPARE(goOn, !cancel);
        QCOMPARE(dialogs.last().title, QStringLiteral("Atenção"));
        QCOMPARE(dialogs.last().text, QStringLiteral("Anote este Numero : <") +
                                          QString::number(number) +
                                          QStringLiteral("> : Erro de disco") + kAdvice);
    }

    void guardedOperationStopsOnAnyException() {
        testsupport::ScriptedDialogs dialogs;
        dialogs.answer(false);
        bool reachedTheEnd = false;
        const bool completed = ui::runGuarded([&] {
            throw std::runtime_error("falha");
            reachedTheEnd = true;
        });
        QVERIFY(!completed);
        QVERIFY(!reachedTheEnd);
        QCOMPARE(dialogs.last().text, QStringLiteral("Anote este Numero : <51> : falha") + kAdvice);
    }
};

QTEST_MAIN(TestErrorRoutine)
#include "test_error_routine.moc"
