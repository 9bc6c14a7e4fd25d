// Every screen of the program at the smallest screen it supports: its buttons in sight, its grid
// headings whole, and every input named for assistive technology. The screens come from the
// registry, so that each screen added to the chain is walked without a change here.
#include "app/Screens.h"
#include "shell/Hooks.h"
#include "shell/MainWindow.h"
#include "shell/QuestionnaireFrame.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/Seeds.h"
#include "support/TestEnvironment.h"
#include "ui/ScreenHost.h"
#include "ui/Session.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QTest>

namespace {

const QSize kSmallest(800, 600);

QString nameOf(const QObject* o) {
    QStringList path;
    for (; o; o = o->parent()) {
        if (!o->objectName().isEmpty()) {
            path.prepend(o->objectName());
            if (path.size() == 2)
                break;
        }
    }
    return path.join(QLatin1Char('/')) + QStringLiteral(" (") +
           QString::fromLatin1(o ? o->metaObject()->className() : "") + QLatin1Char(')');
}

// Buttons that a user at 800x600 cannot reach: hidden by the window's edge or by the frame of a
// block around them.
QStringList buttonsOutOfSight(QWidget* screen) {
    QStringList out;
    for (QPushButton* b : screen->findChildren<QPushButton*>()) {
        if (!b->isVisible())
            continue;
        const QRect seen = b->visibleRegion().boundingRect();
        if (seen != b->rect())
            out << nameOf(b);
    }
    return out;
}

// Grid columns narrower than their heading.
QStringList cutHeadings(QWidget* screen) {
    QStringList out;
    for (QTableView* grid : screen->findChildren<QTableView*>()) {
        if (!grid->isVisible())
            continue;
        QHeaderView* header = grid->horizontalHeader();
        for (int c = 0; c < header->count(); ++c) {
            if (header->isSectionHidden(c) || header->sectionSize(c) == 0)
                continue;
            if (header->sectionSize(c) < header->sectionSizeHint(c))
                out << nameOf(grid) + QStringLiteral(" column ") +
                           grid->model()->headerData(c, Qt::Horizontal).toString();
        }
    }
    return out;
}

bool isInput(QAccessible::Role role) {
    switch (role) {
    case QAccessible::EditableText:
    case QAccessible::ComboBox:
    case QAccessible::SpinBox:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::Table:
    case QAccessible::List:
    case QAccessible::Tree:
        return true;
    default:
        return false;
    }
}

// Inputs that an accessibility client finds without a name, walking the tree as it would.
void unnamedInputs(QAccessibleInterface* node, QStringList& out) {
    if (!node || !node->isValid())
        return;
    const QAccessible::Role role = node->role();
    if (isInput(role)) {
        if (node->text(QAccessible::Name).trimmed().isEmpty())
            out << nameOf(node->object());
        // The cells of a grid, the list of a combo box and the editor of a spin box are parts of
        // the named input.
        return;
    }
    for (int i = 0; i < node->childCount(); ++i)
        unnamedInputs(node->child(i), out);
}

QStringList unnamedInputs(QWidget* screen) {
    QStringList out;
    unnamedInputs(QAccessible::queryAccessibleInterface(screen), out);
    return out;
}

struct Faults {
    QStringList buttons, headings, names;
};

Faults faultsOf(QWidget* screen) {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    return {buttonsOutOfSight(screen), cutHeadings(screen), unnamedInputs(screen)};
}

#define CHECK_FAULTS(screen, label)                                                                \
    do {                                                                                           \
        const Faults f = faultsOf(screen);                                                         \
        QVERIFY2(f.buttons.isEmpty(),                                                              \
                 qPrintable(label + QStringLiteral(": buttons out of sight: ") +                   \
                            f.buttons.join(QStringLiteral(", "))));                                \
        QVERIFY2(f.headings.isEmpty(), qPrintable(label + QStringLiteral(": cut headings: ") +     \
                                                  f.headings.join(QStringLiteral(", "))));         \
        QVERIFY2(f.names.isEmpty(), qPrintable(label + QStringLiteral(": inputs without name: ") + \
                                               f.names.join(QStringLiteral(", "))));               \
    } while (false)

} // namespace

class TestScreensFit : public QObject {
    Q_OBJECT

    std::unique_ptr<testsupport::TestEnvironment> m_env;
    std::unique_ptr<store::Database> m_db;
    ui::Session m_session;

private slots:
    void initTestCase() { app::registerScreens(); }

    void init() {
        m_env = std::make_unique<testsupport::TestEnvironment>();
        m_db = std::make_unique<store::Database>(m_env->newDatabasePath());
        testsupport::seedRow(*m_db, "EMPRS",
                             testsupport::onRegister({{"DRAZAOSOCIL", "AUTO POSTO TESTE LTDA"},
                                                      {"CCGC", 11222333000181LL},
                                                      {"ACADST", "2024-01-10"},
                                                      {"CSITU", 1}}));
        m_session = {};
        m_session.nmuncp = 100;
        m_session.nseqnc = 1;
        m_session.ainfrm = QDate(2024, 1, 10);
        m_session.razaoSocial = QStringLiteral("AUTO POSTO TESTE LTDA");
        m_session.objetivo = 0;
        shell::resetHooks();
    }
    void cleanup() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_db.reset();
        m_env.reset();
    }

    void everyScreenOfTheChain_data() {
        QTest::addColumn<QString>("screen");
        QTest::addColumn<int>("role");
        QStringList names = ui::ScreenRegistry::instance().names();
        names.sort();
        QVERIFY(names.contains(QStringLiteral("frmVOR")));
        for (const QString& name : names) {
            QTest::newRow(qPrintable(name)) << name << int(ui::Sequence::Role::None);
            if (name == QLatin1String("frmPostoContrEstq"))
                QTest::newRow(qPrintable(name + QStringLiteral(" aéreo")))
                    << name << int(ui::Sequence::Role::Aboveground);
        }
    }

    void everyScreenOfTheChain() {
        QFETCH(QString, screen);
        QFETCH(int, role);
        testsupport::ScriptedDialogs dialogs;
        auto* frame = new shell::QuestionnaireFrame(*m_db, m_session);
        frame->resize(kSmallest);
        frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(frame));
        QWidget* shown = ui::showPlace(*frame, {screen, ui::Sequence::Role(role)});
        QVERIFY(shown);
        QCOMPARE(frame->size(), kSmallest);
        testsupport::saveScreenshot(*frame, QStringLiteral("800x600-") + screen);
        CHECK_FAULTS(frame, screen);
        frame->setAttribute(Qt::WA_DeleteOnClose, false);
        delete frame;
    }

    // The register form, over the list, as Incluir opens it.
    void theRegisterForm() {
        testsupport::ScriptedDialogs dialogs;
        shell::QuestionnaireFrame frame(*m_db, m_session);
        frame.setAttribute(Qt::WA_DeleteOnClose, false);
        frame.resize(kSmallest);
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        frame.showList();
        QCoreApplication::processEvents();
        frame.currentScreen()->findChild<QPushButton*>(QStringLiteral("cmdIncluir"))->click();
        QCoreApplication::processEvents();
        QWidget* form = frame.currentScreen();
        QVERIFY(form && form->objectName() != QLatin1String("frmVOR"));
        testsupport::saveScreenshot(frame, QStringLiteral("800x600-") + form->objectName());
        CHECK_FAULTS(&frame, form->objectName());
    }

    // The main screen with each of its panels.
    void theMainScreenAndItsPanels() {
        testsupport::ScriptedDialogs dialogs;
        shell::MainWindow window(*m_db);
        window.resize(kSmallest);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        CHECK_FAULTS(&window, QStringLiteral("frmPrincipal"));
        using P = shell::MainWindow::Panel;
        for (P panel : {P::Agencies, P::Suggestions, P::Chooser, P::Export}) {
            window.showPanel(panel);
            const QString name = window.panel(panel)->objectName();
            testsupport::saveScreenshot(window, QStringLiteral("800x600-main-") + name);
            CHECK_FAULTS(&window, name);
        }
    }
};

QTEST_MAIN(TestScreensFit)
#include "test_screens_fit.moc"
