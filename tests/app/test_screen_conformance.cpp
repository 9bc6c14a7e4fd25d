// Every screen of the chain, as registered: the fields it declares name the catalogue's columns,
// stay within what the exchange carries, come back whole from a row, and are refused empty in
// their order. New screens are checked as soon as they are registered.
#include "app/Screens.h"
#include "support/Conformance.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"
#include "ui/FormScreen.h"
#include "ui/ListScreen.h"

#include <QTest>

using namespace testsupport;

class TestScreenConformance : public QObject, private ScreenDriver {
    Q_OBJECT

    // The screen's entry forms: a list opens its maintenance screen on the first level, a single
    // form opens for editing.
    void openForEditing() {
        const auto button = [&](const char* name) {
            return screen()->findChild<QPushButton*>(QString::fromLatin1(name));
        };
        if (qobject_cast<ui::ListScreen*>(screen()) || qobject_cast<ui::FormScreen*>(screen())) {
            if (QPushButton* include = button("cmdIncluir"); include && include->isEnabled())
                include->click();
            else if (QPushButton* alter = button("cmdAlterar"); alter && alter->isEnabled())
                alter->click();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private slots:
    void initTestCase() { app::registerScreens(); }
    void init() {
        start();
        seedRow(db(), "EMPRS",
                onRegister({{"DRAZAOSOCIL", "AUTO POSTO TESTE LTDA"}, {"CCGC", 12345678000195LL}}));
        seedRow(db(), "TB_POSTO", onRegister({{"ILOCLZATIVD", "N"}}));
    }
    void cleanup() { stop(); }

    void conforms_data() {
        QTest::addColumn<QString>("name");
        for (const QString& name : ui::Sequence::screens()) {
            // The register list is the frame's own screen; its register form is checked apart.
            if (name != QLatin1String("frmVOR") && ui::ScreenRegistry::instance().contains(name))
                QTest::newRow(qPrintable(name)) << name;
        }
    }
    void conforms() {
        QFETCH(QString, name);
        ui::showPlace(*m_host, {name, ui::Sequence::Role::Underground});
        QVERIFY(screen());
        openForEditing();
        const QList<const ui::FieldSet*> sets = ui::FieldSet::of(screen());
        for (const ui::FieldSet* set : sets) {
            checkDeclarations(*set);
            if (QTest::currentTestFailed())
                return;
            checkRequiredOrder(*set);
            if (QTest::currentTestFailed())
                return;
            checkRoundTrip(*set);
            if (QTest::currentTestFailed())
                return;
        }
    }
};

QTEST_MAIN(TestScreenConformance)
#include "test_screen_conformance.moc"
