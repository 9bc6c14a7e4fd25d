// Leaving the questionnaire's screens through the frame never drops unsaved input without a
// question.
#include "app/Screens.h"
#include "shell/QuestionnaireFrame.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/ListScreen.h"
#include "ui/Session.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace testsupport;

class TestQuestionnaireFrame : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnvironment> m_env;
    std::unique_ptr<store::Database> m_db;
    ui::Session m_session;
    QPointer<shell::QuestionnaireFrame> m_frame;
    std::unique_ptr<ScriptedDialogs> m_dialogs;

    QWidget* current() { return m_frame->currentScreen(); }

    // A new tank half typed in.
    void startTyping() {
        ui::showPlace(*m_frame, {QStringLiteral("frmTanqu")});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        current()->findChild<QPushButton*>(QStringLiteral("cmdIncluir"))->click();
        QCOMPARE(current()->objectName(), QStringLiteral("frmTanquM"));
        current()
            ->findChild<QLineEdit*>(QStringLiteral("txtNIDENT"))
            ->setText(QStringLiteral("TQ"));
    }

    void menuArquivo() {
        m_frame->findChild<QAction*>(QStringLiteral("zMenuArquivo"))->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private slots:
    void initTestCase() { app::registerScreens(); }

    void init() {
        m_env = std::make_unique<TestEnvironment>();
        m_db = std::make_unique<store::Database>(m_env->newDatabasePath());
        m_session = {};
        m_session.nmuncp = 100;
        m_session.nseqnc = 1;
        m_session.ainfrm = QDate(2024, 1, 10);
        m_dialogs = std::make_unique<ScriptedDialogs>();
        m_frame = new shell::QuestionnaireFrame(*m_db, m_session);
        m_frame->show();
    }
    void cleanup() {
        delete m_frame.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_dialogs.reset();
        m_db.reset();
        m_env.reset();
    }

    void theMenuAsksBeforeDroppingInput() {
        startTyping();
        m_dialogs->answer(false);
        menuArquivo();
        QCOMPARE(m_dialogs->texts().size(), 1);
        QCOMPARE(current()->objectName(), QStringLiteral("frmTanquM"));
        QCOMPARE(current()->findChild<QLineEdit*>(QStringLiteral("txtNIDENT"))->text(),
                 QStringLiteral("TQ"));

        m_dialogs->answer(true);
        menuArquivo();
        QCOMPARE(current()->objectName(), QStringLiteral("frmVOR"));
    }

    void nothingTypedNothingAsked() {
        ui::showPlace(*m_frame, {QStringLiteral("frmTanqu")});
        current()->findChild<QPushButton*>(QStringLiteral("cmdIncluir"))->click();
        menuArquivo();
        QVERIFY(m_dialogs->texts().isEmpty());
        QCOMPARE(current()->objectName(), QStringLiteral("frmVOR"));
    }

    // A forced chain left through the menu or by closing the frame is over: no compartment
    // stays due for the next insert to count down.
    void leavingAForcedChainEndsIt() {
        m_db->run(QStringLiteral("Insert Into TB_POSTOTANQU (NMUNCP, NSEQNC, AINFRM, ITANQU,"
                                 " NTANQU, NIDENT, AINSTL, NMATRL, QCOMPRT, IPROPR, ITESTEESTNQ,"
                                 " ISITCA) Values (100, 1, '2024-01-10', 'S', 1, 'TQ',"
                                 " '2005-06-01', 4, 3, 'D', 'ND', 'A')"));
        for (const bool close : {false, true}) {
            ui::showPlace(*m_frame, {QStringLiteral("frmTanqu")});
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            // The state a new tank of three compartments leaves behind it.
            m_session.pendentes = 3;
            qobject_cast<ui::ListScreen*>(current())->forceDetailInsert();
            QCOMPARE(current()->objectName(), QStringLiteral("frmTanquM"));
            QCOMPARE(m_session.operacaoItem, QStringLiteral("Incluir Compartimento"));
            QVERIFY(!current()->findChild<QPushButton*>(QStringLiteral("cmdFechar"))->isEnabled());
            if (close) {
                QVERIFY(m_frame->close());
            } else {
                menuArquivo();
                QCOMPARE(current()->objectName(), QStringLiteral("frmVOR"));
            }
            QCOMPARE(m_session.pendentes, 0);
        }
    }

    void closingTheWindowAsksToo() {
        startTyping();
        m_dialogs->answer(false);
        QVERIFY(!m_frame->close());
        QVERIFY(m_frame->isVisible());
        m_dialogs->answer(true);
        QVERIFY(m_frame->close());
    }
};

QTEST_MAIN(TestQuestionnaireFrame)
#include "test_questionnaire_frame.moc"
