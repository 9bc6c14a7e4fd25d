#include "shell/Hooks.h"
#include "shell/MainWindow.h"
#include "shell/ObjectiveDialog.h"
#include "shell/QuestionnaireFrame.h"
#include "shell/RegisterList.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

namespace {

const QStringList kEntries = {"lblPrenc", "lblManual",    "lblGerco", "lblImprimir",
                              "lblAgenc", "lblSugestoes", "lblImprt", "lblSair"};

QLabel* entry(QWidget* window, const QString& name) {
    return window->findChild<QLabel*>(name);
}

struct WindowUnderTest {
    testsupport::TestEnvironment env;
    store::Database db{env.newDatabasePath()};
    testsupport::ScriptedDialogs dialogs;
    shell::MainWindow window{db};
    QStringList calls;

    WindowUnderTest() {
        shell::resetHooks();
        const auto record = [this](const QString& name) {
            return [this, name](shell::MainWindow&, ui::Session& s) {
                calls << QStringLiteral("%1 %2").arg(name).arg(s.origemSelecao);
            };
        };
        shell::hooks().generateDiskette = record(QStringLiteral("gerco"));
        shell::hooks().printMemorial = record(QStringLiteral("imprimir"));
        shell::hooks().agencies = record(QStringLiteral("agenc"));
        shell::hooks().suggestions = record(QStringLiteral("sugestoes"));
        shell::hooks().importMemorial = record(QStringLiteral("imprt"));
        shell::hooks().openUrl = [this](const QUrl& url) {
            QFile file(url.toLocalFile());
            calls << (file.open(QIODevice::ReadOnly) && file.readAll().contains("<html")
                          ? QStringLiteral("manual")
                          : QStringLiteral("no manual"));
            return true;
        };
        window.show();
        QApplication::setActiveWindow(&window);
        if (!QTest::qWaitForWindowActive(&window))
            qWarning("main window not active");
    }
    ~WindowUnderTest() { shell::resetHooks(); }
};

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private slots:
    void showsTheEntriesInTheirOrder() {
        WindowUnderTest t;
        QCOMPARE(t.window.windowTitle(), QStringLiteral("VOR - Caderno Vorel de Empreendimento"));
        const QStringList captions = {"Preenchimento do Memorial", "Manual de Preenchimento",
                                      "Geração do Disquete",       "Impressão do Memorial",
                                      "Agências Ambientais",       "Sugestões",
                                      "Importação do Memorial",    "Sair"};
        int lastY = -1;
        for (int i = 0; i < kEntries.size(); ++i) {
            QLabel* label = entry(&t.window, kEntries[i]);
            QVERIFY2(label, qPrintable(kEntries[i]));
            QCOMPARE(label->text(), captions[i]);
            const int y = label->mapTo(&t.window, QPoint()).y();
            QVERIFY(y > lastY);
            lastY = y;
        }
        QCOMPARE(entry(&t.window, "Label18")->text(), QStringLiteral("Versão 1.5"));
        for (const char* text : {"Label6", "Label3", "Label5", "Label8", "Label9", "Label11"})
            QVERIFY(!entry(&t.window, QString::fromLatin1(text))->text().isEmpty());
        QVERIFY(
            entry(&t.window, "Label6")->text().contains(QStringLiteral("29 de novembro de 2000")));
        t.window.resize(1024, 740);
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(t.window, QStringLiteral("F1_TelaPrincipal"));
    }

    void keysRunTheirEntries_data() {
        QTest::addColumn<QChar>("key");
        QTest::addColumn<QString>("call");
        QTest::newRow("G") << QChar('G') << "gerco 0";
        QTest::newRow("g") << QChar('g') << "gerco 0";
        QTest::newRow("I") << QChar('I') << "imprimir 0";
        QTest::newRow("i") << QChar('i') << "imprimir 0";
        // Only the export and the printing mark where they were started from.
        QTest::newRow("A") << QChar('A') << "agenc 1";
        QTest::newRow("a") << QChar('a') << "agenc 1";
        QTest::newRow("S") << QChar('S') << "sugestoes 1";
        QTest::newRow("s") << QChar('s') << "sugestoes 1";
        QTest::newRow("M") << QChar('M') << "manual";
        QTest::newRow("m") << QChar('m') << "manual";
    }

    void keysRunTheirEntries() {
        QFETCH(QChar, key);
        QFETCH(QString, call);
        WindowUnderTest t;
        t.window.session().origemSelecao = 1;
        QTest::keyClick(&t.window, key.toLatin1());
        QCOMPARE(t.calls, QStringList{call});
    }

    void clicksRunTheirEntries() {
        WindowUnderTest t;
        for (const char* name : {"lblGerco", "lblManual", "lblAgenc"})
            QTest::mouseClick(entry(&t.window, QString::fromLatin1(name)), Qt::LeftButton);
        QCOMPARE(t.calls, (QStringList{"gerco 0", "manual", "agenc 0"}));
        QVERIFY(!t.window.findChild<QLabel*>(QStringLiteral("lblImprt"))->text().isEmpty());
        QTest::keyClick(&t.window, Qt::Key_F1);
        QCOMPARE(t.calls.last(), QStringLiteral("manual"));
    }

    void aManualThatCannotBeWrittenIsReported() {
        WindowUnderTest t;
        const QString blocker = t.env.path(QStringLiteral("cache-is-a-file"));
        QFile file(blocker);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        qputenv("XDG_CACHE_HOME", blocker.toUtf8());
        QTest::keyClick(&t.window, Qt::Key_F1);
        QVERIFY(t.calls.isEmpty());
        QCOMPARE(t.dialogs.texts(),
                 QStringList{QStringLiteral("Não foi possível abrir o Manual de Preenchimento.")});
        QCOMPARE(t.dialogs.last().icon, ui::Icon::Warning);
    }

    void entriesOpenTheirPanelsOrSayThereIsNoRegister() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        testsupport::ScriptedDialogs dialogs;
        shell::resetHooks();
        shell::MainWindow window(db);
        window.resize(1024, 740);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        auto* pages = window.findChild<QStackedWidget*>();
        QWidget* text = pages->currentWidget();
        for (const char* name : {"lblGerco", "lblImprimir", "lblSugestoes"})
            QTest::mouseClick(entry(&window, QString::fromLatin1(name)), Qt::LeftButton);
        QCOMPARE(dialogs.texts(), QStringList(3, QStringLiteral("É necessário cadastrar o VOR")));
        QCOMPARE(pages->currentWidget(), text);

        QTest::mouseClick(entry(&window, "lblAgenc"), Qt::LeftButton);
        QCoreApplication::processEvents(); // lays the panel out
        testsupport::saveScreenshot(window, QStringLiteral("main-agencies"));
        QCOMPARE(pages->currentWidget()->objectName(), QStringLiteral("PnAviso(0)"));
        auto* back = pages->currentWidget()->findChild<QPushButton*>("Command1");
        QVERIFY(back && back->isVisible());
        QTest::mouseClick(back, Qt::LeftButton);
        QCOMPARE(pages->currentWidget(), text);

        db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, ACADST, "
                              "CSITU) VALUES (101, 1, 'ALFA', 191, '1999-04-20', 1)"));
        QTest::mouseClick(entry(&window, "lblGerco"), Qt::LeftButton);
        QCOMPARE(pages->currentWidget()->objectName(), QStringLiteral("Frame1"));
        QCOMPARE(dialogs.shown().size(), 3);

        // The suggestions panel comes up whole, with its text and buttons, at once.
        QTest::mouseClick(entry(&window, "lblSugestoes"), Qt::LeftButton);
        pages->currentWidget()->findChild<QTableWidget*>()->selectRow(0);
        pages->currentWidget()->findChild<QPushButton*>(QStringLiteral("Command2"))->click();
        QCoreApplication::processEvents();
        QWidget* suggestions = pages->currentWidget();
        QCOMPARE(suggestions->objectName(), QStringLiteral("PnAviso(1)"));
        testsupport::saveScreenshot(window, QStringLiteral("main-suggestions"));
        QCOMPARE(suggestions->geometry(), pages->contentsRect());
        auto* typed = suggestions->findChild<QWidget*>(QStringLiteral("Text1"));
        QVERIFY(typed->isVisible() && typed->height() > 60);
        for (const char* name : {"cmdInsere", "cmdExcluir", "cmdTelaPrincipal"}) {
            auto* b = suggestions->findChild<QPushButton*>(QLatin1String(name));
            QVERIFY2(b->isVisible(), name);
            const QRect shown(b->mapTo(&window, QPoint()), b->size());
            QVERIFY2(window.rect().contains(shown), name);
        }
    }

    void importNeedsTheAccessCode_data() {
        QTest::addColumn<bool>("byKey");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("double click, code") << false << "4QK" << true;
        QTest::newRow("key t, lower-case code") << true << "4qk" << true;
        QTest::newRow("wrong code") << true << "4QX" << false;
        QTest::newRow("empty") << false << "" << false;
    }

    void importNeedsTheAccessCode() {
        QFETCH(bool, byKey);
        QFETCH(QString, typed);
        QFETCH(bool, accepted);
        WindowUnderTest t;
        t.dialogs.type(typed);
        QLabel* imprt = entry(&t.window, "lblImprt");
        QTest::mouseClick(imprt, Qt::LeftButton); // a single click does nothing
        if (byKey)
            QTest::keyClick(&t.window, 't');
        else
            QTest::mouseDClick(imprt, Qt::LeftButton);
        QCOMPARE(t.dialogs.shown().size(), 1);
        QCOMPARE(t.dialogs.last().title,
                 QStringLiteral("VOR - Postos e Sistemas Retalhistas de Combustíveis"));
        QCOMPARE(t.dialogs.last().text, QStringLiteral("Digite a senha:"));
        QCOMPARE(t.calls, accepted ? QStringList{"imprt 0"} : QStringList());
    }

    void pointerOverAnEntryColoursIt() {
        WindowUnderTest t;
        const QColor rest(0x90, 0x30, 0x00), hover(0x00, 0x00, 0x80);
        QLabel* sair = entry(&t.window, "lblSair");
        QLabel* prenc = entry(&t.window, "lblPrenc");
        QWidget* central = t.window.centralWidget();
        const auto moveOver = [](QWidget* w, QPointF at) {
            QMouseEvent move(QEvent::MouseMove, at, w->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                             Qt::NoModifier);
            QApplication::sendEvent(w, &move);
        };
        moveOver(central, QPointF(5, 5));
        for (const QString& name : kEntries)
            QCOMPARE(entry(&t.window, name)->palette().color(QPalette::WindowText), rest);
        moveOver(sair, QPointF(2, 2));
        QCOMPARE(sair->palette().color(QPalette::WindowText), hover);
        QCOMPARE(prenc->palette().color(QPalette::WindowText), rest);
        moveOver(prenc, QPointF(2, 2));
        QCOMPARE(sair->palette().color(QPalette::WindowText), rest);
        QCOMPARE(prenc->palette().color(QPalette::WindowText), hover);
        moveOver(central, QPointF(5, 5));
        QCOMPARE(prenc->palette().color(QPalette::WindowText), rest);
    }

    void rightButtonMovesTheColumn() {
        WindowUnderTest t;
        QWidget* column = t.window.findChild<QWidget*>(QStringLiteral("lbl1"));
        QWidget* central = t.window.centralWidget();
        const int before = column->x();
        QMouseEvent moveLeft(QEvent::MouseMove, QPointF(300, 300),
                             central->mapToGlobal(QPointF(300, 300)), Qt::NoButton, Qt::RightButton,
                             Qt::NoModifier);
        QApplication::sendEvent(central, &moveLeft);
        QCOMPARE(column->x(), before); // not into the text
        QMouseEvent move(QEvent::MouseMove, QPointF(450, 300),
                         central->mapToGlobal(QPointF(450, 300)), Qt::NoButton, Qt::RightButton,
                         Qt::NoModifier);
        QApplication::sendEvent(central, &move);
        QCOMPARE(column->x(), 450);
        QCOMPARE(t.window.findChild<QWidget*>(QStringLiteral("Label11"))->x(), 457);
    }

    void panelsReturnToTheText() {
        WindowUnderTest t;
        for (auto panel :
             {shell::MainWindow::Panel::Agencies, shell::MainWindow::Panel::Suggestions,
              shell::MainWindow::Panel::Chooser, shell::MainWindow::Panel::Export}) {
            t.window.showPanel(panel);
            QVERIFY(t.window.panel(panel)->isVisible());
            QVERIFY(!entry(&t.window, "Label6")->isVisible());
            auto buttons = t.window.panel(panel)->findChildren<QPushButton*>();
            const auto back = std::find_if(buttons.begin(), buttons.end(), [](QPushButton* b) {
                return b->text() == QStringLiteral("Tela Principal");
            });
            QVERIFY(back != buttons.end());
            QTest::mouseClick(*back, Qt::LeftButton);
            QVERIFY(!t.window.panel(panel)->isVisible());
            QVERIFY(entry(&t.window, "Label6")->isVisible());
        }
    }

    // Preenchimento: the objective first, then the questionnaire frame with the list; closing
    // the frame brings the main screen back, and Sair ends everything.
    void questionnaireOpensAfterTheObjective() {
        WindowUnderTest t;
        bool dialogSeen = false;
        QTimer poll;
        poll.setInterval(10);
        connect(&poll, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<shell::ObjectiveDialog*>(QApplication::activeModalWidget());
            if (!dialog || dialogSeen)
                return;
            dialogSeen = true;
            dialog->findChild<QRadioButton*>(QStringLiteral("optCadst"))->click();
            dialog->findChild<QPushButton*>(QStringLiteral("cmdContnr"))->click();
        });
        poll.start();
        QTest::keyClick(&t.window, 'p');
        QVERIFY(dialogSeen);
        QCOMPARE(t.window.session().objetivo, std::optional<int>(0));
        shell::QuestionnaireFrame* frame = t.window.questionnaire();
        QVERIFY(frame);
        QCOMPARE(frame->windowTitle(), QStringLiteral("Caderno Vorel de Empreendimento - [VOR]"));
        QVERIFY(frame->isVisible());
        QVERIFY(qobject_cast<shell::RegisterList*>(frame->currentScreen()));
        const QStringList menus = {frame->menuBar()->actions().value(0)->text(),
                                   frame->menuBar()->actions().value(1)->text()};
        QCOMPARE(menus, (QStringList{"&Arquivo", "&Sair"}));

        frame->menuBar()->actions().value(1)->trigger();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!t.window.questionnaire());
        QVERIFY(t.window.isVisible());
    }

    void sairClosesEverything() {
        WindowUnderTest t;
        QTimer::singleShot(0, [] {
            if (auto* dialog = QApplication::activeModalWidget())
                dialog->close();
        });
        QTest::mouseClick(entry(&t.window, "lblPrenc"), Qt::LeftButton);
        QPointer<shell::QuestionnaireFrame> frame = t.window.questionnaire();
        QVERIFY(frame && frame->isVisible());
        QTest::keyClick(&t.window, 'R');
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!frame);
        QVERIFY(!t.window.isVisible());
    }
};

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
