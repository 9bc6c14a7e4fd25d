// frmPostoAreaServc: the paving and drainage of the four service areas.
#include "establishment/EstablishmentScreens.h"
#include "printing/Layout.h"
#include "printing/ReportHtml.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QTest>

using testsupport::onRegister;
using testsupport::seedRow;

class TestServiceAreas : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    void open() {
        ui::showPlace(*m_host, {QStringLiteral("frmPostoAreaServc")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoAreaServc"));
    }
    void area(int index) {
        find<QRadioButton>(QStringLiteral("optOperacao_%1").arg(index))->click();
    }
    QCheckBox* box(const QString& name) { return find<QCheckBox>(name); }
    QRadioButton* answer(const QString& name, bool yes) {
        return find<QRadioButton>(name + (yes ? QStringLiteral("_0") : QStringLiteral("_1")));
    }
    bool shown(const QString& name) { return find<QWidget>(name)->isVisible(); }
    QString okMessage() {
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        return m_dialogs->shown().isEmpty() ? QString() : m_dialogs->last().text;
    }
    QVariant stored(const char* table, const char* column) {
        return db().scalar(QStringLiteral("SELECT %1 FROM %2 WHERE NMUNCP = 100 AND NSEQNC = 1")
                               .arg(QLatin1String(column), QLatin1String(table)));
    }
    void seedArea(const char* table) { seedRow(db(), table, onRegister({{"SCONCR", 1}})); }
    // Continuar: whether the chain went on, and the message shown if it did not.
    QString leaving() {
        m_dialogs->clear();
        QWidget* before = screen();
        click(QStringLiteral("cmdContinuar"));
        if (m_host->current() != before)
            return QStringLiteral("left");
        return m_dialogs->shown().isEmpty() ? QString() : m_dialogs->last().text;
    }

private slots:
    void initTestCase() { establishment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void theOperationalAreaWithItsDependentQuestions() {
        open();
        QVERIFY(button("cmdIncluir")->isEnabled());
        QVERIFY(!shown("picSDRENGSAO"));
        click("cmdIncluir");
        QVERIFY(!find<QWidget>("picOperacao")->isEnabled());
        QVERIFY(find<QGroupBox>("fra1")->isEnabled());
        QVERIFY(!find<QGroupBox>("fra4")->isEnabled());
        QVERIFY(!find<QGroupBox>("fra4")->isVisible());
        QCOMPARE(okMessage(),
                 QStringLiteral("Seleção Obrigatório de Pelo Menos Um Tipo de Pavimento."));
        QCOMPARE(QApplication::focusWidget(), box("chkSSEMPAVMN"));
        box("chkSSEMPAVMN")->click(); // no paving excludes nothing
        box("chkSASFLT")->click();
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento Obrigatório da Opção Área de Operação "
                                             "c/ Canaletas de Drenagem."));
        QCOMPARE(QApplication::focusWidget(), answer("optSDRENG", true));
        answer("optSDRENG", true)->click();
        QVERIFY(shown("picSDRENGSAO"));
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento Obrigatório da Opção Interligadas ao "
                                             "S.A.O."));
        answer("optSDRENGSAO", true)->click();
        // "Não" after "Sim" hides the dependent pair and clears it.
        answer("optSDRENG", false)->click();
        QVERIFY(!shown("picSDRENGSAO"));
        QVERIFY(!answer("optSDRENGSAO", true)->isChecked());
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento Obrigatório da Opção Demais Áreas  c/ "
                                             "Canaletas de Drenagem."));
        answer("optSDRENGDEMAS", true)->click();
        answer("optSDRENGDEMASSAO", false)->click();
        QCOMPARE(okMessage(), QStringLiteral("Incluído com Sucesso"));
        QCOMPARE(stored("TB_POSTOAREAABAST", "SSEMPAVMN").toInt(), 1);
        QCOMPARE(stored("TB_POSTOAREAABAST", "SASFLT").toInt(), 1);
        QCOMPARE(stored("TB_POSTOAREAABAST", "SCONCR").toInt(), 0);
        QCOMPARE(stored("TB_POSTOAREAABAST", "SDRENG").toInt(), 0);
        QCOMPARE(stored("TB_POSTOAREAABAST", "SDRENGSAO").toInt(), 0); // hidden: stored 0
        QCOMPARE(stored("TB_POSTOAREAABAST", "SDRENGDEMAS").toInt(), -1);
        QCOMPARE(stored("TB_POSTOAREAABAST", "SDRENGDEMASSAO").toInt(), 0);
        QCOMPARE(stored("TB_POSTOAREAABAST", "AINFRM").toString(), QStringLiteral("2024-01-10"));
        QVERIFY(find<QWidget>("picOperacao")->isEnabled());
        QVERIFY(button("cmdAlterar")->isEnabled());
        QVERIFY(button("cmdExcluir")->isEnabled());

        // The memorial decodes what was stored.
        const QString report = printing::reportHtml(db(), printing::layout("rpt26_areasserv"),
                                                    m_host->session().key());
        QVERIFY(report.contains("Asfalto"));

        open();
        QVERIFY(box("chkSASFLT")->isChecked());
        QVERIFY(answer("optSDRENG", false)->isChecked());
        QVERIFY(answer("optSDRENGDEMAS", true)->isChecked());
        QVERIFY(shown("picSDRENGDEMASSAO"));
        QVERIFY(!shown("picSDRENGSAO"));
        click("cmdAlterar");
        answer("optSDRENG", true)->click();
        answer("optSDRENGSAO", true)->click();
        QCOMPARE(okMessage(), QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(stored("TB_POSTOAREAABAST", "SDRENGSAO").toInt(), -1);
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTOAREAABAST"), 1);
    }

    void washingAsksItsSeparatorsInOrder() {
        open();
        area(2);
        click("cmdIncluir");
        QVERIFY(find<QGroupBox>("fra3")->isEnabled());
        box("chkLavagSCONCR")->click();
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento Obrigatório da Opção Coleta de Águas "
                                             "Servidas."));
        answer("optLavagSCOLTAAGUASERVD", true)->click();
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento Obrigatório da Opção Caixa de "
                                             "Retenção de Sólidos."));
        answer("optLavagSCAIXARETNCSOLDO", true)->click();
        QCOMPARE(okMessage(),
                 QStringLiteral("Preenchimento Obrigatório da Opção Interligadas ao S.A.O."));
        answer("optLavagSSAO", true)->click();
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento Obrigatório da Opção S.A.O. Próprio."));
        answer("optLavagSSAOPROPR", true)->click();
        QCOMPARE(okMessage(),
                 QStringLiteral("Preenchimento Obrigatório da Opção S.A.O. da Pista."));
        answer("optLavagSSAOPISTA", false)->click();
        // No collection hides everything below it, the separators' own questions too.
        answer("optLavagSCOLTAAGUASERVD", false)->click();
        QVERIFY(!shown("picLavagSSAO"));
        QVERIFY(!shown("picLavagSSAOPROPR"));
        QCOMPARE(okMessage(), QStringLiteral("Incluído com Sucesso"));
        for (const char* column : {"SCOLTAAGUASERVD", "SCAIXARETNCSOLDO", "SSAO", "SSAOPROPR"})
            QCOMPARE(stored("TB_POSTOAREALAVAGEM", column).toInt(), 0);
        // The discharge area has no "no paving" box.
        area(3);
        QVERIFY(!screen()->findChild<QCheckBox*>("chkDescarSSEMPAVMN"));
    }

    void leavingDemandsTheOperationalAndDischargeAreasTogether() {
        open();
        QCOMPARE(leaving(), QStringLiteral("left")); // nothing filled
        seedArea("TB_POSTOAREALAVAGEM");
        open();
        QCOMPARE(leaving(),
                 QStringLiteral("Preenchimento Obrigatório dos Dados da Área Operacional"));
        QCOMPARE(m_dialogs->last().icon, ui::Icon::Information);
        QVERIFY(find<QRadioButton>("optOperacao_0")->isChecked());
        seedArea("TB_POSTOAREAABAST");
        QCOMPARE(leaving(),
                 QStringLiteral("Preenchimento Obrigatório dos Dados da Área de Descarga"));
        QVERIFY(find<QRadioButton>("optOperacao_3")->isChecked());
        QVERIFY(button("cmdIncluir")->isEnabled());
        seedArea("TB_POSTOAREADESCARGA");
        m_dialogs->clear();
        click("cmdVoltar");
        QVERIFY(m_dialogs->shown().isEmpty());

        // Deleting the operational area makes the exit refuse again.
        open();
        area(0);
        m_dialogs->answer(true);
        click("cmdExcluir");
        QCOMPARE(m_dialogs->shown().first().text,
                 QStringLiteral("Deseja Excluir os Ítens de Área Operacional?."));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Excluído com Sucesso."));
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTOAREAABAST"), 0);
        QVERIFY(button("cmdIncluir")->isEnabled());
        QCOMPARE(leaving(),
                 QStringLiteral("Preenchimento Obrigatório dos Dados da Área Operacional"));
    }

    void fitsTheSmallestScreen() {
        seedArea("TB_POSTOAREAABAST");
        open();
        QVERIFY(screen()->minimumSizeHint().width() <= 800);
        QVERIFY2(screen()->minimumSizeHint().height() <= 600,
                 qPrintable(QString::number(screen()->minimumSizeHint().height())));
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), QStringLiteral("frmPostoAreaServc"));
    }
};

QTEST_MAIN(TestServiceAreas)
#include "test_service_areas.moc"
