// Environmental monitoring of both installations: the systems each is offered, the equipment
// read by its number, the duplicate marks, and changes scoped by the row that was opened.
#include "fuel/FuelScreens.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QSqlQuery>
#include <QTest>

using namespace testsupport;

class TestMonitoring : public QObject, private ScreenDriver {
    Q_OBJECT

    void seedEquipment(const QString& itanqu = QStringLiteral("S")) {
        for (int n : {1, 2, 3})
            seedRow(db(), "TB_POSTOTANQU",
                    onRegister({{"ITANQU", itanqu},
                                {"NTANQU", n},
                                {"NIDENT", QStringLiteral("TQ%1").arg(n)},
                                {"AINSTL", "2010-01-01"},
                                {"NMATRL", 4},
                                {"QCOMPRT", 1},
                                {"IPROPR", "D"},
                                {"ITESTEESTNQ", "ND"},
                                {"ISITCA", "A"}}));
        for (int n : {12, 120})
            seedRow(db(), "TB_POSTOBOMBA",
                    onRegister({{"ITANQU", itanqu},
                                {"NBOMBA", n},
                                {"NIDENT", QStringLiteral("B%1").arg(n)},
                                {"AINSTL", "2012-01-01"},
                                {"NVALVLRETNC", 1},
                                {"NFILTRO", 1},
                                {"IPROPR", "D"},
                                {"ITESTEESTNQ", "ND"}}));
    }

    void openList(const QString& name = QStringLiteral("frmPostoMontrAmbnt")) {
        ui::showPlace(*m_host, {name});
        QCOMPARE(screen()->objectName(), name);
    }

    QStringList stored() {
        QStringList rows;
        QSqlQuery q = db().run(QStringLiteral("Select ITANQU, NMONTR, IEQUPM, NEQUPM, DMONTR From"
                                              " TB_POSTOMONTRAMBNT Order By ITANQU, NMONTR,"
                                              " NEQUPM"));
        while (q.next())
            rows << QStringLiteral("%1 %2 %3 %4 %5")
                        .arg(q.value(0).toString(), q.value(1).toString(), q.value(2).toString(),
                             q.value(3).toString(), q.value(4).toString())
                        .trimmed();
        return rows;
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void aPumpAboveNinetyNineIsStoredAsItIs() {
        seedEquipment();
        openList();
        click(QStringLiteral("cmdIncluir"));
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbBOMBA"))->isEnabled());
        choose(QStringLiteral("cmbTIPOMONTR"),
               QStringLiteral("Sensor de Vazamento em Câmara de Contenção da Bomba"));
        QVERIFY(find<QComboBox>(QStringLiteral("cmbBOMBA"))->isEnabled());
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbTANQU"))->isEnabled());
        QCOMPARE(items(QStringLiteral("cmbBOMBA")), QStringList({"12-B12", "120-B120"}));
        choose(QStringLiteral("cmbBOMBA"), QStringLiteral("120-B120"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Incluído com Sucesso"));
        QCOMPARE(stored(), QStringList({"S 2 B 120"}));
        QCOMPARE(column(QStringLiteral("fgrPostoMontrAmbnt"), 2), QStringList({"120 - B120"}));

        // The same pump with the same system once more: refused on leaving the pump.
        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbTIPOMONTR"),
               QStringLiteral("Sensor de Vazamento em Câmara de Contenção da Bomba"));
        choose(QStringLiteral("cmbBOMBA"), QStringLiteral("120-B120"));
        QCOMPARE(m_dialogs->last().text,
                 QStringLiteral("Esta bomba já está cadastrada com este Monitoramento"));
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        // Pump 12 is another.
        choose(QStringLiteral("cmbBOMBA"), QStringLiteral("12-B12"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(stored(), QStringList({"S 2 B 12", "S 2 B 120"}));
    }

    void eachInstallationIsOfferedItsSystems() {
        openList();
        click(QStringLiteral("cmdIncluir"));
        const QStringList under = items(QStringLiteral("cmbTIPOMONTR"));
        QVERIFY(under.contains(QStringLiteral("Poços de Monitoramento")));
        QVERIFY(under.contains(QStringLiteral("Detector de Vazamento na Linha")));
        QVERIFY(!under.contains(QStringLiteral("Inspeção Visual do Costado")));
        openList(QStringLiteral("frmPostoMontrAmbntAereo"));
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(screen()->windowTitle(), QStringLiteral("Monitoramento Ambiental (Aéreo)"));
        const QStringList above = items(QStringLiteral("cmbTIPOMONTR"));
        QVERIFY(above.contains(QStringLiteral("Inspeção Visual do Costado")));
        QVERIFY(above.contains(QStringLiteral("Outros")));
        QVERIFY(!above.contains(QStringLiteral("Poços de Monitoramento")));
    }

    void theWholeEstablishmentAndOthersOnceEach() {
        seedEquipment();
        openList();
        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbTIPOMONTR"), QStringLiteral("Poços de Monitoramento"));
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbTANQU"))->isEnabled());
        click(QStringLiteral("cmdOk"));
        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbTIPOMONTR"), QStringLiteral("Poços de Monitoramento"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Este Monitoramento já foi cadastrado"));
        QCOMPARE(m_dialogs->last().icon, ui::Icon::None);
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        click(QStringLiteral("cmdFechar"));

        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbTIPOMONTR"), QStringLiteral("Outros"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text,
                 QStringLiteral("Preenchimento Necessário do tipo de monitoramento"));
        type(QStringLiteral("txtTIPOMONTR"), QStringLiteral("drone"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(stored(), QStringList({"S 3 P 0", "S 10 O 0 DRONE"}));
        QCOMPARE(column(QStringLiteral("fgrPostoMontrAmbnt"), 3), QStringList({"DRONE", ""}));
        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbTIPOMONTR"), QStringLiteral("Outros"));
        type(QStringLiteral("txtTIPOMONTR"), QStringLiteral("satelite"));
        QCOMPARE(m_dialogs->last().text,
                 QStringLiteral("Já existe um Monitoramento cadastrado como Outros"));
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        QCOMPARE(stored().size(), 2);
    }

    void aChangeReachesTheRowOpenedAlone() {
        seedEquipment();
        for (int tank : {1, 2})
            seedRow(
                db(), "TB_POSTOMONTRAMBNT",
                onRegister({{"ITANQU", "S"}, {"NMONTR", 4}, {"IEQUPM", "T"}, {"NEQUPM", tank}}));
        openList();
        QCOMPARE(column(QStringLiteral("fgrPostoMontrAmbnt"), 1),
                 QStringList({"1 - TQ1", "2 - TQ2"}));
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbTANQU"))->currentText(),
                 QStringLiteral("01-TQ1"));
        choose(QStringLiteral("cmbTANQU"), QStringLiteral("03-TQ3"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(stored(), QStringList({"S 4 T 2", "S 4 T 3"}));

        // A deleted row of the grid leaves the others.
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(stored(), QStringList({"S 4 T 3"}));
        // A row whose tank is gone stays in the table and leaves the grid.
        db().run(QStringLiteral("Delete From TB_POSTOTANQU Where NTANQU = 3"));
        openList();
        QCOMPARE(dataRows(QStringLiteral("fgrPostoMontrAmbnt")), 0);
        QCOMPARE(stored(), QStringList({"S 4 T 3"}));
        screen()->resize(800, 600);
        click(QStringLiteral("cmdIncluir"));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmPostoMontrAmbntM"));
    }
};

QTEST_MAIN(TestMonitoring)
#include "test_monitoring.moc"
