// The water balance: sources and the total row that follows them.
#include "environment/EnvironmentScreens.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSqlQuery>
#include <QTest>

using namespace testsupport;

class TestWaterUse : public QObject, private ScreenDriver {
    Q_OBJECT

    void open() {
        ui::showPlace(*m_host, {QStringLiteral("frmPostoConsmAgua")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoConsmAgua"));
    }
    void shot(const QString& name) {
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        saveScreenshot(*screen(), name);
    }
    // The total row of register 100/1: number, description, sanitary, commercial; empty when
    // there is none. Exactly one may exist.
    QStringList total() {
        if (count("Select Count(*) From TB_POSTOBALNCHIDRC Where NMUNCP = 100 And NSEQNC = 1"
                  " And IFONTEABAST = '5T'") > 1)
            return {"more than one total"};
        QSqlQuery q = db().run("Select NFONTEABASTIDENT, DFONTEABAST, QCONSMSANTR, QCONSMCOMRC"
                               " From TB_POSTOBALNCHIDRC Where NMUNCP = 100 And NSEQNC = 1"
                               " And IFONTEABAST = '5T'");
        if (!q.next())
            return {};
        QStringList cells;
        for (int i = 0; i < 4; ++i)
            cells << (q.value(i).isNull() ? "Null" : q.value(i).toString());
        return cells;
    }
    void newSource(const QString& source, const QString& name, const QString& sanitary,
                   const QString& commercial) {
        click("cmdIncluir");
        choose("cmbIFONTEABAST", source);
        type("txtDFONTEABAST", name);
        if (!sanitary.isEmpty())
            type("txtQCONSMSANTR", sanitary);
        if (!commercial.isEmpty())
            type("txtQCONSMCOMRC", commercial);
        click("cmdOk");
    }
    void doubleClickRow(int row) {
        auto* grid = find<QTableWidget>("fgrPostoConsmAgua");
        grid->setCurrentCell(row - 1, 0);
        const QRect cell = grid->visualItemRect(grid->item(row - 1, 0));
        // A view opens on a double click only after the press of its first click.
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private slots:
    void initTestCase() { environment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    // The total is rebuilt with every insert, change and delete, in the same save.
    void theTotalFollowsItsSources() {
        open();
        QCOMPARE(headings("fgrPostoConsmAgua"),
                 QStringList({"Fonte de Abastecimento", "", "Identificação", "Sanitário",
                              "Comercial", "Total (m³/mês)"}));
        newSource("Poços", "poço 1", "10,5", "2");
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        QCOMPARE(total(), QStringList({"1", " ", "10.5", "2"}));
        QCOMPARE(column("fgrPostoConsmAgua", 0), QStringList({"Poços", "Total (m³/mês)"}));
        QCOMPARE(column("fgrPostoConsmAgua", 5), QStringList({"12,5", "12,5"}));

        // One quantity empty: Null in the row, and the sums pass over it.
        newSource("Rede", "sabesp", "", "4");
        QCOMPARE(total(), QStringList({"1", " ", "10.5", "6"}));
        QCOMPARE(db().scalar("Select QCONSMSANTR From TB_POSTOBALNCHIDRC Where IFONTEABAST = '3R'")
                     .isNull(),
                 true);
        QCOMPARE(column("fgrPostoConsmAgua", 0), QStringList({"Poços", "Rede", "Total (m³/mês)"}));
        shot("frmPostoConsmAgua");

        m_dialogs->clear();
        selectRow("fgrPostoConsmAgua", 2);
        click("cmdAlterar");
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoConsmAguaM"));
        QVERIFY(!find<QComboBox>("cmbIFONTEABAST")->isEnabled());
        QCOMPARE(find<QLineEdit>("txtDFONTEABAST")->text(), QStringLiteral("SABESP"));
        QCOMPARE(find<QLineEdit>("txtQCONSMCOMRC")->text(), QStringLiteral("4"));
        type("txtQCONSMSANTR", "1,25");
        QCOMPARE(find<QLineEdit>("txtTotal")->text(), QStringLiteral("5,25"));
        shot("frmPostoConsmAguaM");
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        QCOMPARE(total(), QStringList({"1", " ", "11.75", "6"}));

        // Deleting one of two leaves a total equal to the one left; the last leaves nothing.
        m_dialogs->answer(true);
        selectRow("fgrPostoConsmAgua", 1);
        click("cmdExcluir");
        QCOMPARE(total(), QStringList({"1", " ", "1.25", "4"}));
        m_dialogs->answer(true);
        selectRow("fgrPostoConsmAgua", 1);
        click("cmdExcluir");
        QCOMPARE(count("Select Count(*) From TB_POSTOBALNCHIDRC"), 0);
        QCOMPARE(dataRows("fgrPostoConsmAgua"), 0);
    }

    // The total row can be neither opened nor deleted: not from the buttons, not by the keys,
    // not by a double click.
    void theTotalRowIsOutOfReach() {
        seedRow(db(), "TB_POSTOBALNCHIDRC",
                onRegister({{"IFONTEABAST", "1P"},
                            {"NFONTEABASTIDENT", 1},
                            {"DFONTEABAST", "POÇO"},
                            {"QCONSMSANTR", 3}}));
        seedRow(db(), "TB_POSTOBALNCHIDRC",
                onRegister({{"IFONTEABAST", "5T"},
                            {"NFONTEABASTIDENT", 1},
                            {"DFONTEABAST", " "},
                            {"QCONSMSANTR", 3}}));
        open();
        QVERIFY(button("cmdAlterar")->isEnabled());
        selectRow("fgrPostoConsmAgua", 2);
        QVERIFY(!button("cmdAlterar")->isEnabled());
        QVERIFY(!button("cmdExcluir")->isEnabled());
        QVERIFY(button("cmdIncluir")->isEnabled());
        // By the keys: up to the source and down again.
        auto* grid = find<QTableWidget>("fgrPostoConsmAgua");
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_Up);
        QVERIFY(button("cmdAlterar")->isEnabled());
        QTest::keyClick(grid, Qt::Key_Down);
        QVERIFY(!button("cmdAlterar")->isEnabled());
        QVERIFY(!button("cmdExcluir")->isEnabled());
        doubleClickRow(2);
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoConsmAgua"));
        // The total comes back to the list from a maintenance screen as well.
        doubleClickRow(1);
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoConsmAguaM"));
        click("cmdFechar");
        QVERIFY(m_dialogs->shown().isEmpty());
    }

    // A save goes by the stored source, never by a caption: a changed source of another kind
    // leaves "Rede" no. 1 alone.
    void aSaveIsKeyedByTheStoredSource() {
        seedRow(db(), "TB_POSTOBALNCHIDRC",
                onRegister({{"IFONTEABAST", "3R"},
                            {"NFONTEABASTIDENT", 1},
                            {"DFONTEABAST", "REDE"},
                            {"QCONSMSANTR", 8}}));
        seedRow(db(), "TB_POSTOBALNCHIDRC",
                onRegister({{"IFONTEABAST", "4O"},
                            {"NFONTEABASTIDENT", 1},
                            {"DFONTEABAST", "CAMINHÃO"},
                            {"QCONSMSANTR", 2}}));
        open();
        selectRow("fgrPostoConsmAgua", 2);
        click("cmdAlterar");
        type("txtDFONTEABAST", "carro pipa");
        click("cmdOk");
        QCOMPARE(db().scalar("Select DFONTEABAST From TB_POSTOBALNCHIDRC"
                             " Where IFONTEABAST = '3R'")
                     .toString(),
                 QStringLiteral("REDE"));
        QCOMPARE(db().scalar("Select DFONTEABAST From TB_POSTOBALNCHIDRC"
                             " Where IFONTEABAST = '4O'")
                     .toString(),
                 QStringLiteral("CARRO PIPA"));
    }

    // Numbers run on per kind over every register, and a number of three digits is shown whole.
    void sourcesAreNumberedPerKind() {
        open();
        click("cmdIncluir");
        choose("cmbIFONTEABAST", "Superficial");
        QCOMPARE(find<QLineEdit>("txtNFONTEABASTIDENT")->text(), QStringLiteral("1"));
        QVERIFY(!items("cmbIFONTEABAST").contains("Total (m³/mês)"));
        click("cmdCancelar");
        db().run("Insert Into TB_POSTOBALNCHIDRC (NMUNCP, NSEQNC, AINFRM, IFONTEABAST,"
                 " NFONTEABASTIDENT, DFONTEABAST, QCONSMSANTR) Values (200, 7, '2024-01-10',"
                 " '2S', 99, 'RIO', 1)");
        newSource("Superficial", "represa", "0", "0");
        QCOMPARE(db().scalar("Select NFONTEABASTIDENT From TB_POSTOBALNCHIDRC Where NMUNCP = 100"
                             " And IFONTEABAST = '2S'")
                     .toInt(),
                 100);
        // Both quantities 0 pass: the test is for emptiness.
        QCOMPARE(total(), QStringList({"1", " ", "0", "0"}));
        selectRow("fgrPostoConsmAgua", 1);
        click("cmdAlterar");
        QCOMPARE(find<QLineEdit>("txtNFONTEABASTIDENT")->text(), QStringLiteral("100"));
    }

    void theChecksInTheirOrder() {
        open();
        click("cmdIncluir");
        type("txtDFONTEABAST", "x");
        click("cmdOk");
        choose("cmbIFONTEABAST", "Outros");
        type("txtDFONTEABAST", "");
        click("cmdOk");
        type("txtDFONTEABAST", "x");
        click("cmdOk");
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Obrigatório da Fonte de Abastecimento.",
                              "critical: Preenchimento Obrigatório da Identificação.",
                              "critical: Preenchimento Obrigatório de um dos Campos: Consumo "
                              "Sanitário em m³/mes ou Consumo Comercial em m³/mes."}));
        QVERIFY(find<QLineEdit>("txtQCONSMSANTR")->hasFocus());
    }

    // Five digits, then a point or a comma for room for two decimals and no more.
    void aQuantityTakesTwoDecimals() {
        open();
        click("cmdIncluir");
        auto* sanitary = find<QLineEdit>("txtQCONSMSANTR");
        sanitary->setFocus();
        QTest::keyClicks(sanitary, "1234567");
        QCOMPARE(sanitary->text(), QStringLiteral("12345"));
        QTest::keyClicks(sanitary, ".678,9");
        QCOMPARE(sanitary->text(), QStringLiteral("12345,67"));
        QVERIFY(messages().isEmpty());
    }
};

QTEST_MAIN(TestWaterUse)
#include "test_water_use.moc"
