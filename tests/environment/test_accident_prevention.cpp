// The single form of the fire-fighting approval and the emergency team.
#include "environment/EnvironmentScreens.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"
#include "ui/FieldBehaviour.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace testsupport;

class TestAccidentPrevention : public QObject, private ScreenDriver {
    Q_OBJECT

    void open() {
        ui::showPlace(*m_host, {QStringLiteral("frmPostoPrevnAcidn")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoPrevnAcidn"));
    }
    void shot(const QString& name) {
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        saveScreenshot(*screen(), name);
    }
    QVariantMap storedRow() {
        QSqlQuery q =
            db().run("Select * From TB_POSTOPREVNACIDN Where NMUNCP = 100 And NSEQNC = 1");
        QVariantMap row;
        if (q.next()) {
            for (int i = 0; i < q.record().count(); ++i)
                row.insert(q.record().fieldName(i), q.value(i));
        }
        return row;
    }
    QRadioButton* option(int index) {
        return find<QRadioButton>(QStringLiteral("optSEQUPEEMERG_%1").arg(index));
    }
    QCheckBox* box(const QString& name) { return find<QCheckBox>(name); }
    bool shown(const QString& frame) { return find<QWidget>(frame)->isVisible(); }
    QString today(int days = 0) {
        return QDate::currentDate().addDays(days).toString("dd/MM/yyyy");
    }
    void fillFire() {
        type("mskAAPRVC", "10/05/2020");
        type("txtNAUTOVISTR", "4521");
        type("mskAAUTOVISTR", "01/06/2025");
    }

private slots:
    void initTestCase() { environment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    // "Terceirizada" needs the whole firm, in its order; the row is written once with every
    // field, telephones as their digits and the booleans as -1 and 0.
    void anOutsourcedTeamRoundTrips() {
        open();
        QVERIFY(button("cmdIncluir")->isEnabled());
        QVERIFY(!button("cmdAlterar")->isEnabled());
        QVERIFY(!button("cmdExcluir")->isEnabled());
        QVERIFY(!find<QWidget>("fra1")->isEnabled());
        QVERIFY(!shown("fra2"));
        click("cmdIncluir");
        QVERIFY(find<QLineEdit>("mskAAPRVC")->hasFocus());
        fillFire();
        option(0)->click();
        QVERIFY(shown("fra2"));
        QVERIFY(!shown("fra3"));
        box("chkSEQUPEEMERGTERCR")->click();
        QVERIFY(shown("fra3"));
        QVERIFY(find<QWidget>("fra3")->isEnabled());
        click("cmdOk");
        type("txtDRAZAOSOCIL", "Brigada Ltda");
        click("cmdOk");
        type("txtDCONTT", "Roberto");
        click("cmdOk");
        type("txtDCARGO", "Coordenador");
        click("cmdOk");
        type("txtNDDD", "19");
        QCOMPARE(find<QLineEdit>("txtNDDD")->text(), QStringLiteral("019"));
        click("cmdOk");
        type("mskNTELFN", "3222-1111");
        type("txtNDDDACINM", "19");
        click("cmdOk");
        find<QLineEdit>("txtNDDDACINM")->clear();
        type("mskNTELFNACINM", "3222-3333");
        click("cmdOk");
        type("txtNDDDACINM", "19");
        type("mskNCELLR", "9777-6666");
        QCOMPARE(messages(), QStringList({
                                 "critical: Preenchimento Obrigatório da Empresa.",
                                 "critical: Preenchimento Obrigatório do Contato.",
                                 "critical: Preenchimento Obrigatório do Cargo.",
                                 "critical: Preenchimento Obrigatório do DDD.",
                                 "critical: Preenchimento Obrigatório do Telefone.",
                                 "critical: Preenchimento Obrigatório do Telefone de Acionamento.",
                                 "critical: Preenchimento Obrigatório do DDD de Acionamento",
                             }));
        shot("frmPostoPrevnAcidn-edit");
        m_dialogs->clear();
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso."});
        QVERIFY(!find<QWidget>("fra1")->isEnabled());
        QVERIFY(button("cmdAlterar")->isEnabled());
        QVERIFY(button("cmdExcluir")->isEnabled());
        QVERIFY(!button("cmdIncluir")->isEnabled());

        const QVariantMap row = storedRow();
        QCOMPARE(row.value("AAPRVC").toString(), QStringLiteral("2020-05-10"));
        QCOMPARE(row.value("NAUTOVISTR").toInt(), 4521);
        QCOMPARE(row.value("AAUTOVISTR").toString(), QStringLiteral("2025-06-01"));
        QCOMPARE(row.value("SEQUPEEMERG").toInt(), -1);
        QCOMPARE(row.value("SEQUPEEMERGPROPR").toInt(), 0);
        QCOMPARE(row.value("SEQUPEEMERGTERCR").toInt(), -1);
        QCOMPARE(row.value("SEQUPEEMERGDISTR").toInt(), 0);
        QCOMPARE(row.value("DRAZAOSOCIL").toString(), QStringLiteral("BRIGADA LTDA"));
        QCOMPARE(row.value("NDDD").toInt(), 19);
        QCOMPARE(row.value("NTELFN").toLongLong(), 32221111);
        QCOMPARE(row.value("NCELLR").toLongLong(), 97776666);
        QVERIFY(row.value("NPAGER").isNull()); // optional, Null when empty
        QCOMPARE(row.value("NDDDACINM").toInt(), 19);
        QCOMPARE(row.value("NTELFNACINM").toLongLong(), 32223333);
        QCOMPARE(row.value("AINFRM").toString(), QStringLiteral("2024-01-10"));

        // Shown again as stored.
        open();
        QCOMPARE(find<QLineEdit>("mskAAPRVC")->text(), QStringLiteral("10/05/2020"));
        QVERIFY(option(0)->isChecked());
        QVERIFY(box("chkSEQUPEEMERGTERCR")->isChecked());
        QVERIFY(shown("fra3"));
        QCOMPARE(find<QLineEdit>("mskNTELFN")->text(), QStringLiteral("3222-1111"));
        shot("frmPostoPrevnAcidn");
        click("cmdAlterar");
        QVERIFY(find<QWidget>("fra3")->isEnabled());
        // The three boxes are one choice; "Própria" needs none of the firm.
        box("chkSEQUPEEMERGPROPR")->click();
        QVERIFY(!box("chkSEQUPEEMERGTERCR")->isChecked());
        QVERIFY(!shown("fra3"));
        m_dialogs->clear();
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso."});
        QCOMPARE(count("Select Count(*) From TB_POSTOPREVNACIDN"), 1);
        QCOMPARE(storedRow().value("SEQUPEEMERGPROPR").toInt(), -1);
        QCOMPARE(storedRow().value("SEQUPEEMERGTERCR").toInt(), 0);
        // What stood in the hidden firm is saved as it was.
        QCOMPARE(storedRow().value("DCONTT").toString(), QStringLiteral("ROBERTO"));

        m_dialogs->clear();
        m_dialogs->answer(true);
        click("cmdExcluir");
        QCOMPARE(messages(), QStringList{"question: Deseja Excluir os Itens?."});
        QCOMPARE(count("Select Count(*) From TB_POSTOPREVNACIDN"), 0);
        QVERIFY(button("cmdIncluir")->isEnabled());
        QVERIFY(find<QLineEdit>("mskAAPRVC")->text().remove('/').trimmed().isEmpty());
    }

    void theFirstChecksInTheirOrder() {
        open();
        click("cmdIncluir");
        click("cmdOk");
        type("mskAAPRVC", "10/05/2020");
        click("cmdOk");
        QVERIFY(option(1)->hasFocus());
        option(0)->click();
        click("cmdOk");
        type("txtNAUTOVISTR", "1");
        click("cmdOk");
        type("mskAAUTOVISTR", "10/05/2020");
        click("cmdOk");
        QVERIFY(box("chkSEQUPEEMERGPROPR")->hasFocus());
        QCOMPARE(messages(),
                 QStringList({
                     "critical: Preenchimento Obrigatório da Data da Aprovação pelo Corpo de "
                     "Bombeiros",
                     "critical: Preenchimento Obrigatório de Equipe de Pronto Atendimento à "
                     "Emergência.",
                     "critical: Preenchimento Obrigatório do Número do Auto de Vistoria.",
                     "critical: Preenchimento Obrigatório da Validade",
                     "critical: Preenchimento Obrigatório da Equipe de Emergência",
                 }));
        // "Não" needs no team and hides its frame.
        option(1)->click();
        QVERIFY(!shown("fra2"));
        m_dialogs->clear();
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso."});
        QCOMPARE(storedRow().value("SEQUPEEMERG").toInt(), 0);
        open();
        QVERIFY(option(1)->isChecked());
        QVERIFY(!shown("fra2"));
    }

    void theDatesAreChecked_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        const QString approval = "mskAAPRVC";
        const QString validity = "mskAAUTOVISTR";
        QTest::newRow("approval today") << approval << today() << "";
        QTest::newRow("approval tomorrow")
            << approval << today(1)
            << "Data da Aprovação pelo Corpo de Bombeiros não deve ser maior que a Data Atual.";
        QTest::newRow("31 February")
            << approval << "31/02/2020"
            << "Preenchimento Incorreto da Data da Aprovação pelo Corpo de Bombeiros";
        QTest::newRow("month 13, a date only the other way round")
            << approval << "05/13/2020"
            << "Preenchimento Incorreto da Aprovação pelo Corpo de Bombeiros";
        QTest::newRow("validity on the approval's day") << validity << "10/05/2020"
                                                        << "";
        QTest::newRow("validity a day before")
            << validity << "09/05/2020"
            << "Data de Validade Deve Ser Maior ou Igual a Data da Aprovação pelo Corpo de "
               "Bombeiros.";
        QTest::newRow("validity no date") << validity << "30/02/2021"
                                          << "Preenchimento Incorreto da Data de Validade.";
        QTest::newRow("validity month 13") << validity << "05/13/2021"
                                           << "Preenchimento Incorreto da Data de Validade";
    }

    void theDatesAreChecked() {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        open();
        click("cmdIncluir");
        if (field != "mskAAPRVC")
            type("mskAAPRVC", "10/05/2020");
        type(field, typed);
        if (message.isEmpty()) {
            QVERIFY(messages().isEmpty());
            QCOMPARE(find<QLineEdit>(field)->text(), typed);
            return;
        }
        QCOMPARE(messages(), QStringList{"critical: " + message});
        QVERIFY(find<QLineEdit>(field)->hasFocus());
        QVERIFY(ui::clipText(find<QLineEdit>(field)).isEmpty());
    }

    void wrongAreaCodesAndPhonesAreRefused() {
        open();
        click("cmdIncluir");
        option(0)->click();
        box("chkSEQUPEEMERGTERCR")->click();
        type("txtNDDD", "1");
        type("txtNDDD", "11");
        type("mskNCELLR", "123");
        type("mskNCELLR", "");
        type("mskNPAGER", "12");
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Incorreto do Número de DDD da Empresa de "
                              "Emergência Terceirizada",
                              "critical: Preenchimento Incorreto do Número do Telefone Celular.",
                              "critical: Preenchimento Incorreto do Número do Pager."}));
    }

    void theFormWalksTheChain() {
        open();
        click("cmdVoltar");
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoRuido"));
        QVERIFY(button("cmdContinuar")->hasFocus());
    }
};

QTEST_MAIN(TestAccidentPrevention)
#include "test_accident_prevention.moc"
