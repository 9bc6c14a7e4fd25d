// Stock control in its two roles: the system it records, the way it walks the chain, and the
// replacement of its one row within one transaction.
#include "fuel/FuelScreens.h"
#include "fuel/StockControl.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QCheckBox>
#include <QSqlQuery>
#include <QTest>

using namespace testsupport;

class TestStockControl : public QObject, private ScreenDriver {
    Q_OBJECT

    void tick(const QString& name, bool on = true) {
        auto* box = find<QCheckBox>(name);
        if (box->isChecked() != on)
            box->click();
    }

    // The row of one system, columns joined by "|", Null as "-".
    QString stored(const QString& itanqu) {
        QSqlQuery q = db().run(
            QStringLiteral("Select ICONTRESTQUREGUA, ICONTRESTQUHIDRL, ICONTRESTQUELETR,"
                           " ICONTRESTQUPNEMT, ICONTRESTQUMAGNT, ICONTRESTQUOUTRO, DCONTRESTQU,"
                           " SLMC, SATULZ From TB_POSTOCONTRESTQU Where ITANQU = ?"),
            {itanqu});
        if (!q.next())
            return QStringLiteral("none");
        QStringList values;
        for (int c = 0; c < 9; ++c)
            values << (q.value(c).isNull() ? QStringLiteral("-") : q.value(c).toString());
        return values.join(QLatin1Char('|'));
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void bothRolesWalkTheChainTheirOwnWay_data() {
        QTest::addColumn<QString>("pumps");
        QTest::addColumn<QString>("itanqu");
        QTest::addColumn<QString>("book");
        QTest::addColumn<QString>("leaks");
        QTest::newRow("underground") << "frmBomba"
                                     << "S"
                                     << "LMC - Livro de Movimentação de Combustíveis"
                                     << "frmPostoHistrVazmnSubtr";
        QTest::newRow("aboveground") << "frmBombaAereo"
                                     << "A"
                                     << "LMP - Livro de Movimentação de Produtos"
                                     << "frmPostoHistrVazmnAereo";
    }
    void bothRolesWalkTheChainTheirOwnWay() {
        QFETCH(QString, pumps);
        QFETCH(QString, itanqu);
        QFETCH(QString, book);
        QFETCH(QString, leaks);
        ui::showPlace(*m_host, {pumps});
        click(QStringLiteral("cmdContinuar"));
        auto* stock = m_host->current<fuel::StockControl>();
        QVERIFY(stock);
        QCOMPARE(stock->itanqu(), itanqu);
        QCOMPARE(find<QCheckBox>(QStringLiteral("chkSLMC"))->text(), book);
        click(QStringLiteral("cmdContinuar"));
        QCOMPARE(screen()->objectName(), leaks);
        click(QStringLiteral("cmdVoltar"));
        QVERIFY(m_host->current<fuel::StockControl>());
        QCOMPARE(m_host->current<fuel::StockControl>()->itanqu(), itanqu);
        click(QStringLiteral("cmdVoltar"));
        QCOMPARE(screen()->objectName(), pumps);
    }

    void eachSystemKeepsItsOwnRow() {
        ui::showPlace(*m_host,
                      {QStringLiteral("frmPostoContrEstq"), ui::Sequence::Role::Underground});
        QVERIFY(button(QStringLiteral("cmdIncluir"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdAlterar"))->isEnabled());
        click(QStringLiteral("cmdIncluir"));
        QVERIFY(!find<QLineEdit>(QStringLiteral("txtDCONTRESTQU"))->isEnabled());
        tick(QStringLiteral("chkICONTRESTQUREGUA"));
        tick(QStringLiteral("chkICONTRESTQUOUTRO"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList({"critical: Ao selecionar Outros é necessário preencher o "
                                          "campo de descrição."}));
        QVERIFY(find<QLineEdit>(QStringLiteral("txtDCONTRESTQU"))->hasFocus());
        type(QStringLiteral("txtDCONTRESTQU"), QStringLiteral("sonda manual"));
        tick(QStringLiteral("chkSLMC"));
        find<QRadioButton>(QStringLiteral("optSATULZ_0"))->click();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Dados incluídos com Sucesso."));
        QCOMPARE(stored("S"), QStringLiteral("R|-|-|-|-|O|SONDA MANUAL|1|1"));
        QCOMPARE(stored("A"), QStringLiteral("none"));

        // Shown again as stored; a change replaces the row.
        QVERIFY(find<QCheckBox>(QStringLiteral("chkICONTRESTQUOUTRO"))->isChecked());
        QVERIFY(!button(QStringLiteral("cmdIncluir"))->isEnabled());
        click(QStringLiteral("cmdAlterar"));
        tick(QStringLiteral("chkICONTRESTQUOUTRO"), false);
        tick(QStringLiteral("chkICONTRESTQUMAGNT"));
        tick(QStringLiteral("chkSLMC"), false);
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Dados alterados com Sucesso."));
        QCOMPARE(stored("S"), QStringLiteral("R|-|-|-|M|-|-|0|0"));
        QCOMPARE(count("Select Count(*) From TB_POSTOCONTRESTQU"), 1);

        // The aboveground system starts empty.
        ui::showPlace(*m_host,
                      {QStringLiteral("frmPostoContrEstq"), ui::Sequence::Role::Aboveground});
        QVERIFY(!find<QCheckBox>(QStringLiteral("chkICONTRESTQUREGUA"))->isChecked());
        QVERIFY(button(QStringLiteral("cmdIncluir"))->isEnabled());
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmPostoContrEstq"));
    }

    void aFailedInsertKeepsTheOldRow() {
        seedRow(
            db(), "TB_POSTOCONTRESTQU",
            onRegister({{"ITANQU", "S"}, {"ICONTRESTQUELETR", "E"}, {"SLMC", 0}, {"SATULZ", 0}}));
        db().run(QStringLiteral("Create Trigger refuse Before Insert On TB_POSTOCONTRESTQU"
                                " Begin Select Raise(Abort, 'recusado'); End"));
        ui::showPlace(*m_host,
                      {QStringLiteral("frmPostoContrEstq"), ui::Sequence::Role::Underground});
        click(QStringLiteral("cmdAlterar"));
        tick(QStringLiteral("chkICONTRESTQUHIDRL"));
        click(QStringLiteral("cmdOk"));
        QVERIFY(!messages().contains("information: Dados alterados com Sucesso."));
        QCOMPARE(stored("S"), QStringLiteral("-|-|E|-|-|-|-|0|0"));
        // What was typed is still there.
        QVERIFY(find<QCheckBox>(QStringLiteral("chkICONTRESTQUHIDRL"))->isChecked());
    }
};

QTEST_MAIN(TestStockControl)
#include "test_stock_control.moc"
