// The list screen hands a maintenance screen what its grid shows and what is stored beneath.
#include "support/FakeHost.h"
#include "support/ScriptedDialogs.h"
#include "support/Seeds.h"
#include "support/TestEnvironment.h"
#include "ui/ListScreen.h"
#include "ui/Session.h"

#include <QTableWidget>
#include <QTest>

using namespace testsupport;

class TestListSelection : public QObject {
    Q_OBJECT

private slots:
    void theSelectionCarriesTheStoredCodes() {
        ScriptedDialogs dialogs;
        TestEnvironment env;
        FakeHost host(env.newDatabasePath());
        host.session().nmuncp = 100;
        host.session().nseqnc = 1;
        seedRow(host.database(), "TB_POSTOEFLNTLIQDO",
                onRegister({{"IEFLNTLIQDO", "S"}, {"QEFLNTLIQDO", 2.5}}));
        seedRow(host.database(), "TB_POSTOEFLNTLIQDO",
                onRegister({{"IEFLNTLIQDO", "D"}, {"QEFLNTLIQDO", 1}}));

        ui::ListDefinition def;
        def.name = "frmLista";
        ui::ListLevel level;
        level.gridName = "fgrLista";
        // Two codes under one caption: only the stored value tells the rows apart.
        level.columns = {
            {"Tipo", 100, ui::GridColumn::Kind::Text, {{"D", "Esgoto"}, {"S", "Esgoto"}}},
            {"Quantidade", 100}};
        level.query = [](const ui::Session& s, const QStringList&) {
            return ui::Query{"Select IEFLNTLIQDO, QEFLNTLIQDO From TB_POSTOEFLNTLIQDO"
                             " Where NMUNCP = ? And NSEQNC = ? Order By IEFLNTLIQDO",
                             {s.nmuncp, s.nseqnc}};
        };
        def.levels = {level};
        auto* list = new ui::ListScreen(host, def);
        host.showScreen(list);
        list->enter();

        QCOMPARE(list->selection().main, QStringList({"Esgoto", "1"}));
        QCOMPARE(list->selection().mainStored.value(0).toString(), QStringLiteral("D"));
        list->grid(0)->setCurrentCell(1, 0);
        QCOMPARE(list->selection().main.value(0), QStringLiteral("Esgoto"));
        QCOMPARE(list->selection().mainStored.value(0).toString(), QStringLiteral("S"));
        QCOMPARE(list->selection().mainStored.value(1).toDouble(), 2.5);
    }
};

QTEST_MAIN(TestListSelection)
#include "test_list_selection.moc"
