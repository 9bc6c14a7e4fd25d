// The containment basins and the aboveground tanks in each: two levels of one list, the lining
// typed under "Outros" shown back as "Outros", and changes that stay within their register.
#include "fuel/FuelScreens.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QSqlQuery>
#include <QTest>

using namespace testsupport;

class TestBasins : public QObject, private ScreenDriver {
    Q_OBJECT

    void seedTank(int ntanqu, const QString& itanqu) {
        seedRow(db(), "TB_POSTOTANQU",
                onRegister({{"ITANQU", itanqu},
                            {"NTANQU", ntanqu},
                            {"NIDENT", QStringLiteral("TQ%1").arg(ntanqu)},
                            {"AINSTL", "2010-01-01"},
                            {"NMATRL", 10},
                            {"QCOMPRT", 1},
                            {"IPROPR", "D"},
                            {"ITESTEESTNQ", "ND"},
                            {"ISITCA", "A"}}));
    }

    void openList() {
        ui::showPlace(*m_host, {QStringLiteral("frmBaciaContn")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBaciaContn"));
    }

    void drainage(bool yes) {
        find<QRadioButton>(yes ? QStringLiteral("optSDRENG_0") : QStringLiteral("optSDRENG_1"))
            ->click();
    }

    QString basin(int nmuncp, int nbacia) {
        QSqlQuery q = db().run(QStringLiteral("Select QCONTN, IREVST, SDRENG, DDESTN From"
                                              " TB_POSTOBACIA Where NMUNCP = ? And NBACIA = ?"),
                               {nmuncp, nbacia});
        if (!q.next())
            return QStringLiteral("none");
        QStringList values;
        for (int c = 0; c < 4; ++c)
            values << (q.value(c).isNull() ? QStringLiteral("-") : q.value(c).toString());
        return values.join(QLatin1Char('|'));
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void aBasinWithItsTanks() {
        seedTank(1, QStringLiteral("A"));
        seedTank(2, QStringLiteral("A"));
        seedTank(3, QStringLiteral("S"));
        // Basin 1 of another register, which no change here may reach.
        seedRow(
            db(), "TB_POSTOBACIA",
            {{"NMUNCP", 101}, {"NSEQNC", 1}, {"NBACIA", 1}, {"QCONTN", 5}, {"IREVST", "Manta"}});
        openList();
        click(QStringLiteral("cmdIncluir"));
        QVERIFY(!find<QWidget>(QStringLiteral("fraBaciaResrv"))->isVisible());
        type(QStringLiteral("txtNBACIA"), QStringLiteral("1"));
        type(QStringLiteral("txtQCONTN"), QStringLiteral("30"));
        choose(QStringLiteral("cmbIREVST"), QStringLiteral("Outros"));
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("txtIREVST"), QStringLiteral("geomembrana"));
        drainage(true);
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("txtDDESTN"), QStringLiteral("caixa separadora"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Obrigatório do Revestimento - Outros.",
                              "critical: Preenchimento Obrigatório do Destino, quando há Sistema "
                              "de Drenagem",
                              "information: Incluído com Sucesso"}));
        QCOMPARE(basin(100, 1), QStringLiteral("30|GEOMEMBRANA|-1|CAIXA SEPARADORA"));

        // Its tanks are asked for at once, until the chain is closed.
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBaciaContnM"));
        QVERIFY(find<QWidget>(QStringLiteral("fraBaciaResrv"))->isVisible());
        QVERIFY(!find<QWidget>(QStringLiteral("fraBacia"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        QCOMPARE(items(QStringLiteral("cmbNTANQU")), QStringList({"1 - TQ1", "2 - TQ2"}));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("2 - TQ2"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("2 - TQ2"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text,
                 QStringLiteral("Reservatório já cadastrado, preencha com outro valor."));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1 - TQ1"));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmBaciaContnM"));
        click(QStringLiteral("cmdOk"));
        click(QStringLiteral("cmdFechar"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBaciaContn"));
        QCOMPARE(column(QStringLiteral("fgrBaciaContn"), 3), QStringList({"Sim"}));
        QCOMPARE(column(QStringLiteral("fgrBaciaContnResrv"), 0),
                 QStringList({"1 - TQ1", "2 - TQ2"}));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmBaciaContn"));

        // The lining typed under "Outros" comes back as "Outros" with its text.
        click(QStringLiteral("cmdAlterar"));
        QVERIFY(!find<QWidget>(QStringLiteral("picNBACIA"))->isEnabled());
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbIREVST"))->currentText(),
                 QStringLiteral("Outros"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtIREVST"))->text(),
                 QStringLiteral("GEOMEMBRANA"));
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        type(QStringLiteral("txtQCONTN"), QStringLiteral("45"));
        drainage(false);
        click(QStringLiteral("cmdOk"));
        QCOMPARE(basin(100, 1), QStringLiteral("45|GEOMEMBRANA|0|CAIXA SEPARADORA"));
        QCOMPARE(basin(101, 1), QStringLiteral("5|Manta|-|-"));
        click(QStringLiteral("cmdFechar"));

        // A tank leaves the basin; another takes the place of the one left.
        selectLevel(1);
        selectRow(QStringLiteral("fgrBaciaContnResrv"), 1);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(column(QStringLiteral("fgrBaciaContnResrv"), 0), QStringList({"2 - TQ2"}));
        selectRow(QStringLiteral("fgrBaciaContnResrv"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNTANQU"))->currentText(),
                 QStringLiteral("2 - TQ2"));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1 - TQ1"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(column(QStringLiteral("fgrBaciaContnResrv"), 0), QStringList({"1 - TQ1"}));

        // A click in an empty grid of tanks offers cmdIncluir.
        selectLevel(1);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(dataRows(QStringLiteral("fgrBaciaContnResrv")), 0);
        QVERIFY(!button(QStringLiteral("cmdIncluir"))->isEnabled());
        QTest::mouseClick(find<QTableWidget>(QStringLiteral("fgrBaciaContnResrv"))->viewport(),
                          Qt::LeftButton);
        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("2 - TQ2"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBaciaContn"));
        QCOMPARE(column(QStringLiteral("fgrBaciaContnResrv"), 0), QStringList({"2 - TQ2"}));

        // The basin goes with its tanks.
        selectLevel(0);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(basin(100, 1), QStringLiteral("none"));
        QCOMPARE(count("Select Count(*) From TB_POSTOBACIARESRV"), 0);
        QCOMPARE(basin(101, 1), QStringLiteral("5|Manta|-|-"));
    }

    void basinChecksInTheirOrder() {
        seedRow(db(), "TB_POSTOBACIA",
                onRegister({{"NBACIA", 7}, {"QCONTN", 5}, {"IREVST", "Manta"}}));
        openList();
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("txtQCONTN"), QStringLiteral("9"));
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("txtNBACIA"), QStringLiteral("7"));
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("txtNBACIA"), QStringLiteral("8"));
        find<QLineEdit>(QStringLiteral("txtQCONTN"))->clear();
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("txtQCONTN"), QStringLiteral("9"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Obrigatório do Número da Bacia",
                              "critical: Número de Bacia já está cadastrado, preencha com outro "
                              "valor.",
                              "critical: Preenchimento Obrigatório da Capacidade de Contenção da "
                              "Bacia em metros cúbicos",
                              "critical: Preenchimento Obrigatório do Tipo de Revestimento."}));
        choose(QStringLiteral("cmbIREVST"), QStringLiteral("Solo Natural"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(basin(100, 8), QStringLiteral("9|Solo Natural|-|-"));
    }
};

QTEST_MAIN(TestBasins)
#include "test_basins.moc"
