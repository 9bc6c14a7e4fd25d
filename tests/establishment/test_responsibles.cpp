// frmPostoRespnContt: the responsible person and the contact persons of a register.
#include "establishment/EstablishmentScreens.h"
#include "exchange/Exporter.h"
#include "exchange/Importer.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"
#include "ui/FieldBehaviour.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

using testsupport::onRegister;
using testsupport::seedRow;

class TestResponsibles : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    void open() {
        ui::showPlace(*m_host, {QStringLiteral("frmPostoRespnContt")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoRespnContt"));
    }
    QLineEdit* field(const QString& name) { return find<QLineEdit>(name); }
    QString okMessage() {
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        return m_dialogs->shown().isEmpty() ? QString() : m_dialogs->last().text;
    }
    QVariant respn(const QString& column, int nseqnc = 1) {
        return db().scalar(
            QStringLiteral("SELECT %1 FROM TB_POSTORESPN WHERE NMUNCP = 100 AND NSEQNC = ?")
                .arg(column),
            {nseqnc});
    }
    void fillAddress() {
        type("txtDLOGRD", "Rua Augusta");
        type("txtNLOGRD", "45");
        type("txtCCEP", "01310-100");
        choose("cmbNMUNCP", "SÃO PAULO");
        type("txtNDDD", "11");
        type("txtNTELFN", "9988-7766");
    }
    void seedResponsible(int nseqnc, const QString& name) {
        store::Row row{{"NMUNCP", 100},      {"NSEQNC", nseqnc},  {"DRESPN", name},
                       {"DLOGRD", "RUA A"},  {"NLOGRD", 1},       {"CCEP", 1310100},
                       {"NMUNCPRESPN", 100}, {"NDDD", 11},        {"NTELFN", 30457788},
                       {"NRG", 123456789LL}, {"DRGORGAO", "SSP"}, {"IUF", "SP"}};
        seedRow(db(), "TB_POSTORESPN", row);
    }

private slots:
    void initTestCase() { establishment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void theResponsibleRoundTripsWithALongIdentity() {
        open();
        QVERIFY(button("cmdIncluir")->isEnabled());
        QVERIFY(!button("cmdAlterar")->isEnabled());
        QVERIFY(!button("cmdExcluir")->isEnabled());
        click("cmdIncluir");
        QVERIFY(find<QGroupBox>("fraResp")->isEnabled());
        QVERIFY(!find<QGroupBox>("fraContt")->isEnabled());
        QCOMPARE(QApplication::focusWidget(), field("txtDRESPN"));
        type("txtDRESPN", "João Pereira");
        type("txtNRG", "123456789012345");
        type("txtDRGORGAO", "SSP");
        type("txtIUF", "SP");
        type("txtCCPF", "12345678909");
        fillAddress();
        QCOMPARE(okMessage(), QStringLiteral("Responsável Incluído com Sucesso"));
        QCOMPARE(respn("NRG").toLongLong(), 123456789012345LL);
        QCOMPARE(respn("CCPF").toLongLong(), 12345678909LL);
        QCOMPARE(respn("DRESPN").toString(), QStringLiteral("JOÃO PEREIRA"));
        QCOMPARE(respn("NMUNCPRESPN").toInt(), 100);
        QCOMPARE(respn("CCEP").toInt(), 1310100);
        QCOMPARE(respn("NTELFN").toInt(), 99887766);
        QCOMPARE(respn("AINFRM").toString(), QStringLiteral("2024-01-10"));
        QVERIFY(respn("NFAX").isNull());
        QVERIFY(button("cmdAlterar")->isEnabled());
        QVERIFY(button("cmdExcluir")->isEnabled());

        open();
        QCOMPARE(field("txtNRG")->text(), QStringLiteral("123456789012345"));
        QCOMPARE(field("txtCCEP")->text(), QStringLiteral("01310-100"));
        QCOMPARE(field("txtNDDD")->text(), QStringLiteral("011"));
        QCOMPARE(field("txtNTELFN")->text(), QStringLiteral("9988-7766"));
        QCOMPARE(find<QComboBox>("cmbNMUNCP")->currentText(), QStringLiteral("SÃO PAULO"));
        click("cmdAlterar");
        type("txtDBAIRR", "Consolação");
        QCOMPARE(okMessage(), QStringLiteral("Responsável Alterado com Sucesso"));
        QCOMPARE(respn("DBAIRR").toString(), QStringLiteral("CONSOLAÇÃO"));
        QCOMPARE(respn("NRG").toLongLong(), 123456789012345LL);
    }

    void aLongIdentityTravelsThroughTheExchangeFile() {
        seedRow(db(), "EMPRS",
                {{"NMUNCP", 100},
                 {"NSEQNC", 1},
                 {"DRAZAOSOCIL", "AUTO POSTO TESTE LTDA"},
                 {"CCGC", 11222333000181LL},
                 {"CSITU", 1}});
        open();
        click("cmdIncluir");
        type("txtDRESPN", "Ana");
        type("txtNRG", "987654321098765");
        type("txtDRGORGAO", "SSP");
        type("txtIUF", "SP");
        type("txtCCPF", "11222333000181"); // a company number passes the same check
        fillAddress();
        QCOMPARE(okMessage(), QStringLiteral("Responsável Incluído com Sucesso"));

        const QString dir = m_env->path(QStringLiteral("troca"));
        QVERIFY(QDir().mkpath(dir));
        exchange::Exporter(db()).run(m_host->session().key(), dir);
        store::Database agency(m_env->newDatabasePath(QStringLiteral("AGENCIA.db")));
        QStringList refusals;
        exchange::Importer importer(agency);
        importer.setRefusal([&](const QString& message) { refusals << message; });
        QCOMPARE(importer.run(dir).imported, 1);
        QCOMPARE(refusals, QStringList{});
        QCOMPARE(agency.scalar("SELECT NRG FROM TB_POSTORESPN").toLongLong(), 987654321098765LL);
        QCOMPARE(agency.scalar("SELECT CCPF FROM TB_POSTORESPN").toLongLong(), 11222333000181LL);
    }

    void aChangeLeavesTheOtherRegistersAlone() {
        seedResponsible(1, "PRIMEIRO");
        seedResponsible(2, "SEGUNDO");
        open();
        QCOMPARE(field("txtDRESPN")->text(), QStringLiteral("PRIMEIRO"));
        click("cmdAlterar");
        type("txtDRESPN", "Primeiro Alterado");
        QCOMPARE(okMessage(), QStringLiteral("Responsável Alterado com Sucesso"));
        QCOMPARE(respn("DRESPN", 1).toString(), QStringLiteral("PRIMEIRO ALTERADO"));
        QCOMPARE(respn("DRESPN", 2).toString(), QStringLiteral("SEGUNDO"));
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTORESPN"), 2);
    }

    void theResponsibleIsRefusedInOrder() {
        open();
        click("cmdIncluir");
        const auto expect = [&](const QString& message, const QString& focus) {
            QCOMPARE(okMessage(), message);
            QCOMPARE(QApplication::focusWidget()->objectName(), focus);
        };
        expect("Preenchimento Obrigatório do Nome do Responsável.", "txtDRESPN");
        type("txtDRESPN", "Ana");
        // RG, issuer and state go together: each alone names what is missing.
        field("txtNRG")->setText("1234");
        expect("Ao Preencher o Campo RG, é Obrigatório o Preenchimento do Órgão Expedidor.",
               "txtDRGORGAO");
        field("txtDRGORGAO")->setText("SSP");
        expect("Ao Preencher o Campo RG, é Obrigatório o Preenchimento do Campo UF.", "txtIUF");
        field("txtNRG")->clear();
        expect("Ao Preencher o Campo Órgão Expedidor, é Obrigatório o Preenchimento do Campo RG.",
               "txtNRG");
        field("txtDRGORGAO")->clear();
        field("txtIUF")->setText("SP");
        expect("Ao Preencher o Campo UF, é Obrigatório o Preenchimento do Campo RG.", "txtNRG");
        field("txtIUF")->clear();
        field("txtCCPF")->setText("12345678900");
        expect("Preenchimento Inválido do CPF.", "txtCCPF");
        field("txtCCPF")->clear();
        expect("Preenchimento Obrigatório do Endereço.", "txtDLOGRD");
        field("txtDLOGRD")->setText("RUA");
        expect("Preenchimento Obrigatório do Número ou do Complemento", "txtNLOGRD");
        field("txtDLOGRDCOMPM")->setText("FUNDOS"); // the complement is enough
        expect("Preenchimento Obrigatório do CEP.", "txtCCEP");
        ui::setClipText(field("txtCCEP"), "0131");
        expect("Preenchimento Incorrento do CEP.", "txtCCEP");
        ui::setClipText(field("txtCCEP"), "01310100");
        expect("Preenchimento Obrigatório do Município.", "cmbNMUNCP");
        choose("cmbNMUNCP", "SÃO PAULO");
        expect("Preenchimento Obrigatório do DDD.", "txtNDDD");
        field("txtNDDD")->setText("11");
        expect("Preenchimento Obrigatório do Telefone do Responsável.", "txtNTELFN");
        ui::setClipText(field("txtNTELFN"), "30457");
        expect("Preenchimento Incorreto do Telefone do Responsável.", "txtNTELFN");
        ui::setClipText(field("txtNTELFN"), "30457788");
        ui::setClipText(field("txtNFAX"), "304");
        expect("Preenchimento Incorreto do FAX.", "txtNFAX");
        field("txtNFAX")->clear();
        QCOMPARE(okMessage(), QStringLiteral("Responsável Incluído com Sucesso"));
    }

    void contactsAreSavedAndDeletedWithoutAQuestion() {
        open();
        find<QRadioButton>("optOperacao_1")->click();
        QVERIFY(button("cmdIncluir")->isEnabled());
        click("cmdIncluir");
        QVERIFY(find<QGroupBox>("fraContt")->isEnabled());
        QVERIFY(!find<QGroupBox>("fraResp")->isEnabled());
        type("txtDNOMEROTNR", "Ana Lima");
        type("txtDCARGOROTNR", "Gerente");
        type("txtNDDDROTNR", "11");
        QCOMPARE(field("txtNDDDROTNR")->text(), QStringLiteral("011"));
        type("txtNTELFNROTNR", "3045-7788");
        // The emergency person is required too.
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento Obrigatório do Nome do Contato "
                                             "Emergencial."));
        type("txtDNOMEEMERG", "Carlos Souza");
        type("txtDCARGOEMERG", "Supervisor");
        type("txtNDDDEMERG", "11");
        type("txtNTELFNEMERG", "3045-7790");
        ui::setClipText(field("txtNPAGEREMERG"), "12");
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento Incorreto do Número do Pager."));
        field("txtNPAGEREMERG")->clear();
        QCOMPARE(okMessage(), QStringLiteral("Pessoas para Contato Incluídas com Sucesso"));
        QCOMPARE(db().scalar("SELECT DNOMEEMERG FROM TB_POSTOCONTT").toString(),
                 QStringLiteral("CARLOS SOUZA"));
        QCOMPARE(db().scalar("SELECT NTELFNEMERG FROM TB_POSTOCONTT").toInt(), 30457790);
        QVERIFY(db().scalar("SELECT NCELLRROTNR FROM TB_POSTOCONTT").isNull());

        // The responsible's record is still to be entered.
        find<QRadioButton>("optOperacao_0")->click();
        QVERIFY(button("cmdIncluir")->isEnabled());
        find<QRadioButton>("optOperacao_1")->click();
        m_dialogs->clear();
        click("cmdExcluir");
        QCOMPARE(m_dialogs->texts(),
                 QStringList{QStringLiteral("Pessoas para Contato Excluídas com Sucesso")});
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTOCONTT"), 0);
        QVERIFY(field("txtDNOMEROTNR")->text().isEmpty());
        QVERIFY(button("cmdIncluir")->isEnabled());
        QVERIFY(!button("cmdExcluir")->isEnabled());
    }

    void cancellingKeepsAChangeInSightAndDropsANewRecord() {
        seedResponsible(1, "PRIMEIRO");
        open();
        click("cmdAlterar");
        type("txtDRESPN", "Outro Nome");
        click("cmdCancelar");
        QCOMPARE(field("txtDRESPN")->text(), QStringLiteral("OUTRO NOME"));
        QVERIFY(!find<QGroupBox>("fraResp")->isEnabled());
        QCOMPARE(respn("DRESPN").toString(), QStringLiteral("PRIMEIRO"));
        open();
        QCOMPARE(field("txtDRESPN")->text(), QStringLiteral("PRIMEIRO"));

        find<QRadioButton>("optOperacao_1")->click();
        click("cmdIncluir");
        type("txtDNOMEROTNR", "Ana");
        click("cmdCancelar");
        QVERIFY(field("txtDNOMEROTNR")->text().isEmpty());
        QVERIFY(button("cmdIncluir")->isEnabled());
    }

    void fieldsRefuseOnLeaving() {
        open();
        click("cmdIncluir");
        m_dialogs->clear();
        type("txtCCPF", "11111111112");
        QCOMPARE(m_dialogs->texts(), QStringList{QStringLiteral("Preenchimento Inválido do CPF.")});
        QCOMPARE(QApplication::focusWidget(), field("txtCCPF"));
        type("txtCCPF", "");
        find<QRadioButton>("optOperacao_1")->click();
        click("cmdIncluir");
        m_dialogs->clear();
        type("txtNFAXEMERG", "3045");
        QCOMPARE(m_dialogs->texts(),
                 QStringList{QStringLiteral("Preenchimento Incorreto do FAX do Contato "
                                            "Emergencial.")});
    }

    void fitsTheSmallestScreen() {
        seedResponsible(1, "PRIMEIRO");
        open();
        QVERIFY(screen()->minimumSizeHint().width() <= 800);
        QVERIFY2(screen()->minimumSizeHint().height() <= 600,
                 qPrintable(QString::number(screen()->minimumSizeHint().height())));
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), QStringLiteral("frmPostoRespnContt"));
    }
};

QTEST_MAIN(TestResponsibles)
#include "test_responsibles.moc"
