// The list screen's grids as the user reads them (decimals with a comma, times), the rows the
// program keeps itself, which no way of reaching them opens, and the change check of boxes and
// options on a maintenance screen.
#include "support/ScreenDriver.h"
#include "ui/FieldSet.h"
#include "ui/ListScreen.h"
#include "ui/MaintenanceScreen.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>

using namespace testsupport;

namespace {

// A maintenance screen of one check box and one pair of options on the stock-control table.
class BoxesScreen : public ui::MaintenanceScreen {
public:
    explicit BoxesScreen(ui::ScreenHost& host)
        : ui::MaintenanceScreen(host, QStringLiteral("frmLista"),
                                {{QStringLiteral("Incluir"), 0, true, true},
                                 {QStringLiteral("Alterar"), 0, false, true}})
        , m_fields("TB_POSTOCONTRESTQU", this) {
        setObjectName(QStringLiteral("frmListaM"));
        m_fields.add({.name = QStringLiteral("chkSLMC"),
                      .label = QStringLiteral("LMC"),
                      .kind = ui::FieldKind::Check,
                      .column = "SLMC"});
        m_fields.add({.name = QStringLiteral("optSATULZ"),
                      .label = QStringLiteral("Atualizado?"),
                      .kind = ui::FieldKind::Choice,
                      .column = "SATULZ",
                      .codes = "SIMNAO"});
        for (QWidget* w : m_fields.widgets())
            body()->addWidget(w);
    }

protected:
    void prepare() override {}
    void copyFromList(const ui::ListSelection&) override {}
    QWidget* arrangePanels() override { return m_fields.widget(QStringLiteral("chkSLMC")); }
    QString newKey() const override { return {}; }
    QList<QWidget*> snapshotFields() const override { return m_fields.shownWidgets(); }
    ui::Check validate() override { return {}; }
    void write(store::Database&) override {}

private:
    ui::FieldSet m_fields;
};

} // namespace

class TestListScreen : public QObject, private ScreenDriver {
    Q_OBJECT

    int m_opened = 0;

    // A list of products with a total row between them, and the stored forms of a decimal
    // and a time.
    ui::ListDefinition productList() {
        ui::ListDefinition def;
        def.name = QStringLiteral("frmLista");
        def.caption = QStringLiteral("Lista");
        ui::ListLevel level;
        level.gridName = QStringLiteral("fgrLista");
        level.frameTitle = QStringLiteral("Produtos");
        level.columns = {
            {QStringLiteral("Produto"), 200},
            {QStringLiteral("Quantidade"), 100, ui::GridColumn::Kind::Decimal},
            {QStringLiteral("Hora"), 80, ui::GridColumn::Kind::Time},
            {QStringLiteral("Código"), 0},
        };
        level.query = [](const ui::Session&, const QStringList&) {
            return ui::Query{
                QStringLiteral("Select 'Gasolina Comum', 1234.5, '08:05:00', 101"
                               " Union All Select 'Total de Gasolinas', 1234.5, Null, 109"
                               " Union All Select 'Querosene', 0.125, '23:59:00', 130"
                               " Union All Select 'TOTAL EM CAPITAIS', 7, 'texto', 999"),
                {}};
        };
        level.insertOperation = QStringLiteral("Incluir");
        level.alterOperation = QStringLiteral("Alterar");
        level.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado?");
        level.cascade = [](store::Database&, const ui::Session&, const ui::ListSelection&) {};
        level.fixedRow = [](const QStringList& row) {
            return row.value(0).startsWith(QLatin1String("Total"), Qt::CaseInsensitive);
        };
        def.levels = {level};
        def.maintenance = [this](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
            ++m_opened;
            return new BoxesScreen(host);
        };
        return def;
    }

    ui::ListScreen* openList() {
        auto* list = new ui::ListScreen(*m_host, productList());
        m_host->showScreen(list);
        list->enter();
        return list;
    }

    bool canChange() {
        return button(QStringLiteral("cmdAlterar"))->isEnabled() &&
               button(QStringLiteral("cmdExcluir"))->isEnabled();
    }
    bool cannotChange() {
        return !button(QStringLiteral("cmdAlterar"))->isEnabled() &&
               !button(QStringLiteral("cmdExcluir"))->isEnabled();
    }

private slots:
    void init() {
        start();
        m_opened = 0;
    }
    void cleanup() { stop(); }

    void decimalsAndTimesAreShownAsTheUserTypesThem() {
        openList();
        QCOMPARE(column(QStringLiteral("fgrLista"), 1),
                 QStringList({"1234,50", "1234,50", "0,13", "7,00"}));
        // A time as hh:mm; an empty one blank; a text that is no time as it is.
        QCOMPARE(column(QStringLiteral("fgrLista"), 2),
                 QStringList({"08:05", "", "23:59", "texto"}));
        // A column of width 0 is not shown, but its cells go with the selected row.
        QVERIFY(find<QTableWidget>(QStringLiteral("fgrLista"))->isColumnHidden(3));
        selectRow(QStringLiteral("fgrLista"), 3);
        QCOMPARE(m_host->current<ui::ListScreen>()->selection().main.value(3),
                 QStringLiteral("130"));
    }

    void aFixedRowIsShutWhicheverWayItIsReached() {
        ui::ListScreen* list = openList();
        auto* grid = find<QTableWidget>(QStringLiteral("fgrLista"));
        QVERIFY(canChange());

        // The keyboard.
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_Down);
        QCOMPARE(list->currentRow(0), 2);
        QVERIFY(cannotChange());
        QTest::keyClick(grid, Qt::Key_Down);
        QVERIFY(canChange());
        // A total in capitals is one as well.
        QTest::keyClick(grid, Qt::Key_Down);
        QVERIFY(cannotChange());

        // The mouse: a click, then a double click, which opens nothing.
        selectRow(QStringLiteral("fgrLista"), 1);
        QVERIFY(canChange());
        selectRow(QStringLiteral("fgrLista"), 2);
        QVERIFY(cannotChange());
        emit grid->cellDoubleClicked(1, 0);
        QCOMPARE(m_opened, 0);
        QCOMPARE(m_host->current(), list);

        // Nor the buttons' own routines, if anything called them.
        list->alter();
        list->remove();
        QCOMPARE(m_opened, 0);
        QVERIFY(m_dialogs->shown().isEmpty());

        // Any other row opens as always.
        selectRow(QStringLiteral("fgrLista"), 3);
        emit grid->cellDoubleClicked(2, 0);
        QCOMPARE(m_opened, 1);
    }

    void boxesAndOptionsTakePartInTheChangeCheck() {
        openList();
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmListaM"));
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());

        auto* box = find<QCheckBox>(QStringLiteral("chkSLMC"));
        box->click();
        QVERIFY(button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdCancelar"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdFechar"))->isEnabled());
        box->click();
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());

        find<QRadioButton>(QStringLiteral("optSATULZ_1"))->click();
        QVERIFY(button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdFechar"))->isEnabled());
    }
};

QTEST_MAIN(TestListScreen)
#include "test_list_screen.moc"
