// The protection of the tanks against corrosion, underground and aboveground: columns of the
// tank's own row, entered, changed and cleared through their list and maintenance screens.
#include "fuel/FuelScreens.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QRadioButton>
#include <QSqlQuery>
#include <QTest>

using namespace testsupport;

class TestProtection : public QObject, private ScreenDriver {
    Q_OBJECT

    void seedTank(int ntanqu, const QString& itanqu = QStringLiteral("S")) {
        seedRow(db(), "TB_POSTOTANQU",
                onRegister({{"ITANQU", itanqu},
                            {"NTANQU", ntanqu},
                            {"NIDENT", QStringLiteral("TQ%1").arg(ntanqu)},
                            {"AINSTL", "2010-01-01"},
                            {"NMATRL", itanqu == QLatin1String("A") ? 10 : 4},
                            {"QCOMPRT", 1},
                            {"IPROPR", "D"},
                            {"ITESTEESTNQ", "ND"},
                            {"ISITCA", "A"}}));
    }

    void openList(const QString& name = QStringLiteral("frmPostoProtcCatdcSubtr")) {
        ui::showPlace(*m_host, {name});
        QCOMPARE(screen()->objectName(), name);
    }

    void answer(bool yes) {
        find<QRadioButton>(yes ? QStringLiteral("optSSISTMPROTC_0")
                               : QStringLiteral("optSSISTMPROTC_1"))
            ->click();
    }

    // The protection columns of a tank, joined by "|", Null as "-".
    QString stored(int ntanqu, const QString& itanqu = QStringLiteral("S")) {
        QSqlQuery q = db().run(QStringLiteral("Select SSISTMPROTC, IPROTC, DPROTC, IFREQNMANTN,"
                                              " AMANTNULTMA From TB_POSTOTANQU Where NTANQU = ?"
                                              " And ITANQU = ?"),
                               {ntanqu, itanqu});
        if (!q.next())
            return QStringLiteral("no tank");
        QStringList values;
        for (int c = 0; c < 5; ++c)
            values << (q.value(c).isNull() ? QStringLiteral("-") : q.value(c).toString());
        return values.join(QLatin1Char('|'));
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void enteredChangedAndListed() {
        seedTank(1);
        seedTank(2);
        openList();
        QCOMPARE(dataRows(QStringLiteral("fgrPostoProtc")), 0); // no decision yet, no row
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoProtcCatdcSubtrM"));
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbIPROTC"))->isEnabled());
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("2 - TQ2"));
        answer(true);
        QVERIFY(find<QComboBox>(QStringLiteral("cmbIPROTC"))->isEnabled());
        QVERIFY(!find<QLineEdit>(QStringLiteral("txtDPROTC"))->isEnabled());
        choose(QStringLiteral("cmbIPROTC"), QStringLiteral("Outros"));
        type(QStringLiteral("txtDPROTC"), QStringLiteral("pintura especial"));
        choose(QStringLiteral("cmbIFREQNMANTN"), QStringLiteral("Semestral"));
        type(QStringLiteral("mskAMANTNULTMA"), QStringLiteral("31/02/2020"));
        QCOMPARE(messages(), QStringList({"critical: Preenchimento Incorreto da Última Data."}));
        type(QStringLiteral("mskAMANTNULTMA"), QStringLiteral("10/02/2020"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Incluído com Sucesso"));
        QCOMPARE(stored(2), QStringLiteral("S|O|PINTURA ESPECIAL|E|2020-02-10"));
        QCOMPARE(stored(1), QStringLiteral("-|-|-|-|-"));

        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoProtcCatdcSubtr"));
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 0), QStringList({"2 - TQ2"}));
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 1), QStringList({"Sim"}));
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 2), QStringList({"Outros"}));
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 3), QStringList({"Semestral"}));
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 4), QStringList({"10/02/2020"}));

        // The change reads what the grid does not hold, and the tank stays as it is.
        click(QStringLiteral("cmdAlterar"));
        QVERIFY(!find<QWidget>(QStringLiteral("picNTANQU"))->isEnabled());
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtDPROTC"))->text(),
                 QStringLiteral("PINTURA ESPECIAL"));
        QVERIFY(find<QRadioButton>(QStringLiteral("optSSISTMPROTC_0"))->isChecked());
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        answer(false);
        QVERIFY(button(QStringLiteral("cmdOk"))->isEnabled());
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbIPROTC"))->currentIndex(), -1);
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(stored(2), QStringLiteral("N|-|-|-|-"));
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 1), QStringList({"Não"}));
    }

    void checksInTheirOrder() {
        seedTank(1);
        db().run(QStringLiteral("Update TB_POSTOTANQU Set SSISTMPROTC = 'N'"));
        seedTank(2);
        openList();
        click(QStringLiteral("cmdIncluir"));
        // Nothing typed, nothing to save.
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        answer(true);
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1 - TQ1"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbIPROTC"), QStringLiteral("Outros"));
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("txtDPROTC"), QStringLiteral("X"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbIFREQNMANTN"), QStringLiteral("Anual"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Obrigatório do Nº do Tanque.",
                              "critical: Preenchimento Obrigatório do Tipo de Proteção.",
                              "critical: Preenchimento Obrigatório da Descrição da Proteção.",
                              "critical: Preenchimento Obrigatório da Frequência.",
                              "critical: Proteção Catódica do tanque já cadastrada."}));
        QCOMPARE(stored(1), QStringLiteral("N|-|-|-|-"));
        // Another tank passes.
        m_dialogs->clear();
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("2 - TQ2"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList({"information: Incluído com Sucesso"}));
        QCOMPARE(stored(2), QStringLiteral("S|O|X|A|-"));
    }

    void clearedByExcluirAndKeptByAChangeOfTheTank() {
        seedTank(1);
        seedTank(2);
        db().run(QStringLiteral("Update TB_POSTOTANQU Set SSISTMPROTC = 'S', IPROTC = 'A',"
                                " IFREQNMANTN = 'M'"));
        // A change of the tank on its own screen keeps the protection.
        ui::showPlace(*m_host, {QStringLiteral("frmTanqu")});
        click(QStringLiteral("cmdAlterar"));
        type(QStringLiteral("txtNIDENT"), QStringLiteral("NOVO"));
        click(QStringLiteral("cmdOk"));
        openList();
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 0), QStringList({"1 - NOVO", "2 - TQ2"}));

        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(m_dialogs->shown().at(m_dialogs->shown().size() - 2).text,
                 QStringLiteral("Deseja excluir o item selecionado?"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Excluído com Sucesso"));
        QCOMPARE(stored(1), QStringLiteral("-|-|-|-|-"));
        QCOMPARE(stored(2), QStringLiteral("S|A|-|M|-"));
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 0), QStringList({"2 - TQ2"}));
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 2);
    }

    void abovegroundOffersNoProtectionAsACode() {
        seedTank(1, QStringLiteral("A"));
        seedTank(1, QStringLiteral("S"));
        openList(QStringLiteral("frmPostoProtcCatdcAereo"));
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(items(QStringLiteral("cmbNTANQU")), QStringList({"1 - TQ1"}));
        QCOMPARE(items(QStringLiteral("cmbIPROTC")),
                 QStringList({"Sem proteção", "Primer", "Primer e Resina Epoxi", "Outros"}));
        answer(true);
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Obrigatório do Nº do Reservatório."}));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1 - TQ1"));
        choose(QStringLiteral("cmbIPROTC"), QStringLiteral("Sem proteção"));
        choose(QStringLiteral("cmbIFREQNMANTN"), QStringLiteral("Mensal"));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmPostoProtcCatdcAereoM"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(stored(1, QStringLiteral("A")), QStringLiteral("S|S|-|M|-"));
        QCOMPARE(stored(1, QStringLiteral("S")), QStringLiteral("-|-|-|-|-"));
        QCOMPARE(column(QStringLiteral("fgrPostoProtc"), 2), QStringList({"Sem proteção"}));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmPostoProtcCatdcAereo"));
    }
};

QTEST_MAIN(TestProtection)
#include "test_protection.moc"
