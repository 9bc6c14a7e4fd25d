// The monthly movement: products entered and changed, and the group totals that follow every
// change and can never be touched by hand.
#include "fuel/FuelScreens.h"
#include "fuel/Movement.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"
#include "ui/Session.h"

#include <QSqlQuery>
#include <QTest>

using namespace testsupport;

class TestMovement : public QObject, private ScreenDriver {
    Q_OBJECT

    void openList() {
        ui::showPlace(*m_host, {QStringLiteral("frmPostoMovmn")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoMovmn"));
    }

    void enter(const QString& product, const QString& quantity, const QString& other = {}) {
        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbNCOMBS"), product);
        if (!other.isEmpty())
            type(QStringLiteral("txtDCOMBS"), other);
        type(QStringLiteral("txtQCOMBS"), quantity);
        choose(QStringLiteral("cmbCUNIDDMEDDA"), QStringLiteral("m³/mês"));
        click(QStringLiteral("cmdOk"));
    }

    // The grid as "product quantity" per row.
    QStringList shown() {
        QStringList rows;
        const QStringList products = column(QStringLiteral("fgrPostoMovmn"), 0);
        const QStringList quantities = column(QStringLiteral("fgrPostoMovmn"), 2);
        for (int r = 0; r < products.size(); ++r)
            rows << products.at(r) + QLatin1Char(' ') + quantities.at(r);
        return rows;
    }

    int rowOf(const QString& product) {
        return int(column(QStringLiteral("fgrPostoMovmn"), 0).indexOf(product)) + 1;
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void totalsFollowEveryChange() {
        openList();
        enter(QStringLiteral("Gasolina Comum"), QStringLiteral("1000,5"));
        QCOMPARE(shown(), QStringList({"Gasolina Comum 1000,50", "Total de Gasolinas 1000,50"}));
        enter(QStringLiteral("Gasolina Aditivada"), QStringLiteral("500"));
        enter(QStringLiteral("Querosene"), QStringLiteral("7"));
        QCOMPARE(shown(), QStringList({"Gasolina Comum 1000,50", "Gasolina Aditivada 500,00",
                                       "Total de Gasolinas 1500,50", "Querosene 7,00"}));

        selectRow(QStringLiteral("fgrPostoMovmn"), rowOf(QStringLiteral("Gasolina Comum")));
        click(QStringLiteral("cmdAlterar"));
        QVERIFY(!find<QWidget>(QStringLiteral("picNCOMBS"))->isEnabled());
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtQCOMBS"))->text(), QStringLiteral("1000,5"));
        type(QStringLiteral("txtQCOMBS"), QStringLiteral("2000"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(shown().at(2), QStringLiteral("Total de Gasolinas 2500,00"));

        m_dialogs->answer(true);
        selectRow(QStringLiteral("fgrPostoMovmn"), rowOf(QStringLiteral("Gasolina Aditivada")));
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(shown(), QStringList({"Gasolina Comum 2000,00", "Total de Gasolinas 2000,00",
                                       "Querosene 7,00"}));
        // The last product of a group takes the group's total with it.
        m_dialogs->answer(true);
        selectRow(QStringLiteral("fgrPostoMovmn"), 1);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(shown(), QStringList({"Querosene 7,00"}));
        QCOMPARE(count("Select Count(*) From TB_POSTOMOVMN"), 1);
    }

    void aTotalRowIsOutOfReach() {
        seedRow(db(), "TB_POSTOMOVMN",
                onRegister(
                    {{"NCOMBS", 110}, {"NSEQNCCOMBS", 1}, {"QCOMBS", 30}, {"CUNIDDMEDDA", 2301}}));
        fuel::recomputeGroupTotal(db(), m_host->session(), 110);
        openList();
        QCOMPARE(shown(), QStringList({"Óleo Diesel Comum 30,00", "Total de Óleo Diesel 30,00"}));
        auto* grid = find<QTableWidget>(QStringLiteral("fgrPostoMovmn"));
        grid->setFocus();
        QVERIFY(button(QStringLiteral("cmdAlterar"))->isEnabled());
        QTest::keyClick(grid, Qt::Key_Down);
        QVERIFY(!button(QStringLiteral("cmdAlterar"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdExcluir"))->isEnabled());
        emit grid->cellDoubleClicked(1, 0);
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoMovmn"));
        QTest::keyClick(grid, Qt::Key_Up);
        QVERIFY(button(QStringLiteral("cmdAlterar"))->isEnabled());
        QCOMPARE(count("Select Count(*) From TB_POSTOMOVMN"), 2);
    }

    void checksInTheirOrder() {
        seedRow(db(), "TB_POSTOMOVMN",
                onRegister(
                    {{"NCOMBS", 101}, {"NSEQNCCOMBS", 1}, {"QCOMBS", 30}, {"CUNIDDMEDDA", 2301}}));
        openList();
        click(QStringLiteral("cmdIncluir"));
        // The totals are no product to choose.
        QVERIFY(!items(QStringLiteral("cmbNCOMBS")).contains(QStringLiteral("Total de Gasolinas")));
        type(QStringLiteral("txtQCOMBS"), QStringLiteral("1"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbNCOMBS"), QStringLiteral("Gasolina Comum"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbNCOMBS"), QStringLiteral("Gasolina - Outras"));
        QVERIFY(find<QLineEdit>(QStringLiteral("txtDCOMBS"))->isEnabled());
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("txtDCOMBS"), QStringLiteral("gasolina de corrida"));
        find<QLineEdit>(QStringLiteral("txtQCOMBS"))->clear();
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("txtQCOMBS"), QStringLiteral("12,75"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList({
                                 "critical: Preenchimento Obrigatório do Produto.",
                                 "critical: Este Produto já está cadastrado.",
                                 "critical: Preenchimento Obrigatório da Descrição do Produto "
                                 "(Produto-Outros).",
                                 "critical: Preenchimento Obrigatório da Quantidade.",
                                 "critical: Preenchimento Obrigatório da Unidade de Medida.",
                             }));
        choose(QStringLiteral("cmbCUNIDDMEDDA"), QStringLiteral("L/dia"));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmPostoMovmnM"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(db().scalar("Select DCOMBS || ' ' || QCOMBS From TB_POSTOMOVMN Where NCOMBS = 108")
                     .toString(),
                 QStringLiteral("GASOLINA DE CORRIDA 12.75"));
        QCOMPARE(shown().last(), QStringLiteral("Total de Gasolinas 42,75"));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmPostoMovmn"));
    }
};

QTEST_MAIN(TestMovement)
#include "test_movement.moc"
