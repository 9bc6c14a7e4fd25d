// frmPostoDistrConsl and frmPostoDistr: the distributor and the suppliers of a register.
#include "establishment/EstablishmentScreens.h"
#include "printing/Layout.h"
#include "printing/ReportHtml.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"
#include "ui/FieldBehaviour.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

using testsupport::seedRow;

class TestDistributors : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    void openList() {
        ui::showPlace(*m_host, {QStringLiteral("frmPostoDistrConsl")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoDistrConsl"));
    }
    QLineEdit* field(const QString& name) { return find<QLineEdit>(name); }
    void seedFirm(int nseqnc, int nident, const QString& name, const QString& street,
                  const QString& kind = QStringLiteral("F")) {
        seedRow(db(), "TB_POSTODISTRFORNC",
                {{"NMUNCP", 100},
                 {"NSEQNC", nseqnc},
                 {"NIDENT", nident},
                 {"DRAZAOSOCIL", name},
                 {"IDISTRFORNC", kind},
                 {"DCONTT", "CONTATO"},
                 {"DLOGRD", street},
                 {"NLOGRD", 10},
                 {"CCEP", 1310100},
                 {"NMUNCPDISTRFORNC", 100},
                 {"NDDD", 11},
                 {"NTELFN", 30457788}});
    }
    void fillFirm(const QString& name) {
        type("txtDRAZAOSOCIL", name);
        type("txtDCONTT", "Ana");
        type("txtDLOGRD", "Av. Paulista");
        type("txtNLOGRD", "1000");
        type("txtCCEP", "01310-100");
        choose("cmbNMUNCP", "SÃO PAULO");
        type("txtNDDD", "11");
        type("txtNTELFN", "3045-7788");
    }
    QString okMessage() {
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        return m_dialogs->shown().isEmpty() ? QString() : m_dialogs->shown().first().text;
    }
    QString street(int nident) {
        return db()
            .scalar("SELECT DLOGRD FROM TB_POSTODISTRFORNC WHERE NIDENT = ?", {nident})
            .toString();
    }

private slots:
    void initTestCase() { establishment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void aFirmIsAddedWithTheNextIdentityOfTheWholeTable() {
        seedFirm(2, 7, "OUTRO REGISTRO", "RUA Z"); // another register's firm
        openList();
        QCOMPARE(dataRows("fgrForn"), 0);
        QVERIFY(!button("cmdAlterar")->isEnabled());
        QVERIFY(!button("cmdExcluir")->isEnabled());
        click("cmdIncluir");
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoDistr"));
        QCOMPARE(field("txtNomeEmpresa")->text(), QStringLiteral("AUTO POSTO TESTE LTDA"));
        fillFirm("Distribuidora Alfa");
        find<QRadioButton>("Option1_0")->click();
        QVERIFY(find<QRadioButton>("Option1_0")->isChecked());
        QCOMPARE(okMessage(), QStringLiteral("Incluído com Sucesso"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoDistrConsl"));
        QCOMPARE(db().scalar("SELECT NIDENT FROM TB_POSTODISTRFORNC WHERE NSEQNC = 1").toInt(), 8);
        QCOMPARE(
            db().scalar("SELECT IDISTRFORNC FROM TB_POSTODISTRFORNC WHERE NIDENT = 8").toString(),
            QStringLiteral("D"));
        QCOMPARE(headings("fgrForn").mid(1),
                 (QStringList{"Razão Social Distribuidora/Fornecedora", "Endereço", "Município"}));
        QCOMPARE(column("fgrForn", 2), QStringList{QStringLiteral("AV. PAULISTA,  1000")});
        QCOMPARE(field("txtDRAZAOSOCIL")->text(), QStringLiteral("DISTRIBUIDORA ALFA"));
        QCOMPARE(field("txtNTELFN")->text(), QStringLiteral("3045-7788"));
        QCOMPARE(field("txtTipo")->text(), QStringLiteral("Distribuidora"));

        // The memorial prints the firm as stored.
        const QString report = printing::reportHtml(db(), printing::layout("rpt03_distrfornc"),
                                                    m_host->session().key());
        QVERIFY(report.contains("DISTRIBUIDORA ALFA"));
        QVERIFY(report.contains("Distribuidora"));

        // A second firm can only be a supplier.
        click("cmdIncluir");
        fillFirm("Fornecedora Beta");
        m_dialogs->clear();
        find<QRadioButton>("Option1_0")->click();
        QCOMPARE(m_dialogs->texts(),
                 QStringList{QStringLiteral("Só Pode Existir uma Distribuidora para este Posto")});
        QVERIFY(find<QRadioButton>("Option1_1")->isChecked());
        QCOMPARE(okMessage(), QStringLiteral("Incluído com Sucesso"));
        QCOMPARE(
            db().scalar("SELECT IDISTRFORNC FROM TB_POSTODISTRFORNC WHERE NIDENT = 9").toString(),
            QStringLiteral("F"));
        // The new firm is the one selected on the way back.
        QCOMPARE(field("txtDRAZAOSOCIL")->text(), QStringLiteral("FORNECEDORA BETA"));
    }

    void twoFirmsOfOneNameAreKeptApart() {
        seedFirm(1, 1, "POSTO IGUAL", "RUA UM");
        seedFirm(1, 2, "POSTO IGUAL", "RUA DOIS");
        openList();
        QCOMPARE(dataRows("fgrForn"), 2);
        selectRow("fgrForn", 2);
        QCOMPARE(field("txtDLOGRD")->text(), QStringLiteral("RUA DOIS"));
        click("cmdAlterar");
        QCOMPARE(field("txtDLOGRD")->text(), QStringLiteral("RUA DOIS"));
        QVERIFY(!button("cmdOk")->isEnabled());
        type("txtDLOGRD", "Rua Dois Mudada");
        QVERIFY(button("cmdOk")->isEnabled());
        QCOMPARE(okMessage(), QStringLiteral("Alterado com Sucesso."));
        QCOMPARE(street(1), QStringLiteral("RUA UM"));
        QCOMPARE(street(2), QStringLiteral("RUA DOIS MUDADA"));
        selectRow("fgrForn", 2);
        m_dialogs->clear();
        m_dialogs->answer(true);
        click("cmdExcluir");
        QCOMPARE(m_dialogs->shown().first().text, QStringLiteral("Excluir o Item selecionado?"));
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTODISTRFORNC"), 1);
        QCOMPARE(street(1), QStringLiteral("RUA UM"));
    }

    void onlyOneDistributorPerRegister() {
        seedFirm(1, 1, "DISTRIBUIDORA", "RUA UM", "D");
        seedFirm(1, 2, "FORNECEDORA", "RUA DOIS");
        openList();
        // The distributor's own row keeps its kind without a word.
        selectRow("fgrForn", 1);
        click("cmdAlterar");
        QVERIFY(find<QRadioButton>("Option1_0")->isChecked());
        type("txtDCONTT", "Outro Contato");
        QCOMPARE(okMessage(), QStringLiteral("Alterado com Sucesso."));
        QCOMPARE(
            db().scalar("SELECT IDISTRFORNC FROM TB_POSTODISTRFORNC WHERE NIDENT = 1").toString(),
            QStringLiteral("D"));
        // A supplier turned into a distributor is refused once, then saved as a supplier.
        selectRow("fgrForn", 2);
        click("cmdAlterar");
        type("txtDCONTT", "Mais Um");
        find<QRadioButton>("Option1_0")->setChecked(true);
        QCOMPARE(okMessage(), QStringLiteral("Só Pode Existir uma Distribuidora para este Posto"));
        QVERIFY(find<QRadioButton>("Option1_1")->isChecked());
        QCOMPARE(okMessage(), QStringLiteral("Alterado com Sucesso."));
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTODISTRFORNC WHERE IDISTRFORNC = 'D'"), 1);
        // Without the distributor, the option is free again.
        selectRow("fgrForn", 1);
        m_dialogs->answer(true);
        click("cmdExcluir");
        click("cmdAlterar");
        m_dialogs->clear();
        find<QRadioButton>("Option1_0")->click();
        QVERIFY(m_dialogs->shown().isEmpty());
        QVERIFY(find<QRadioButton>("Option1_0")->isChecked());
    }

    void aLongStoredTextIsSavedBackWhole() {
        seedFirm(1, 1, "DISTRIBUIDORA", "RUA UM", "D");
        const QString complement = QStringLiteral("BLOCO B, SALA 1204, FUNDOS"); // over 17
        db().run("UPDATE TB_POSTODISTRFORNC SET DLOGRDCOMPM = ?", {complement});
        openList();
        click("cmdAlterar");
        QCOMPARE(field("txtDLOGRDCOMPM")->text(), complement);
        type("txtDCONTT", "Outro Contato");
        QCOMPARE(okMessage(), QStringLiteral("Alterado com Sucesso."));
        QCOMPARE(db().scalar("SELECT DLOGRDCOMPM FROM TB_POSTODISTRFORNC").toString(), complement);
    }

    void theFirmIsRefusedInOrder() {
        openList();
        click("cmdIncluir");
        const auto expect = [&](const QString& message) {
            QCOMPARE(okMessage(), message);
            QApplication::focusWidget()->clearFocus();
        };
        type("txtDRAZAOSOCIL", "X");
        expect("Preenchimento Obrigatório do Nome para Contato");
        field("txtDCONTT")->setText("Y");
        expect("Preenchimento Obrigatório do Endereço");
        field("txtDLOGRD")->setText("RUA");
        expect("Preenchimento Obrigatório do Número ou do Complemento");
        field("txtDLOGRDCOMPM")->setText("LOJA 2");
        expect("Preenchimento Obrigatório do CEP");
        ui::setClipText(field("txtCCEP"), "01310100");
        expect("Preenchimento Obrigatório do Município");
        choose("cmbNMUNCP", "SÃO PAULO");
        expect("Preenchimento Obrigatório do DDD.");
        field("txtNDDD")->setText("11");
        expect("Preenchimento Obrigatório do Telefone.");
        ui::setClipText(field("txtNTELFN"), "30457788");
        ui::setClipText(field("txtNFAX"), "30");
        expect("Preenchimento Incorreto do FAX.");
        field("txtNFAX")->clear();
        QCOMPARE(okMessage(), QStringLiteral("Incluído com Sucesso"));
        QVERIFY(db().scalar("SELECT NLOGRD FROM TB_POSTODISTRFORNC").isNull());
    }

    void fitsTheSmallestScreen() {
        seedFirm(1, 1, "DISTRIBUIDORA", "RUA UM", "D");
        openList();
        QVERIFY(screen()->minimumSizeHint().width() <= 800);
        QVERIFY(screen()->minimumSizeHint().height() <= 600);
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), QStringLiteral("frmPostoDistrConsl"));
        click("cmdAlterar");
        QVERIFY(screen()->minimumSizeHint().height() <= 600);
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), QStringLiteral("frmPostoDistr"));
    }
};

QTEST_MAIN(TestDistributors)
#include "test_distributors.moc"
