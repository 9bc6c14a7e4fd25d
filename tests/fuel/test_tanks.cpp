#include "fuel/FuelScreens.h"
#include "support/ScreenDriver.h"
#include "support/TestEnvironment.h"
#include "ui/ListScreen.h"
#include "ui/MaintenanceScreen.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTest>
#include <functional>
#include <memory>

namespace {

const QString kCritical = QStringLiteral("critical");

} // namespace

class TestTanks : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    void openList(const QString& name = QStringLiteral("frmTanqu")) {
        ui::showPlace(*m_host, {name});
        QCOMPARE(screen()->objectName(), name);
    }

    // Fills the tank block of a new tank; the compartments and the owner stay as they are.
    void fillTank(const QString& number, const QString& compartments) {
        type(QStringLiteral("txtNTANQU"), number);
        type(QStringLiteral("txtNIDENT"), QStringLiteral("TANQUE ") + number);
        type(QStringLiteral("mskAINSTL"), QStringLiteral("15/03/2010"));
        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Fibra de Vidro - Parede Dupla"));
        type(QStringLiteral("txtQCOMPRT"), compartments);
        choose(QStringLiteral("cmbitesteestnq"), QStringLiteral("Não Realizado"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Distribuidora"));
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Em Uso"));
    }

    void fillCompartment(const QString& number) {
        type(QStringLiteral("txtNCOMPR"), number);
        choose(QStringLiteral("cmbNBOCACARRG"), QStringLiteral("Descarga Selada"));
        type(QStringLiteral("txtQCAPCD"), QStringLiteral("15"));
        choose(QStringLiteral("cmbNCOMBS"), QStringLiteral("Óleo Diesel S10"));
        type(QStringLiteral("txtQRESPRALTRA"), QStringLiteral("4"));
        type(QStringLiteral("txtQRESPRDISTCRECPT"), QStringLiteral("12"));
    }

    // A tank straight into the database, with `compartments` compartments and the declared
    // number `declared`. An aboveground tank ("A") is a horizontal one of "Aço" on "Concreto".
    void seedTank(int ntanqu, int declared, int compartments, const QString& ipropr = "D",
                  const QString& itanqu = "S") {
        const bool above = itanqu == QLatin1String("A");
        db().run(QStringLiteral(
                     "Insert Into TB_POSTOTANQU (NMUNCP, NSEQNC, AINFRM, ITANQU, NTANQU, NIDENT,"
                     " AINSTL, NMATRL, QCOMPRT, IPROPR, ITESTEESTNQ, ISITCA, SSISTMPROTC, IPROTC,"
                     " DPROTC, IFREQNMANTN, IPOSCA, NBASE) Values (100, 1, '2024-01-10', ?, ?,"
                     " 'TQ', '2005-06-01', ?, ?, ?, 'ND', 'A', 'S', 'Corrente Impressa',"
                     " 'RETIFICADOR', 'Mensal', ?, ?)"),
                 {itanqu, ntanqu, above ? 10 : 4, declared, ipropr,
                  above ? QVariant(QStringLiteral("H")) : QVariant(),
                  above ? QVariant(1) : QVariant()});
        for (int c = 1; c <= compartments; ++c)
            db().run(QStringLiteral("Insert Into TB_POSTOTANQUCOMPR Values (100, 1, '2024-01-10',"
                                    " ?, ?, ?, 1, 10, 101, 3, 5)"),
                     {itanqu, ntanqu, c});
    }

    // The rows of each family in the tables of tanks, as "S:n A:n" per table.
    QString rowsByFamily() {
        QStringList counts;
        for (const char* table :
             {"TB_POSTOTANQU", "TB_POSTOTANQUCOMPR", "TB_POSTOTANQUPROPR", "TB_POSTOBOMBATANQU"}) {
            const QString from = QStringLiteral(" From %1 Where ITANQU = ").arg(table);
            counts << QStringLiteral("%1 S:%2 A:%3")
                          .arg(QLatin1String(table))
                          .arg(count(QStringLiteral("Select Count(*)") + from + "'S'"))
                          .arg(count(QStringLiteral("Select Count(*)") + from + "'A'"));
        }
        return counts.join(QStringLiteral(", "));
    }

    // The owner and a pump's link to compartment 1 of a seeded tank.
    void seedOwnerAndLink(int ntanqu, const QString& itanqu) {
        db().run(QStringLiteral("Insert Into TB_POSTOTANQUPROPR (NMUNCP, NSEQNC, AINFRM, ITANQU,"
                                " NTANQU, DRAZAOSOCIL) Values (100, 1, '2024-01-10', ?, ?, 'X')"),
                 {itanqu, ntanqu});
        db().run(QStringLiteral("Insert Into TB_POSTOBOMBATANQU (NMUNCP, NSEQNC, AINFRM, ITANQU,"
                                " NBOMBA, NTANQU, NCOMPR) Values (100, 1, '2024-01-10', ?, 9, ?,"
                                " 1)"),
                 {itanqu, ntanqu});
    }

    // Fills the tank block of a new aboveground tank.
    void fillReservoir(const QString& number, const QString& compartments) {
        type(QStringLiteral("txtNTANQU"), number);
        type(QStringLiteral("txtNIDENT"), QStringLiteral("AEREO ") + number);
        type(QStringLiteral("mskAINSTL"), QStringLiteral("20/08/2015"));
        choose(QStringLiteral("cmbIPOSCA"), QStringLiteral("Horizontal"));
        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Aço"));
        choose(QStringLiteral("cmbNBASE"), QStringLiteral("Concreto"));
        type(QStringLiteral("txtQCOMPRT"), compartments);
        choose(QStringLiteral("cmbitesteestnq"), QStringLiteral("Não Realizado"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Distribuidora"));
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Em Uso"));
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }

    void init() { start(); }

    void cleanup() { stop(); }

    void newTankForcesEveryDeclaredCompartment() {
        openList();
        QVERIFY(!button(QStringLiteral("cmdAlterar"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdExcluir"))->isEnabled());
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanquM"));
        fillTank(QStringLiteral("7"), QStringLiteral("3"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{QStringLiteral("information: Incluído com Sucesso")});

        for (int step = 1; step <= 3; ++step) {
            QCOMPARE(screen()->objectName(), QStringLiteral("frmTanquM"));
            QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Incluir Compartimento"));
            QCOMPARE(find<QLineEdit>(QStringLiteral("txtNTANQU"))->text(), QStringLiteral("7"));
            QVERIFY(find<QLineEdit>(QStringLiteral("txtNCOMPR"))->text().isEmpty());
            QVERIFY(button(QStringLiteral("cmdOk"))->isEnabled());
            QVERIFY(!button(QStringLiteral("cmdCancelar"))->isEnabled());
            QVERIFY(!button(QStringLiteral("cmdFechar"))->isEnabled());
            fillCompartment(QString::number(step));
            click(QStringLiteral("cmdOk"));
        }
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanqu"));
        QCOMPARE(m_host->session().pendentes, 0);
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 0), QStringList{"7"});
        QCOMPARE(column(QStringLiteral("fgrPostoTanquCompar"), 0), QStringList({"1", "2", "3"}));
        QCOMPARE(column(QStringLiteral("fgrPostoTanquCompar"), 3).value(0),
                 QStringLiteral("Óleo Diesel S10"));
        // The new compartment is the selected one.
        QCOMPARE(find<QTableWidget>(QStringLiteral("fgrPostoTanquCompar"))->currentRow(), 2);
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQUCOMPR Where NTANQU = 7"), 3);

        QSqlQuery tank = db().run(
            QStringLiteral("Select AINSTL, ATESTEESTNQ, ITESTEESTNQ, IPROPR, ISITCA, NMATRL,"
                           " AINFRM From TB_POSTOTANQU Where NTANQU = 7 And ITANQU = 'S'"));
        QVERIFY(tank.next());
        QCOMPARE(tank.value(0).toString(), QStringLiteral("2010-03-15"));
        QVERIFY(tank.value(1).isNull());
        QCOMPARE(tank.value(2).toString(), QStringLiteral("NR"));
        QCOMPARE(tank.value(3).toString(), QStringLiteral("D"));
        QCOMPARE(tank.value(4).toString(), QStringLiteral("A"));
        QCOMPARE(tank.value(5).toInt(), 5);
        QCOMPARE(tank.value(6).toString(), QStringLiteral("2024-01-10"));
        // The grid shows the labels, not the codes.
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 5), QStringList{"Em Uso"});
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 7), QStringList{"Distribuidora"});
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 2), QStringList{"15/03/2010"});
    }

    void compartmentCountOnChange_data() {
        QTest::addColumn<QString>("declared");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("forced");
        QTest::newRow("lowered") << "1"
                                 << QStringList{"critical: Atualizar os Compartimentos do Tanque "
                                                "Antes de Atualizar o Número de Compartimentos."}
                                 << 0;
        QTest::newRow("raised by two")
            << "4" << QStringList{"information: Alterado com Sucesso"} << 2;
        QTest::newRow("kept") << "2" << QStringList{"information: Alterado com Sucesso"} << 0;
    }

    void compartmentCountOnChange() {
        QFETCH(QString, declared);
        QFETCH(QStringList, expected);
        QFETCH(int, forced);
        seedTank(3, 2, 2);
        openList();
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Alterar Tanque"));
        QVERIFY(!find<QWidget>(QStringLiteral("picNTANQU"))->isEnabled());
        type(QStringLiteral("txtQCOMPRT"), declared);
        if (declared == QLatin1String("2"))
            type(QStringLiteral("txtNIDENT"), QStringLiteral("OUTRO NOME"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), expected);
        if (expected.first().startsWith(kCritical)) {
            QCOMPARE(screen()->objectName(), QStringLiteral("frmTanquM"));
            QVERIFY(find<QLineEdit>(QStringLiteral("txtQCOMPRT"))->hasFocus());
            QCOMPARE(count("Select QCOMPRT From TB_POSTOTANQU Where NTANQU = 3"), 2);
            return;
        }
        for (int step = 0; step < forced; ++step) {
            QCOMPARE(screen()->objectName(), QStringLiteral("frmTanquM"));
            QVERIFY(!button(QStringLiteral("cmdFechar"))->isEnabled());
            fillCompartment(QString::number(step + 3));
            click(QStringLiteral("cmdOk"));
        }
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanqu"));
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQUCOMPR Where NTANQU = 3"), 2 + forced);
        QCOMPARE(count("Select QCOMPRT From TB_POSTOTANQU Where NTANQU = 3"), declared.toInt());
    }

    void changingATankKeepsItsCorrosionProtection() {
        seedTank(3, 2, 2);
        openList();
        click(QStringLiteral("cmdAlterar"));
        type(QStringLiteral("txtNIDENT"), QStringLiteral("NOVO"));
        click(QStringLiteral("cmdOk"));
        QSqlQuery tank = db().run(QStringLiteral(
            "Select NIDENT, SSISTMPROTC, IPROTC, DPROTC, IFREQNMANTN From TB_POSTOTANQU"));
        QVERIFY(tank.next());
        QCOMPARE(tank.value(0).toString(), QStringLiteral("NOVO"));
        QCOMPARE(tank.value(1).toString(), QStringLiteral("S"));
        QCOMPARE(tank.value(2).toString(), QStringLiteral("Corrente Impressa"));
        QCOMPARE(tank.value(3).toString(), QStringLiteral("RETIFICADOR"));
        QCOMPARE(tank.value(4).toString(), QStringLiteral("Mensal"));
    }

    void ownerRowGoesWhenTheOwnerIsNoLongerOther() {
        seedTank(5, 1, 1, QStringLiteral("O"));
        db().run(QStringLiteral(
            "Insert Into TB_POSTOTANQUPROPR (NMUNCP, NSEQNC, AINFRM, ITANQU, NTANQU, DRAZAOSOCIL,"
            " DCONTT, DLOGRD, NLOGRD, CCEP, NMUNCPDISTRFORNC, NDDD, NTELFN) Values (100, 1,"
            " '2024-01-10', 'S', 5, 'DONO SA', 'JOSE', 'RUA A', 10, 1310100, 100, 11, 33334444)"));
        openList();
        click(QStringLiteral("cmdAlterar"));
        QVERIFY(find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtDRAZAOSOCIL"))->text(),
                 QStringLiteral("DONO SA"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtCCEP"))->text(), QStringLiteral("01310-100"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtNDDD"))->text(), QStringLiteral("011"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtNTELFN"))->text(), QStringLiteral("3333-4444"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtUFMUNCP"))->text(), QStringLiteral("SP"));

        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Proprietário"));
        QVERIFY(!find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQUPROPR"), 0);
        QCOMPARE(db().scalar("Select IPROPR From TB_POSTOTANQU").toString(), QStringLiteral("P"));
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 7), QStringList{"Proprietário"});
    }

    void ownerKnownByTheMunicipalityNameAloneShowsIt() {
        seedTank(6, 1, 1, QStringLiteral("O"));
        db().run(QStringLiteral(
            "Insert Into TB_POSTOTANQUPROPR (NMUNCP, NSEQNC, AINFRM, ITANQU, NTANQU, DRAZAOSOCIL,"
            " DCONTT, DLOGRD, NLOGRD, CCEP, DMUNCPDISTRFORNC, NDDD, NTELFN) Values (100, 1,"
            " '2024-01-10', 'S', 6, 'DONO SA', 'JOSE', 'RUA A', 10, 17800000, 'ADAMANTINA', 18,"
            " 33334444)"));
        openList();
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNMUNCP"))->currentText(),
                 QStringLiteral("ADAMANTINA"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNMUNCP"))->currentData().toInt(), 101);
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtUFMUNCP"))->text(), QStringLiteral("SP"));
    }

    void ownerOfANewTankIsWrittenWhenOther() {
        openList();
        click(QStringLiteral("cmdIncluir"));
        fillTank(QStringLiteral("2"), QStringLiteral("00"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        QVERIFY(find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Preenchimento Obrigatório da Razão Social"});
        QVERIFY(find<QLineEdit>(QStringLiteral("txtDRAZAOSOCIL"))->hasFocus());
        type(QStringLiteral("txtDRAZAOSOCIL"), QStringLiteral("DONO"));
        type(QStringLiteral("txtDCONTT"), QStringLiteral("MARIA"));
        type(QStringLiteral("txtDLOGRD"), QStringLiteral("RUA B"));
        type(QStringLiteral("txtDLOGRDCOMPM"), QStringLiteral("FUNDOS"));
        type(QStringLiteral("txtCCEP"), QStringLiteral("1310"));
        QCOMPARE(messages().last(), QStringLiteral("critical: Preenchimento Incorreto do CEP."));
        type(QStringLiteral("txtCCEP"), QStringLiteral("01310-100"));
        choose(QStringLiteral("cmbNMUNCP"), QStringLiteral("SÃO PAULO"));
        type(QStringLiteral("txtNDDD"), QStringLiteral("11"));
        type(QStringLiteral("txtNTELFN"), QStringLiteral("55556666"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        // "00" declares no compartment: no chain.
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanqu"));
        QSqlQuery owner = db().run(QStringLiteral(
            "Select DRAZAOSOCIL, NLOGRD, DLOGRDCOMPM, CCEP, NMUNCPDISTRFORNC, NTELFN, NFAX"
            " From TB_POSTOTANQUPROPR Where NTANQU = 2 And ITANQU = 'S'"));
        QVERIFY(owner.next());
        QCOMPARE(owner.value(0).toString(), QStringLiteral("DONO"));
        QVERIFY(owner.value(1).isNull());
        QCOMPARE(owner.value(2).toString(), QStringLiteral("FUNDOS"));
        QCOMPARE(owner.value(3).toInt(), 1310100);
        QCOMPARE(owner.value(5).toInt(), 55556666);
        QVERIFY(owner.value(6).isNull());
    }

    void deletingACompartmentLowersTheDeclaredNumber() {
        seedTank(1, 3, 3);
        db().run(QStringLiteral("Insert Into TB_POSTOBOMBATANQU (NMUNCP, NSEQNC, AINFRM, ITANQU,"
                                " NBOMBA, NTANQU, NCOMPR) Values (100, 1, '2024-01-10', 'S', 9,"
                                " 1, 2)"));
        openList();
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 2);
        QVERIFY(find<QRadioButton>(QStringLiteral("optOperacao_1"))->isChecked());
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(m_dialogs->shown().first().text,
                 QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídas As Ligações "
                                "das Bombas Para Este Compartimento.)"));
        QCOMPARE(messages().last(), QStringLiteral("information: Excluído com Sucesso"));
        QCOMPARE(count("Select QCOMPRT From TB_POSTOTANQU"), 2);
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU"), 0);
        QCOMPARE(column(QStringLiteral("fgrPostoTanquCompar"), 0), QStringList({"1", "3"}));
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 4), QStringList{"2"});
        // Level 1 stays chosen; with compartments present, only a change is offered.
        QVERIFY(!button(QStringLiteral("cmdIncluir"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdAlterar"))->isEnabled());
    }

    void aTankThatDeclaresNoCompartmentTakesNone() {
        seedTank(6, 0, 0);
        openList();
        selectLevel(1);
        QVERIFY(!button(QStringLiteral("cmdIncluir"))->isEnabled());
        // A click in the empty detail grid offers the insert, which the count refuses.
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(messages(), QStringList{"critical: Número de compartimentos já atingido ao "
                                         "cadastrado no Tanque"});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanqu"));
    }

    void aCompartmentNeedsATank() {
        openList();
        selectLevel(1);
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(messages(), QStringList{"critical: É necessário incluir um tanque primeiramente"});
    }

    void deletingATankTakesItsRowsAndLeavesTheOthers() {
        seedTank(1, 2, 2, QStringLiteral("O"));
        seedTank(2, 1, 1);
        db().run(
            QStringLiteral("Insert Into TB_POSTOTANQUPROPR (NMUNCP, NSEQNC, AINFRM, ITANQU,"
                           " NTANQU, DRAZAOSOCIL) Values (100, 1, '2024-01-10', 'S', 1, 'X')"));
        db().run(QStringLiteral("Insert Into TB_POSTOBOMBA (NMUNCP, NSEQNC, AINFRM, ITANQU,"
                                " NBOMBA) Values (100, 1, '2024-01-10', 'S', 9)"));
        for (const char* link : {"1, 1", "1, 2", "2, 1"})
            db().run(QStringLiteral("Insert Into TB_POSTOBOMBATANQU (NMUNCP, NSEQNC, AINFRM,"
                                    " ITANQU, NBOMBA, NTANQU, NCOMPR) Values (100, 1,"
                                    " '2024-01-10', 'S', 9, %1)")
                         .arg(QLatin1String(link)));
        // The aboveground tank of the same number is other equipment.
        db().run(QStringLiteral("Insert Into TB_POSTOTANQUCOMPR Values (100, 1, '2024-01-10', 'A',"
                                " 1, 1, 1, 10, 101, 3, 5)"));
        openList();
        m_dialogs->answer(false);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 2);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(m_dialogs->shown().first().icon, ui::Icon::Question);
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQUCOMPR Where ITANQU = 'S'"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQUCOMPR Where ITANQU = 'A'"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQUPROPR"), 0);
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBA"), 1);
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 0), QStringList{"2"});
    }

    void duplicateTankNumberIsRefused() {
        seedTank(4, 1, 1);
        openList();
        click(QStringLiteral("cmdIncluir"));
        fillTank(QStringLiteral("4"), QStringLiteral("1"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Número de Tanque já está cadastrado, "
                                         "preencha com outro valor"});
        QCOMPARE(m_dialogs->last().title, QStringLiteral("VOR"));
        QVERIFY(find<QLineEdit>(QStringLiteral("txtNTANQU"))->hasFocus());
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 1);
    }

    void validationStopsAtTheFirstMissingField_data() {
        QTest::addColumn<QString>("cleared");
        QTest::addColumn<QString>("message");
        QTest::newRow("number") << "txtNTANQU"
                                << "Preenchimento Obrigatório do Número do Tanque";
        QTest::newRow("number zero") << "txtNTANQU=0"
                                     << "Número do Tanque Inválido";
        QTest::newRow("identification") << "txtNIDENT"
                                        << "Preenchimento Obrigatório da Identificação.";
        QTest::newRow("installation") << "mskAINSTL"
                                      << "Preenchimento Obrigatório da Data da Instalação";
        QTest::newRow("compartments")
            << "txtQCOMPRT"
            << "Preenchimento Obrigatório da Quantidade de Compartimentos";
    }

    void validationStopsAtTheFirstMissingField() {
        QFETCH(QString, cleared);
        QFETCH(QString, message);
        openList();
        click(QStringLiteral("cmdIncluir"));
        fillTank(QStringLiteral("1"), QStringLiteral("1"));
        const QStringList field = cleared.split(QLatin1Char('='));
        auto* edit = find<QLineEdit>(field.first());
        edit->setText(field.value(1));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{kCritical + QStringLiteral(": ") + message});
        QVERIFY(edit->hasFocus());
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 0);
    }

    void leavingChecks() {
        openList();
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("mskAINSTL"), QStringLiteral("31/13/2001"));
        type(QStringLiteral("mskAINSTL"),
             QDate::currentDate().addDays(1).toString(QStringLiteral("dd/MM/yyyy")));
        // A refused field keeps the focus: the next field is reached only with a right value.
        QVERIFY(find<QLineEdit>(QStringLiteral("mskAINSTL"))->hasFocus());
        type(QStringLiteral("mskAINSTL"), QStringLiteral("15/03/2010"));
        type(QStringLiteral("txtQCOMPRT"), QStringLiteral("0"));
        type(QStringLiteral("txtQCOMPRT"), QStringLiteral("00"));
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Incorreto da Data da Instalação",
                              "critical: Data de Instalação não deve ser maior que a Data Atual.",
                              "critical: Número de Compartimentos não pode ser Zero."}));
        // A report not made leaves its date empty and out of reach.
        choose(QStringLiteral("cmbitesteestnq"), QStringLiteral("Não Disponível"));
        QVERIFY(!find<QLineEdit>(QStringLiteral("mskATESTEESTNQ"))->isEnabled());
        QVERIFY(find<QComboBox>(QStringLiteral("cmbIPROPR"))->hasFocus());
        choose(QStringLiteral("cmbitesteestnq"), QStringLiteral("Realizado"));
        QVERIFY(find<QLineEdit>(QStringLiteral("mskATESTEESTNQ"))->isEnabled());
    }

    void fecharComesBackWhenAFieldReturnsToItsFirstValue() {
        seedTank(3, 2, 2);
        openList();
        click(QStringLiteral("cmdAlterar"));
        auto* ui = m_host->current<ui::MaintenanceScreen>();
        QVERIFY(ui);
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdCancelar"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        type(QStringLiteral("txtNIDENT"), QStringLiteral("TQX"));
        QVERIFY(button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdCancelar"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdFechar"))->isEnabled());
        type(QStringLiteral("txtNIDENT"), QStringLiteral("TQ"));
        QCOMPARE(ui->retratoAtual(), ui->retratoInicial());
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        click(QStringLiteral("cmdFechar"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanqu"));
        QVERIFY(messages().isEmpty());
    }

    void aFailedWriteKeepsNothingAndShowsNoSuccess() {
        // The owner's insert fails after the tank's own insert went through.
        db().run(QStringLiteral("Create Trigger refuse Before Insert On TB_POSTOTANQUPROPR"
                                " Begin Select Raise(Abort, 'disco cheio'); End"));
        openList();
        click(QStringLiteral("cmdIncluir"));
        fillTank(QStringLiteral("8"), QStringLiteral("1"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        type(QStringLiteral("txtDRAZAOSOCIL"), QStringLiteral("DONO"));
        type(QStringLiteral("txtDCONTT"), QStringLiteral("MARIA"));
        type(QStringLiteral("txtDLOGRD"), QStringLiteral("RUA B"));
        type(QStringLiteral("txtNLOGRD"), QStringLiteral("12"));
        type(QStringLiteral("txtCCEP"), QStringLiteral("01310-100"));
        choose(QStringLiteral("cmbNMUNCP"), QStringLiteral("SÃO PAULO"));
        type(QStringLiteral("txtNDDD"), QStringLiteral("11"));
        type(QStringLiteral("txtNTELFN"), QStringLiteral("55556666"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        // The error routine's message, and nothing else.
        QCOMPARE(m_dialogs->shown().size(), 1);
        QCOMPARE(m_dialogs->last().title, QStringLiteral("VOR"));
        QVERIFY(m_dialogs->last().text.contains(QStringLiteral("SQLite")));
        QVERIFY(!messages().join(QLatin1Char('\n')).contains(QStringLiteral("Sucesso")));
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 0);
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanquM"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtDRAZAOSOCIL"))->text(), QStringLiteral("DONO"));
    }

    void aFailedDeleteKeepsTheWholeTankAndShowsNoSuccess() {
        seedTank(1, 2, 2);
        // The tank's own row is the last of the cascade: its compartments went first.
        db().run(QStringLiteral("Create Trigger refuse Before Delete On TB_POSTOTANQU"
                                " Begin Select Raise(Abort, 'disco cheio'); End"));
        openList();
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(m_dialogs->shown().size(), 2); // the question, then the error routine
        QVERIFY(m_dialogs->last().text.contains(QStringLiteral("SQLite")));
        QVERIFY(!messages().join(QLatin1Char('\n')).contains(QStringLiteral("Sucesso")));
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQUCOMPR"), 2);
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 0), QStringList{"1"});
    }

    void theListWalksTheChain() {
        seedTank(1, 1, 1);
        ui::ScreenRegistry::instance().add(
            QStringLiteral("frmBomba"),
            [](ui::ScreenHost&, const ui::Sequence::Place&) { return new QWidget; });
        openList();
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 1);
        click(QStringLiteral("cmdContinuar"));
        QCOMPARE(m_host->session().linhaPrincipal, 1);
        QCOMPARE(m_host->session().linhaDetalhe, 1);
        QVERIFY(m_host->current());
        QCOMPARE(m_host->current()->objectName(), QString());
        openList();
        click(QStringLiteral("cmdVoltar"));
        // Nothing before the tanks is built here: the questionnaire ends.
        QVERIFY(m_host->left());
    }

    void abovegroundMaterial_data() {
        QTest::addColumn<QString>("material");
        QTest::addColumn<int>("nmatrl");
        QTest::addColumn<QVariant>("dmatrloutro");
        // A description typed for "Outros" does not outlive the choice of "Aço".
        QTest::newRow("aço") << "Aço" << 10 << QVariant();
        QTest::newRow("outros") << "Outros" << 9 << QVariant(QStringLiteral("FIBRA DE CARBONO"));
    }

    void abovegroundMaterial() {
        QFETCH(QString, material);
        QFETCH(int, nmatrl);
        QFETCH(QVariant, dmatrloutro);
        openList(QStringLiteral("frmTanquAereo"));
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanquAereoM"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Incluir Reservatório"));
        fillReservoir(QStringLiteral("3"), QStringLiteral("00"));
        // The two fixed entries, whatever the dictionary of materials holds.
        auto* list = find<QComboBox>(QStringLiteral("cmbNMATRL"));
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->itemText(0), QStringLiteral("Aço"));
        QCOMPARE(list->itemText(1), QStringLiteral("Outros"));
        QVERIFY(!find<QWidget>(QStringLiteral("picDMATRLOUTRO"))->isEnabled());

        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Outros"));
        QVERIFY(find<QWidget>(QStringLiteral("picDMATRLOUTRO"))->isEnabled());
        // Leaving the list on "Outros" goes on to the description.
        QVERIFY(find<QLineEdit>(QStringLiteral("txtDMATRLOUTRO"))->hasFocus());
        type(QStringLiteral("txtDMATRLOUTRO"), QStringLiteral("fibra de carbono"));
        choose(QStringLiteral("cmbNMATRL"), material);
        QCOMPARE(find<QWidget>(QStringLiteral("picDMATRLOUTRO"))->isEnabled(), nmatrl == 9);
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        QSqlQuery tank = db().run(QStringLiteral(
            "Select NMATRL, DMATRLOUTRO, IPOSCA, NBASE From TB_POSTOTANQU Where ITANQU = 'A'"
            " And NTANQU = 3"));
        QVERIFY(tank.next());
        QCOMPARE(tank.value(0).toInt(), nmatrl);
        QCOMPARE(tank.value(1).isNull(), dmatrloutro.isNull());
        QCOMPARE(tank.value(1).toString(), dmatrloutro.toString());
        QCOMPARE(tank.value(2).toString(), QStringLiteral("H"));
        QCOMPARE(tank.value(3).toInt(), 1);
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 4), QStringList{material});
    }

    // Each refusal of a new aboveground tank, then the field it names filled in: the steps that
    // an aboveground tank adds stand between the date of installation and the compartments.
    void abovegroundValidationOrder() {
        seedTank(1, 0, 0, QStringLiteral("D"), QStringLiteral("A"));
        openList(QStringLiteral("frmTanquAereo"));
        selectLevel(1);
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(messages(), QStringList{"critical: Número de Compartimentos já atingido ao "
                                         "cadastrado no Reservatório"});
        selectLevel(0);
        click(QStringLiteral("cmdIncluir"));
        // The last field first, so that cmdOk sees a change; it is emptied again in its turn.
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Desativado"));
        const std::vector<std::pair<QString, std::function<void()>>> steps = {
            {"Preenchimento Obrigatório do Número do Reservatório",
             [&] { type(QStringLiteral("txtNTANQU"), QStringLiteral("0")); }},
            {"Número do Reservatório Inválido",
             [&] { type(QStringLiteral("txtNTANQU"), QStringLiteral("1")); }},
            {"Número do Reservatório já está cadastrado, preencha com outro valor",
             [&] { type(QStringLiteral("txtNTANQU"), QStringLiteral("2")); }},
            {"Preenchimento Obrigatório da Identificação.",
             [&] { type(QStringLiteral("txtNIDENT"), QStringLiteral("R2")); }},
            {"Preenchimento Obrigatório da Data da Instalação",
             [&] { type(QStringLiteral("mskAINSTL"), QStringLiteral("01/02/2012")); }},
            {"Preenchimento Obrigatório do Tipo do Reservatório.",
             [&] { choose(QStringLiteral("cmbIPOSCA"), QStringLiteral("Vertical")); }},
            {"Preenchimento Obrigatório do Tipo de Material",
             [&] { choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Outros")); }},
            {"Preenchimento Obrigatório do Campo Material - Outros.",
             [&] { type(QStringLiteral("txtDMATRLOUTRO"), QStringLiteral("PEAD")); }},
            {"Preenchimento Obrigatório do Tipo da Base.",
             [&] { choose(QStringLiteral("cmbNBASE"), QStringLiteral("Alvenaria")); }},
            {"Preenchimento Obrigatório da Quantidade de Compartimentos",
             [&] { type(QStringLiteral("txtQCOMPRT"), QStringLiteral("00")); }},
            {"Preenchimento Obrigatório da condição do Último Laudo de Integridade",
             [&] {
                 choose(QStringLiteral("cmbitesteestnq"), QStringLiteral("Realizado"));
                 type(QStringLiteral("mskATESTEESTNQ"), QStringLiteral("05/05/2020"));
             }},
            {"Preenchimento Obrigatório do Tipo do Proprietário",
             [&] {
                 choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Proprietário"));
                 find<QComboBox>(QStringLiteral("cmbISITCA"))->setCurrentIndex(-1);
             }},
            {"Preenchimento Obrigatório da Situação do Tanque",
             [&] { choose(QStringLiteral("cmbISITCA"), QStringLiteral("Desativado")); }},
        };
        for (const auto& [message, fill] : steps) {
            m_dialogs->clear();
            click(QStringLiteral("cmdOk"));
            QCOMPARE(messages(), QStringList{kCritical + QStringLiteral(": ") + message});
            QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 1);
            fill();
        }
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        QSqlQuery tank =
            db().run(QStringLiteral("Select NMATRL, DMATRLOUTRO, IPOSCA, NBASE, ATESTEESTNQ, ISITCA"
                                    " From TB_POSTOTANQU Where ITANQU = 'A' And NTANQU = 2"));
        QVERIFY(tank.next());
        QCOMPARE(tank.value(0).toInt(), 9);
        QCOMPARE(tank.value(1).toString(), QStringLiteral("PEAD"));
        QCOMPARE(tank.value(2).toString(), QStringLiteral("V"));
        QCOMPARE(tank.value(3).toInt(), 2);
        QCOMPARE(tank.value(4).toString(), QStringLiteral("2020-05-05"));
        QCOMPARE(tank.value(5).toString(), QStringLiteral("D"));
    }

    void abovegroundOwnerSpellsTheCepMessageRight() {
        openList(QStringLiteral("frmTanquAereo"));
        click(QStringLiteral("cmdIncluir"));
        fillReservoir(QStringLiteral("5"), QStringLiteral("00"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        type(QStringLiteral("txtDRAZAOSOCIL"), QStringLiteral("DONO"));
        type(QStringLiteral("txtDCONTT"), QStringLiteral("MARIA"));
        type(QStringLiteral("txtDLOGRD"), QStringLiteral("RUA B"));
        type(QStringLiteral("txtNLOGRD"), QStringLiteral("12"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Preenchimento Obrigatório do CEP"});
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQU"), 0);
    }

    void tanksOfOneNumberInBothFamiliesCoexist() {
        seedTank(1, 2, 2);
        openList(QStringLiteral("frmTanquAereo"));
        QCOMPARE(dataRows(QStringLiteral("fgrPostoTanqu")), 0);
        selectLevel(1);
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(messages(),
                 QStringList{"critical: É necessário incluir um Reservatório primeiramente"});
        selectLevel(0);
        m_dialogs->clear();
        click(QStringLiteral("cmdIncluir"));
        fillReservoir(QStringLiteral("1"), QStringLiteral("1"));
        click(QStringLiteral("cmdOk"));
        // The new tank's one compartment is forced, with the words of the aboveground family.
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanquAereoM"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Incluir Compartimento"));
        QVERIFY(!button(QStringLiteral("cmdFechar"))->isEnabled());
        fillCompartment(QStringLiteral("1"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList({"information: Incluído com Sucesso",
                                          "information: Incluído com Sucesso"}));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanquAereo"));
        auto* tanks = find<QTableWidget>(QStringLiteral("fgrPostoTanqu"));
        QCOMPARE(tanks->rowCount(), 1);
        QStringList row;
        for (int c = 0; c < tanks->columnCount(); ++c)
            row << tanks->item(0, c)->text();
        QCOMPARE(row, QStringList({"1", "AEREO 1", "20/08/2015", "Horizontal", "Aço", "Concreto",
                                   "1", "Em Uso", "", "Distribuidora"}));
        QCOMPARE(find<QTableWidget>(QStringLiteral("fgrPostoTanquCompar"))
                     ->horizontalHeaderItem(1)
                     ->text(),
                 QStringLiteral("Alimentação"));
        QCOMPARE(column(QStringLiteral("fgrPostoTanquCompar"), 0), QStringList{"1"});

        // The underground list keeps its own tank 1, with its own compartments.
        openList();
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 1), QStringList{"TQ"});
        QCOMPARE(column(QStringLiteral("fgrPostoTanquCompar"), 0), QStringList({"1", "2"}));
        QCOMPARE(rowsByFamily(), QStringLiteral("TB_POSTOTANQU S:1 A:1, TB_POSTOTANQUCOMPR S:2 "
                                                "A:1, TB_POSTOTANQUPROPR S:0 A:0, "
                                                "TB_POSTOBOMBATANQU S:0 A:0"));
    }

    void changingAnAbovegroundTank() {
        seedTank(4, 2, 2, QStringLiteral("D"), QStringLiteral("A"));
        seedTank(4, 1, 1);
        db().run(QStringLiteral("Update TB_POSTOTANQU Set NMATRL = 9, DMATRLOUTRO = 'PEAD'"
                                " Where ITANQU = 'A'"));
        openList(QStringLiteral("frmTanquAereo"));
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Alterar Reservatório"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbIPOSCA"))->currentText(),
                 QStringLiteral("Horizontal"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNMATRL"))->currentText(),
                 QStringLiteral("Outros"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtDMATRLOUTRO"))->text(), QStringLiteral("PEAD"));
        QVERIFY(find<QWidget>(QStringLiteral("picDMATRLOUTRO"))->isEnabled());
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNBASE"))->currentText(),
                 QStringLiteral("Concreto"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtQCOMPRT"))->text(), QStringLiteral("2"));

        type(QStringLiteral("txtQCOMPRT"), QStringLiteral("1"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Atualizar os Compartimentos do Reservatório "
                                         "Antes de Atualizar o Número de Compartimentos."});
        type(QStringLiteral("txtQCOMPRT"), QStringLiteral("2"));
        choose(QStringLiteral("cmbIPOSCA"), QStringLiteral("Vertical"));
        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Aço"));
        choose(QStringLiteral("cmbNBASE"), QStringLiteral("Estrutura Metálica"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        QSqlQuery tank =
            db().run(QStringLiteral("Select ITANQU, NMATRL, DMATRLOUTRO, IPOSCA, NBASE, QCOMPRT,"
                                    " SSISTMPROTC From TB_POSTOTANQU Where NTANQU = 4"
                                    " Order By ITANQU"));
        QVERIFY(tank.next());
        QCOMPARE(tank.value(0).toString(), QStringLiteral("A"));
        QCOMPARE(tank.value(1).toInt(), 10);
        QVERIFY(tank.value(2).isNull());
        QCOMPARE(tank.value(3).toString(), QStringLiteral("V"));
        QCOMPARE(tank.value(4).toInt(), 4);
        QCOMPARE(tank.value(5).toInt(), 2);
        QCOMPARE(tank.value(6).toString(), QStringLiteral("S")); // its corrosion protection stays
        // The underground tank of the same number is untouched.
        QVERIFY(tank.next());
        QCOMPARE(tank.value(0).toString(), QStringLiteral("S"));
        QCOMPARE(tank.value(1).toInt(), 4);
        QVERIFY(tank.value(3).isNull());
        QCOMPARE(tank.value(5).toInt(), 1);
    }

    // A reservoir without a base (from an older database or a file) is listed, with the base
    // empty, and can be opened and completed.
    void aReservoirWithoutABaseIsListedAndCanBeCompleted() {
        seedTank(1, 1, 1, QStringLiteral("D"), QStringLiteral("A"));
        seedTank(2, 1, 1, QStringLiteral("D"), QStringLiteral("A"));
        db().run(QStringLiteral("Update TB_POSTOTANQU Set NBASE = Null Where NTANQU = 2"));
        openList(QStringLiteral("frmTanquAereo"));
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 0), QStringList({"1", "2"}));
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 5), QStringList({"Concreto", ""}));

        selectRow(QStringLiteral("fgrPostoTanqu"), 2);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtNTANQU"))->text(), QStringLiteral("2"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNBASE"))->currentText(), QString());
        choose(QStringLiteral("cmbNBASE"), QStringLiteral("Alvenaria"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        QCOMPARE(count(QStringLiteral("Select NBASE From TB_POSTOTANQU Where NTANQU = 2")),
                 count(QStringLiteral("Select NBASE From DICNRBASE Where DBASE = 'Alvenaria'")));
    }

    void deletingAnAbovegroundTankTakesOnlyItsOwnRows() {
        for (const char* family : {"S", "A"}) {
            seedTank(1, 2, 2, QStringLiteral("O"), QLatin1String(family));
            seedOwnerAndLink(1, QLatin1String(family));
            seedTank(2, 2, 2, QStringLiteral("D"), QLatin1String(family));
            seedOwnerAndLink(2, QLatin1String(family));
        }
        openList(QStringLiteral("frmTanquAereo"));
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(m_dialogs->shown().first().text,
                 QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídos todos os "
                                "Compartimentos do Tanque e Todas as Ligações das Unidades de "
                                "Abastecimento Para os Compartimentos deste Reservatório)"));
        QCOMPARE(rowsByFamily(), QStringLiteral("TB_POSTOTANQU S:2 A:1, TB_POSTOTANQUCOMPR S:4 "
                                                "A:2, TB_POSTOTANQUPROPR S:2 A:1, "
                                                "TB_POSTOBOMBATANQU S:2 A:1"));
        QCOMPARE(column(QStringLiteral("fgrPostoTanqu"), 0), QStringList{"2"});

        // A compartment of the remaining aboveground tank, with its link.
        m_dialogs->clear();
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 1);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(m_dialogs->shown().first().text,
                 QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídos As Ligações "
                                "das Unidades de Abastecimento Para Este Compartimento.)"));
        QCOMPARE(rowsByFamily(), QStringLiteral("TB_POSTOTANQU S:2 A:1, TB_POSTOTANQUCOMPR S:4 "
                                                "A:1, TB_POSTOTANQUPROPR S:2 A:1, "
                                                "TB_POSTOBOMBATANQU S:2 A:0"));
        QCOMPARE(count("Select QCOMPRT From TB_POSTOTANQU Where ITANQU = 'A' And NTANQU = 2"), 1);
        QCOMPARE(count("Select QCOMPRT From TB_POSTOTANQU Where ITANQU = 'S' And NTANQU = 2"), 2);
    }

    void shot(const QString& name) {
        // Let the layouts catch up with the panels shown and hidden on entering.
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), name);
    }

    void screenshots() {
        seedTank(1, 2, 2);
        seedTank(2, 1, 1, QStringLiteral("O"));
        openList();
        shot(QStringLiteral("frmTanqu"));
        m_host->session().linhaPrincipal = 2;
        openList();
        m_dialogs->clear();
        click(QStringLiteral("cmdAlterar"));
        shot(QStringLiteral("frmTanquM"));
        click(QStringLiteral("cmdFechar"));
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        shot(QStringLiteral("frmTanquM-compartimento"));

        seedTank(1, 2, 2, QStringLiteral("O"), QStringLiteral("A"));
        db().run(QStringLiteral("Update TB_POSTOTANQU Set NMATRL = 9, DMATRLOUTRO = 'PEAD'"
                                " Where ITANQU = 'A'"));
        seedTank(3, 1, 1, QStringLiteral("D"), QStringLiteral("A"));
        seedOwnerAndLink(1, QStringLiteral("A"));
        m_host->session().linhaPrincipal = 1;
        openList(QStringLiteral("frmTanquAereo"));
        shot(QStringLiteral("frmTanquAereo"));
        m_dialogs->clear();
        click(QStringLiteral("cmdAlterar"));
        shot(QStringLiteral("frmTanquAereoM"));
        click(QStringLiteral("cmdFechar"));
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        shot(QStringLiteral("frmTanquAereoM-compartimento"));
    }
};

QTEST_MAIN(TestTanks)
#include "test_tanks.moc"
