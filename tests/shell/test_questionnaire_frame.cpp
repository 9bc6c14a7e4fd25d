// Leaving the questionnaire's screens through the frame never drops unsaved input without a
// question.
#include "app/Screens.h"
#include "shell/QuestionnaireFrame.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
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
