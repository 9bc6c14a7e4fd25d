#include "establishment/RegisterForm.h"
#include "shell/Hooks.h"
#include "shell/QuestionnaireFrame.h"
#include "shell/RegisterList.h"
#include "shell/RegisterListData.h"
#include "support/RegisterSamples.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/ScreenHost.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

using testsupport::child;

namespace {

const QStringList kSelectionButtons = {"cmdContinuar", "cmdAlterar", "cmdExcluir", "cmdImprm",
                                       "cmdExprt"};

void addRegister(store::Database& db, int nmuncp, int nseqnc, const QString& name,
                 const QVariant& ccgc, const QVariant& csitu) {
    db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, ACADST, CSITU) "
                          "VALUES (?, ?, ?, ?, '1999-04-20', ?)"),
           {nmuncp, nseqnc, name, ccgc, csitu});
}

QStringList column(QTableWidget* grid, int c) {
    QStringList values;
    for (int r = 0; r < grid->rowCount(); ++r)
        values << grid->item(r, c)->text();
    return values;
}

int selectedRow(QTableWidget* grid) {
    const auto ranges = grid->selectedRanges();
    return ranges.isEmpty() ? -1 : ranges.first().topRow();
}

// The questionnaire frame on a scratch database, showing the list.
struct FrameUnderTest {
    testsupport::TestEnvironment env;
    store::Database db{env.newDatabasePath()};
    ui::Session session;
    testsupport::ScriptedDialogs dialogs;
    std::unique_ptr<shell::QuestionnaireFrame> frame;

    FrameUnderTest() { shell::resetHooks(); }
    ~FrameUnderTest() { shell::resetHooks(); }

    void open() {
        frame = std::make_unique<shell::QuestionnaireFrame>(db, session);
        frame->setAttribute(Qt::WA_DeleteOnClose, false);
        frame->showList();
        frame->show();
        QApplication::setActiveWindow(frame.get());
        QVERIFY(QTest::qWaitForWindowActive(frame.get()));
    }
    QWidget* screen() { return frame->currentScreen(); }
    QTableWidget* grid() { return child<QTableWidget>(screen(), "fgrVOR"); }
    void click(const char* name) {
        auto* b = child<QPushButton>(screen(), name);
        QVERIFY2(b->isEnabled(), name);
        QTest::mouseClick(b, Qt::LeftButton);
        QCoreApplication::processEvents();
    }
};

} // namespace

class TestRegisterList : public QObject {
    Q_OBJECT

private slots:
    void statusWords_data() {
        QTest::addColumn<QVariant>("csitu");
        QTest::addColumn<QString>("word");
        QTest::newRow("0") << QVariant(0) << "EM MANUTENÇÃO";
        QTest::newRow("1") << QVariant(1) << "OK";
        QTest::newRow("2") << QVariant(2) << "EXPORTADO";
        QTest::newRow("3") << QVariant(3) << "ENVIADO";
        QTest::newRow("4") << QVariant(4) << "REENVIADO";
        QTest::newRow("outside") << QVariant(7) << "7";
    }

    void statusWords() {
        QFETCH(QVariant, csitu);
        QFETCH(QString, word);
        QCOMPARE(shell::statusWord(csitu), word);
    }

    void listShowsRegistersWithAStatusInTheChosenOrder() {
        FrameUnderTest t;
        addRegister(t.db, 101, 1, QStringLiteral("CHARLIE"), 22, 1);
        addRegister(t.db, 101, 2, QStringLiteral("ALFA"), 33, 2);
        addRegister(t.db, 102, 3, QStringLiteral("BRAVO"), QVariant(), 3);
        addRegister(t.db, 102, 4, QStringLiteral("EM CRIAÇÃO"), 11, QVariant());
        t.open();

        QCOMPARE(column(t.grid(), 1), (QStringList{"ALFA", "BRAVO", "CHARLIE"}));
        QCOMPARE(column(t.grid(), 0), (QStringList{"1010002", "1020003", "1010001"}));
        QCOMPARE(column(t.grid(), 4), (QStringList{"EXPORTADO", "ENVIADO", "OK"}));
        QCOMPARE(column(t.grid(), 3).first(), QStringLiteral("20/04/1999"));
        QCOMPARE(column(t.grid(), 2).first(), QStringLiteral("00.000.000/0000-33"));
        QCOMPARE(selectedRow(t.grid()), 0);
        testsupport::saveScreenshot(*t.frame, QStringLiteral("frmVOR"));

        // By CNPJ, a register without one first.
        QTest::mouseClick(child<QRadioButton>(t.screen(), "Option2"), Qt::LeftButton);
        QCOMPARE(column(t.grid(), 1), (QStringList{"BRAVO", "CHARLIE", "ALFA"}));
    }

    void emptyListLeavesOnlyIncluirAndVoltar() {
        FrameUnderTest t;
        t.open();
        QCOMPARE(t.grid()->rowCount(), 0);
        for (const QString& name : kSelectionButtons)
            QVERIFY2(!child<QPushButton>(t.screen(), qPrintable(name))->isEnabled(),
                     qPrintable(name));
        QVERIFY(child<QPushButton>(t.screen(), "cmdIncluir")->isEnabled());
        QVERIFY(child<QPushButton>(t.screen(), "cmdVoltar")->isEnabled());
        QCOMPARE(testsupport::focusName(), QStringLiteral("cmdIncluir"));

        // Enter on the empty grid creates a register.
        t.grid()->setFocus();
        QTest::keyClick(t.grid(), Qt::Key_Return);
        QVERIFY(qobject_cast<establishment::RegisterForm*>(t.screen()));
        QCOMPARE(t.screen()->windowTitle(),
                 QStringLiteral("Caderno Vorel de Empreendimento - Inclusão"));
        QCOMPARE(t.session.operacao, QStringLiteral("Incluir"));
    }

    void rowLastChosenIsSelectedAgain() {
        FrameUnderTest t;
        for (int i = 1; i <= 3; ++i)
            addRegister(t.db, 101, i, QStringLiteral("POSTO %1").arg(i), i, 1);
        t.session.linhaLista = 9; // past the end: the last row
        t.open();
        QCOMPARE(selectedRow(t.grid()), 2);

        t.session.chaveNova = QStringLiteral("1010002");
        static_cast<shell::RegisterList*>(t.screen())->activate();
        QCOMPARE(selectedRow(t.grid()), 1);
        QVERIFY(t.session.chaveNova.isEmpty());
    }

    void buttonsCallTheirHooksForTheSelectedRegister() {
        FrameUnderTest t;
        addRegister(t.db, 101, 1, QStringLiteral("ALFA"), 1, 1);
        addRegister(t.db, 102, 2, QStringLiteral("BRAVO"), 2, 2);
        QStringList calls;
        shell::hooks().exportRegister = [&](shell::QuestionnaireFrame&, ui::Session& s,
                                            const store::RegisterKey& k) {
            calls << QStringLiteral("export %1 %2").arg(k.code()).arg(s.origemSelecao);
        };
        shell::hooks().printRegister = [&](shell::QuestionnaireFrame&, ui::Session& s,
                                           const store::RegisterKey& k) {
            calls << QStringLiteral("print %1 %2").arg(k.code()).arg(s.origemSelecao);
        };
        shell::hooks().continueChain = [&](shell::QuestionnaireFrame&, ui::Session& s) {
            calls << QStringLiteral("chain %1 %2 %3 %4")
                         .arg(s.key().code(), s.razaoSocial, s.operacao, s.marcaContinuar);
        };
        t.open();
        t.grid()->selectRow(1);
        t.click("cmdExprt");
        t.session.origemSelecao = 0;
        t.click("cmdImprm");
        t.click("cmdContinuar");
        QCOMPARE(calls, (QStringList{"export 1020002 1", "print 1020002 1",
                                     "chain 1020002 BRAVO Alterar M"}));
        QCOMPARE(t.session.ainfrm, QDate(1999, 4, 20));
        QCOMPARE(t.session.linhaLista, 2);
    }

    void printingAsksFirstAndContinuarGoesOnToTheNextBuiltScreen() {
        FrameUnderTest t;
        addRegister(t.db, 101, 1, QStringLiteral("ALFA"), 1, 1);
        // A stand-in for the first screen of the chain after the list that this library knows.
        ui::ScreenRegistry::instance().add(
            QStringLiteral("frmPostoRespnContt"), [](ui::ScreenHost&, const ui::Sequence::Place&) {
                auto* screen = new QWidget;
                screen->setObjectName(QStringLiteral("frmPostoRespnContt"));
                return screen;
            });
        t.open();
        t.dialogs.answer(false);
        t.click("cmdImprm");
        QCOMPARE(t.dialogs.texts(), QStringList{"Confirma a Impressão do Memorial?"});
        QCOMPARE(t.screen()->objectName(), QStringLiteral("frmVOR"));
        t.click("cmdContinuar");
        QCoreApplication::processEvents();
        QCOMPARE(t.screen()->objectName(), QStringLiteral("frmPostoRespnContt"));
        QCOMPARE(t.session.razaoSocial, QStringLiteral("ALFA"));
    }

    void deleteRemovesTheWholeRegisterOnlyWhenConfirmed() {
        FrameUnderTest t;
        addRegister(t.db, 101, 1, QStringLiteral("ALFA"), 1, 4);
        addRegister(t.db, 101, 2, QStringLiteral("BRAVO"), 2, 1);
        addRegister(t.db, 101, 3, QStringLiteral("CHARLIE"), 3, 2);
        const store::RegisterKey bravo{101, 2}, charlie{101, 3};
        testsupport::insertSatellites(t.db, bravo);
        testsupport::insertSatellites(t.db, charlie);
        t.open();
        t.grid()->selectRow(1);

        t.dialogs.answer(false);
        t.click("cmdExcluir");
        QCOMPARE(t.dialogs.last().text, QStringLiteral("Confirma a Exclusão ?"));
        QCOMPARE(t.dialogs.last().icon, ui::Icon::Question);
        QVERIFY(t.dialogs.last().defaultNo);
        QCOMPARE(testsupport::registerRows(t.db, bravo), 6);

        t.dialogs.answer(true);
        t.click("cmdExcluir");
        QCOMPARE(testsupport::registerRows(t.db, bravo), 0);
        QCOMPARE(testsupport::registerRows(t.db, charlie), 6);
        QCOMPARE(column(t.grid(), 1), (QStringList{"ALFA", "CHARLIE"}));
        QCOMPARE(selectedRow(t.grid()), 0);
        // Right after a delete a status above 2 stays a digit until the list is shown again.
        QCOMPARE(column(t.grid(), 4), (QStringList{"4", "EXPORTADO"}));
        static_cast<shell::RegisterList*>(t.screen())->activate();
        QCOMPARE(column(t.grid(), 4), (QStringList{"REENVIADO", "EXPORTADO"}));

        t.dialogs.answer(true);
        t.click("cmdExcluir");
        t.dialogs.answer(true);
        t.click("cmdExcluir");
        QCOMPARE(t.grid()->rowCount(), 0);
        for (const QString& name : kSelectionButtons)
            QVERIFY(!child<QPushButton>(t.screen(), qPrintable(name))->isEnabled());
    }

    void aFailedDeleteLeavesTheWholeRegister() {
        FrameUnderTest t;
        addRegister(t.db, 101, 1, QStringLiteral("ALFA"), 1, 1);
        const store::RegisterKey alfa{101, 1};
        t.db.run(QStringLiteral("INSERT INTO TB_POSTO (NMUNCP, NSEQNC) VALUES (101, 1)"));
        testsupport::insertSatellites(t.db, alfa);
        // The engine refuses the delete of the general characteristics, late in the cascade.
        t.db.run(QStringLiteral("CREATE TRIGGER refuse BEFORE DELETE ON TB_POSTO BEGIN "
                                "SELECT RAISE(ABORT, 'refused'); END"));
        t.open();
        t.dialogs.answer(true);
        t.click("cmdExcluir");
        QCOMPARE(t.dialogs.shown().size(), 2); // the question and the error routine's message
        QCOMPARE(testsupport::registerRows(t.db, alfa), 7);
        QCOMPARE(t.grid()->rowCount(), 1);
    }

    // A register created, listed, changed back to status 1 and deleted, all through the screens.
    void registerLifecycle() {
        FrameUnderTest t;
        t.session.objetivo = ui::Session::Cadastro;
        addRegister(t.db, 101, 1, QStringLiteral("ZULU"), 5, 1);
        t.open();

        t.click("cmdIncluir");
        auto* form = qobject_cast<establishment::RegisterForm*>(t.screen());
        QVERIFY(form);
        const auto f = testsupport::completeFields();
        const auto set = [&](const char* name, const QString& text) {
            child<QLineEdit>(form, name)->setText(text);
        };
        set("txtDRAZAOSOCIL", f.razaoSocial);
        set("txtDBANDR", f.bandeira);
        set("txtDLOGRD", f.logradouro);
        set("txtNLOGRD", f.numero);
        set("txtCCEP", f.cep);
        auto* combo = child<QComboBox>(form, "cmbDMUNCP");
        combo->setCurrentIndex(combo->findData(testsupport::kAdamantina));
        set("txtndddemprs", f.ddd);
        set("txtntelfnemprs", f.telefone);
        set("txtcCnpj", f.cnpj);
        set("txtNANP", f.anp);
        set("mskACADST", f.inicioAtividades);
        set("mskALEVNT", f.levantamento);
        QTest::mouseClick(child<QPushButton>(form, "cmkOk"), Qt::LeftButton);
        QCoreApplication::processEvents();
        QCOMPARE(t.dialogs.texts(), QStringList());

        // Back in the list, the new register selected.
        QVERIFY(qobject_cast<shell::RegisterList*>(t.screen()));
        QCOMPARE(column(t.grid(), 1), (QStringList{f.razaoSocial, "ZULU"}));
        QCOMPARE(selectedRow(t.grid()), 0);
        QCOMPARE(t.grid()->item(0, 0)->text(), QStringLiteral("1010002"));
        QCOMPARE(t.grid()->item(0, 4)->text(), QStringLiteral("OK"));

        // Exported, then changed: to be exported again.
        t.db.run(QStringLiteral("UPDATE EMPRS SET CSITU = 2 WHERE NSEQNC = 2"));
        static_cast<shell::RegisterList*>(t.screen())->activate();
        QCOMPARE(t.grid()->item(0, 4)->text(), QStringLiteral("EXPORTADO"));
        const QPoint cell = t.grid()->visualItemRect(t.grid()->item(0, 1)).center();
        QTest::mouseClick(t.grid()->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(t.grid()->viewport(), Qt::LeftButton, {}, cell);
        form = qobject_cast<establishment::RegisterForm*>(t.screen());
        QVERIFY(form);
        QCOMPARE(form->windowTitle(),
                 QStringLiteral("Caderno Vorel de Empreendimento - Alteração"));
        QCOMPARE(child<QLineEdit>(form, "txtDRAZAOSOCIL")->text(), f.razaoSocial);
        set("txtDFANTS", QStringLiteral("NOVO NOME"));
        QTest::mouseClick(child<QPushButton>(form, "cmkOk"), Qt::LeftButton);
        QCoreApplication::processEvents();
        QCOMPARE(t.dialogs.texts(), QStringList());
        QCOMPARE(t.grid()->item(0, 4)->text(), QStringLiteral("OK"));
        QCOMPARE(selectedRow(t.grid()), 0);

        // Deleted with what the other screens wrote.
        const store::RegisterKey key{testsupport::kAdamantina, 2};
        testsupport::insertSatellites(t.db, key);
        t.dialogs.answer(true);
        t.click("cmdExcluir");
        QCOMPARE(testsupport::registerRows(t.db, key), 0);
        QCOMPARE(column(t.grid(), 1), QStringList{"ZULU"});

        // Voltar ends the questionnaire.
        t.click("cmdVoltar");
        QVERIFY(!t.frame->isVisible());
    }
};

QTEST_MAIN(TestRegisterList)
#include "test_register_list.moc"
