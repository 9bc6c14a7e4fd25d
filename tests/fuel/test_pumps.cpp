#include "fuel/FuelScreens.h"
#include "support/ScreenDriver.h"
#include "support/TestEnvironment.h"
#include "ui/FieldBehaviour.h"
#include "ui/ListScreen.h"
#include "ui/MaintenanceScreen.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTest>
#include <memory>

namespace {

const QString kUnder = QStringLiteral("S");
const QString kAbove = QStringLiteral("A");
const int kGasolina = 101; // "Gasolina Comum"
const int kDiesel = 110;   // "Óleo Diesel Comum"

} // namespace

class TestPumps : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    int dataRowsOfLinks() {
        return find<QTableWidget>(QStringLiteral("fgrBombaCompar"))->rowCount();
    }
    bool clipTextIsEmpty(const QString& name) {
        return ui::clipText(find<QLineEdit>(name)).isEmpty();
    }
    void shot(const QString& name) {
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), name);
    }

    void openList(const QString& name = QStringLiteral("frmBomba")) {
        ui::showPlace(*m_host, {name});
        QCOMPARE(screen()->objectName(), name);
    }

    void seedTank(const QString& itanqu, int ntanqu, const QString& ident,
                  const QList<int>& fuels) {
        db().run(QStringLiteral(
                     "Insert Into TB_POSTOTANQU (NMUNCP, NSEQNC, AINFRM, ITANQU, NTANQU, NIDENT,"
                     " AINSTL, NMATRL, QCOMPRT, IPROPR, ITESTEESTNQ, ISITCA, NBASE)"
                     " Values (100, 1, '2024-01-10', ?, ?, ?, '2005-06-01', 4, ?, 'D', 'ND',"
                     " 'A', 1)"),
                 {itanqu, ntanqu, ident, int(fuels.size())});
        for (int c = 0; c < fuels.size(); ++c)
            db().run(QStringLiteral("Insert Into TB_POSTOTANQUCOMPR Values (100, 1, '2024-01-10',"
                                    " ?, ?, ?, 1, 10, ?, 3, 5)"),
                     {itanqu, ntanqu, c + 1, fuels.at(c)});
    }
    void seedPump(const QString& itanqu, int nbomba, const QString& ipropr = "P") {
        db().run(QStringLiteral("Insert Into TB_POSTOBOMBA (NMUNCP, NSEQNC, AINFRM, ITANQU,"
                                " NBOMBA, NIDENT, AINSTL, NVALVLRETNC, NFILTRO, SSISTMPROTC,"
                                " IPROPR, ITESTEESTNQ) Values (100, 1, '2024-01-10', ?, ?,"
                                " 'BICO', '2006-02-01', 1, 2, 0, ?, 'NR')"),
                 {itanqu, nbomba, ipropr});
    }
    void seedLink(const QString& itanqu, int nbomba, int ntanqu, int ncompr) {
        db().run(QStringLiteral("Insert Into TB_POSTOBOMBATANQU Values (100, 1, '2024-01-10', ?,"
                                " ?, ?, ?, 12, 'P')"),
                 {itanqu, nbomba, ntanqu, ncompr});
    }
    void seedOwner(const QString& table, const QString& keyColumn, int key) {
        db().run(QStringLiteral("Insert Into ") + table +
                     QStringLiteral(" (NMUNCP, NSEQNC, AINFRM, ITANQU, ") + keyColumn +
                     QStringLiteral(", DRAZAOSOCIL, DCONTT, DLOGRD, NLOGRD, CCEP,"
                                    " NMUNCPDISTRFORNC, NDDD, NTELFN) Values (100, 1,"
                                    " '2024-01-10', 'S', ?, 'DONO SA', 'JOSE', 'RUA A', 10,"
                                    " 1310100, 100, 11, 33334444)"),
                 {key});
    }

    void fillPump(const QString& number) {
        type(QStringLiteral("txtNBOMBA"), number);
        type(QStringLiteral("txtNIDENT"), QStringLiteral("BICO ") + number);
        type(QStringLiteral("mskAINSTL"), QStringLiteral("15/03/2010"));
        choose(QStringLiteral("cmbNVALVLRETNC"), QStringLiteral("Junto à Bomba"));
        choose(QStringLiteral("cmbNFILTRO"), QStringLiteral("Filtro de Linha"));
        choose(QStringLiteral("cmbitesteestnq"), QStringLiteral("Não Realizado"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Distribuidora"));
    }
    // Chooses the link's tank and compartment by their list texts, and a material and line.
    void fillLink(const QString& tank, const QString& compartment, bool line = true) {
        choose(QStringLiteral("cmbNTANQU"), tank);
        choose(QStringLiteral("cmbNCOMPR"), compartment);
        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Aço Galvanizado"));
        if (line)
            choose(QStringLiteral("cmbILINHA"), QStringLiteral("Sucção"));
    }
    // A new pump saved through the list, which leaves the first step of its chain of links up.
    void newPump(const QString& number) {
        click(QStringLiteral("cmdIncluir"));
        fillPump(number);
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        m_dialogs->clear();
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }

    void init() { start(); }

    void cleanup() { stop(); }

    void aNewPumpCannotBeLeftBeforeItsFirstLink() {
        seedTank(kUnder, 1, QStringLiteral("TQ UM"), {kGasolina, kDiesel});
        openList();
        shot(QStringLiteral("frmBomba-empty"));
        newPump(QStringLiteral("5"));

        QCOMPARE(screen()->objectName(), QStringLiteral("frmBombaM"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Incluir Bomba/Compartimento"));
        QVERIFY(!find<QWidget>(QStringLiteral("fraBomba"))->isEnabled());
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtNBOMBA"))->text(), QStringLiteral("5"));
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNTANQU"))->hasFocus());
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbNCOMPR"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdCancelar"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdFechar"))->isEnabled());
        QCOMPARE(items(QStringLiteral("cmbNTANQU")), QStringList{"1 - TQ UM"});
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1 - TQ UM"));
        // Only the chosen tank's compartments, with the fuel each stores.
        QCOMPARE(items(QStringLiteral("cmbNCOMPR")),
                 QStringList({"1 - Gasolina Comum", "2 - Óleo Diesel Comum"}));
        QVERIFY(find<QComboBox>(QStringLiteral("cmbILINHA"))->isEnabled());
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("1 - Gasolina Comum"));
        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Aço Galvanizado"));
        shot(QStringLiteral("frmBombaM-link"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Preenchimento Obrigatório do Tipo da Linha"});
        choose(QStringLiteral("cmbILINHA"), QStringLiteral("Sucção"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});

        // The next step of the chain comes up cleared, and now it may be closed.
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBombaM"));
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNTANQU"))->currentText().isEmpty());
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNCOMPR"))->currentText().isEmpty());
        QVERIFY(!button(QStringLiteral("cmdCancelar"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        click(QStringLiteral("cmdFechar"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBomba"));
        QCOMPARE(column(QStringLiteral("fgrBomba"), 0), QStringList{"5"});
        QCOMPARE(column(QStringLiteral("fgrBomba"), 3), QStringList{"Junto à Bomba"});
        QCOMPARE(column(QStringLiteral("fgrBombaCompar"), 0), QStringList{"1 - TQ UM"});
        QCOMPARE(column(QStringLiteral("fgrBombaCompar"), 1), QStringList{"1 - Gasolina Comum"});
        QCOMPARE(column(QStringLiteral("fgrBombaCompar"), 3), QStringList{"Sucção"});
        QSqlQuery link = db().run(QStringLiteral(
            "Select ITANQU, NBOMBA, NTANQU, NCOMPR, NMATRL, ILINHA From TB_POSTOBOMBATANQU"));
        QVERIFY(link.next());
        QCOMPARE(link.value(0).toString(), kUnder);
        QCOMPARE(link.value(1).toInt(), 5);
        QCOMPARE(link.value(3).toInt(), 1);
        QCOMPARE(link.value(4).toInt(), 11);
        QCOMPARE(link.value(5).toString(), QStringLiteral("S"));
        QSqlQuery pump = db().run(QStringLiteral(
            "Select NIDENT, AINSTL, NVALVLRETNC, NFILTRO, ATESTEESTNQ, SSISTMPROTC, IPROPR,"
            " ITESTEESTNQ From TB_POSTOBOMBA Where ITANQU = 'S' And NBOMBA = 5"));
        QVERIFY(pump.next());
        QCOMPARE(pump.value(0).toString(), QStringLiteral("BICO 5"));
        QCOMPARE(pump.value(1).toString(), QStringLiteral("2010-03-15"));
        QCOMPARE(pump.value(2).toInt(), 1);
        QCOMPARE(pump.value(3).toInt(), 1);
        QVERIFY(pump.value(4).isNull());
        QCOMPARE(pump.value(5).toInt(), 0);
        QCOMPARE(pump.value(6).toString(), QStringLiteral("D"));
        QCOMPARE(pump.value(7).toString(), QStringLiteral("NR"));
        selectRow(QStringLiteral("fgrBombaCompar"), 1);
        shot(QStringLiteral("frmBomba"));
    }

    void aPumpDrawsOneFuelFromAnyTank() {
        seedTank(kUnder, 1, QStringLiteral("TQ UM"), {kGasolina, kDiesel});
        seedTank(kUnder, 2, QStringLiteral("TQ DOIS"), {kGasolina});
        openList();
        newPump(QStringLiteral("3"));
        fillLink(QStringLiteral("1 - TQ UM"), QStringLiteral("1 - Gasolina Comum"));
        click(QStringLiteral("cmdOk"));
        m_dialogs->clear();

        // The same compartment again: refused before the fuel is looked at.
        fillLink(QStringLiteral("1 - TQ UM"), QStringLiteral("1 - Gasolina Comum"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Número do Compartimento já cadastrado"});
        m_dialogs->clear();
        // Another fuel, even in the same tank and with another line: refused, nothing written.
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("2 - Óleo Diesel Comum"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: A Bomba só pode aceitar Compartimentos que "
                                         "Armazenem o mesmo combustível"});
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNCOMPR"))->hasFocus());
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU"), 1);
        m_dialogs->clear();
        // The same fuel in another tank, by another kind of line: accepted.
        fillLink(QStringLiteral("2 - TQ DOIS"), QStringLiteral("1 - Gasolina Comum"), false);
        choose(QStringLiteral("cmbILINHA"), QStringLiteral("Pressurizada"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        click(QStringLiteral("cmdFechar"));
        QCOMPARE(column(QStringLiteral("fgrBombaCompar"), 0),
                 QStringList({"1 - TQ UM", "2 - TQ DOIS"}));
        QCOMPARE(column(QStringLiteral("fgrBombaCompar"), 3),
                 QStringList({"Sucção", "Pressurizada"}));
    }

    void theRuleHoldsOutsideTheChain() {
        seedTank(kUnder, 1, QStringLiteral("TQ UM"), {kGasolina, kDiesel});
        seedPump(kUnder, 4);
        seedLink(kUnder, 4, 1, 2);
        openList();
        // A link added from the list to a pump that has one already.
        auto* list = m_host->current<ui::ListScreen>();
        list->setLevel(1);
        list->include();
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBombaM"));
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        fillLink(QStringLiteral("1 - TQ UM"), QStringLiteral("1 - Gasolina Comum"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: A Bomba só pode aceitar Compartimentos que "
                                         "Armazenem o mesmo combustível"});
        click(QStringLiteral("cmdFechar"));
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU"), 1);
    }

    void aTankWithoutCompartmentsCannotBeLinked() {
        seedTank(kUnder, 1, QStringLiteral("TQ UM"), {kGasolina});
        seedTank(kUnder, 9, QStringLiteral("VAZIO"), {});
        openList();
        newPump(QStringLiteral("2"));
        fillLink(QStringLiteral("1 - TQ UM"), QStringLiteral("1 - Gasolina Comum"));
        // Chosen with the mouse: the list refuses the tank as soon as it is picked.
        auto* tanks = find<QComboBox>(QStringLiteral("cmbNTANQU"));
        find<QComboBox>(QStringLiteral("cmbNMATRL"))->setFocus();
        tanks->setCurrentIndex(tanks->findText(QStringLiteral("9 - VAZIO")));
        emit tanks->activated(tanks->currentIndex());
        QCOMPARE(messages(),
                 QStringList{"critical: Não existe compartimentos cadastrados para esse tanque."});
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNTANQU"))->hasFocus());
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbNCOMPR"))->isEnabled());
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbNMATRL"))->isEnabled());
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbILINHA"))->isEnabled());
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Preenchimento Obrigatório do Número do "
                                         "Compartimento"});
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU"), 0);
    }

    void noLinkWithoutAPump() {
        openList();
        auto* list = m_host->current<ui::ListScreen>();
        list->setLevel(1);
        list->include();
        QCOMPARE(messages(), QStringList{"critical: É necessário incluir um tanque primeiramente"});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBomba"));
    }

    void pumpValidationStopsAtTheFirstMissingField_data() {
        QTest::addColumn<QString>("cleared");
        QTest::addColumn<QString>("message");
        QTest::newRow("number") << "txtNBOMBA="
                                << "Preenchimento Obrigatório do Número da Bomba";
        QTest::newRow("zero") << "txtNBOMBA=000"
                              << "Número da Bomba Inválido";
        QTest::newRow("taken") << "txtNBOMBA=7"
                               << "Número de Bomba já está cadastrado, preencha com outro valor";
        QTest::newRow("ident") << "txtNIDENT="
                               << "Preenchimento Obrigatório da Identificação.";
        QTest::newRow("valve") << "cmbNVALVLRETNC="
                               << "Preenchimento Obrigatório da Válvula de Retenção";
        QTest::newRow("filter") << "cmbNFILTRO="
                                << "Preenchimento Obrigatório do Tipo do Filtro";
        QTest::newRow("owner") << "cmbIPROPR="
                               << "Preenchimento Obrigatório do Tipo do Proprietário";
    }

    void pumpValidationStopsAtTheFirstMissingField() {
        QFETCH(QString, cleared);
        QFETCH(QString, message);
        seedPump(kUnder, 7);
        openList();
        click(QStringLiteral("cmdIncluir"));
        fillPump(QStringLiteral("8"));
        const QStringList field = cleared.split(QLatin1Char('='));
        QWidget* w = find<QWidget>(field.first());
        if (auto* edit = qobject_cast<QLineEdit*>(w))
            edit->setText(field.value(1));
        else
            qobject_cast<QComboBox*>(w)->setCurrentIndex(-1);
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{QStringLiteral("critical: ") + message});
        QVERIFY(w->hasFocus());
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBA"), 1);
    }

    void leavingTheDates() {
        openList();
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("mskAINSTL"), QStringLiteral("31/13/2001"));
        QVERIFY(find<QLineEdit>(QStringLiteral("mskAINSTL"))->hasFocus());
        type(QStringLiteral("mskAINSTL"), QStringLiteral("15/03/2010"));
        choose(QStringLiteral("cmbitesteestnq"), QStringLiteral("Realizado"));
        QVERIFY(find<QLineEdit>(QStringLiteral("mskATESTEESTNQ"))->isEnabled());
        type(QStringLiteral("mskATESTEESTNQ"),
             QDate::currentDate().addDays(1).toString(QStringLiteral("dd/MM/yyyy")));
        // An earlier report than the installation passes: that order is never enforced.
        type(QStringLiteral("mskATESTEESTNQ"), QStringLiteral("01/01/2001"));
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Incorreto da Data da Instalação",
                              "critical: Data do Último Laudo de Integridade não deve ser maior "
                              "que a Data Atual."}));
        choose(QStringLiteral("cmbitesteestnq"), QStringLiteral("Não Disponível"));
        QVERIFY(!find<QLineEdit>(QStringLiteral("mskATESTEESTNQ"))->isEnabled());
        QVERIFY(clipTextIsEmpty(QStringLiteral("mskATESTEESTNQ")));
        QVERIFY(find<QComboBox>(QStringLiteral("cmbIPROPR"))->hasFocus());
    }

    void deletingAPumpTakesItsLinksAndOwner() {
        seedTank(kUnder, 1, QStringLiteral("TQ UM"), {kGasolina, kGasolina});
        seedPump(kUnder, 1, QStringLiteral("O"));
        seedOwner(QStringLiteral("TB_POSTOBOMBAPROPR"), QStringLiteral("NBOMBA"), 1);
        seedLink(kUnder, 1, 1, 1);
        seedLink(kUnder, 1, 1, 2);
        seedPump(kUnder, 2);
        seedLink(kUnder, 2, 1, 1);
        // Aboveground equipment of the same numbers is other equipment.
        seedTank(kAbove, 1, QStringLiteral("RESERVATORIO"), {kGasolina});
        seedPump(kAbove, 1);
        seedLink(kAbove, 1, 1, 1);
        openList();
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(messages(),
                 QStringList({"question: Deseja Excluir o Item Selecionado? (Serão Excluídos "
                              "todas as Bombas/Compartimentos do Tanque.)",
                              "information: Excluído com Sucesso"}));
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBA Where ITANQU = 'S'"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBAPROPR"), 0);
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU Where ITANQU = 'S'"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU Where ITANQU = 'A'"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBA Where ITANQU = 'A'"), 1);
        QCOMPARE(column(QStringLiteral("fgrBomba"), 0), QStringList{"2"});

        // One link of a pump: the pump stays, even with no link left.
        m_dialogs->clear();
        selectRow(QStringLiteral("fgrBombaCompar"), 1);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(messages().first(),
                 QStringLiteral("question: Deseja Excluir o Item Selecionado?"));
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU Where ITANQU = 'S'"), 0);
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBA Where ITANQU = 'S'"), 1);
        QCOMPARE(dataRowsOfLinks(), 0);
    }

    void changingAPumpKeepsEveryOwnerRow() {
        seedTank(kUnder, 5, QStringLiteral("TQ CINCO"), {kGasolina});
        db().run(QStringLiteral("Update TB_POSTOTANQU Set IPROPR = 'O'"));
        seedOwner(QStringLiteral("TB_POSTOTANQUPROPR"), QStringLiteral("NTANQU"), 5);
        seedPump(kUnder, 5, QStringLiteral("O"));
        seedOwner(QStringLiteral("TB_POSTOBOMBAPROPR"), QStringLiteral("NBOMBA"), 5);
        openList();
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Alterar Bomba"));
        QVERIFY(!find<QWidget>(QStringLiteral("picNBOMBA"))->isEnabled());
        QVERIFY(find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtDRAZAOSOCIL"))->text(),
                 QStringLiteral("DONO SA"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbitesteestnq"))->currentText(),
                 QStringLiteral("Não Realizado"));
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        type(QStringLiteral("txtDRAZAOSOCIL"), QStringLiteral("NOVO DONO"));
        type(QStringLiteral("txtNIDENT"), QStringLiteral("BICO NOVO"));
        shot(QStringLiteral("frmBombaM"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        QCOMPARE(
            db().scalar("Select DRAZAOSOCIL From TB_POSTOTANQUPROPR Where NTANQU = 5").toString(),
            QStringLiteral("DONO SA"));
        QCOMPARE(
            db().scalar("Select DRAZAOSOCIL From TB_POSTOBOMBAPROPR Where NBOMBA = 5").toString(),
            QStringLiteral("NOVO DONO"));
        QCOMPARE(db().scalar("Select NIDENT From TB_POSTOBOMBA").toString(),
                 QStringLiteral("BICO NOVO"));

        // Distribuidora: the pump's owner row goes, the tank's stays.
        click(QStringLiteral("cmdAlterar"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Distribuidora"));
        QVERIFY(!find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        click(QStringLiteral("cmdOk"));
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBAPROPR"), 0);
        QCOMPARE(count("Select Count(*) From TB_POSTOTANQUPROPR"), 1);
    }

    void aLinkChangesItsCompartmentButNotItsTank() {
        seedTank(kUnder, 1, QStringLiteral("TQ UM"), {kGasolina, kDiesel});
        seedPump(kUnder, 4);
        seedLink(kUnder, 4, 1, 1);
        openList();
        selectRow(QStringLiteral("fgrBombaCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Alterar Bomba/Compartimento"));
        QVERIFY(!find<QWidget>(QStringLiteral("picNTANQU"))->isEnabled());
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNTANQU"))->currentText(),
                 QStringLiteral("1 - TQ UM"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNCOMPR"))->currentText(),
                 QStringLiteral("1 - Gasolina Comum"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbILINHA"))->currentText(),
                 QStringLiteral("Pressurizada"));
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNMATRL"))->hasFocus());
        // The pump's only link may take another fuel: no other link holds it to one.
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("2 - Óleo Diesel Comum"));
        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Cobre"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        QSqlQuery link =
            db().run(QStringLiteral("Select NTANQU, NCOMPR, NMATRL From TB_POSTOBOMBATANQU"));
        QVERIFY(link.next());
        QCOMPARE(link.value(0).toInt(), 1);
        QCOMPARE(link.value(1).toInt(), 2);
        QCOMPARE(link.value(2).toInt(), 15);
        QVERIFY(!link.next());
    }

    // A changed link is held to the fuel of the pump's other links as a new one is, and moved
    // onto a compartment the pump draws from already it gets the screen's own refusal.
    void aChangedLinkKeepsThePumpsFuelAndRepeatsNoLink() {
        seedTank(kUnder, 1, QStringLiteral("TQ UM"), {kGasolina, kDiesel, kGasolina});
        seedPump(kUnder, 4);
        seedLink(kUnder, 4, 1, 1);
        seedLink(kUnder, 4, 1, 3);
        openList();
        selectRow(QStringLiteral("fgrBombaCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNCOMPR"))->currentText(),
                 QStringLiteral("1 - Gasolina Comum"));
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("3 - Gasolina Comum"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Número do Compartimento já cadastrado"});
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNCOMPR"))->hasFocus());
        m_dialogs->clear();
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("2 - Óleo Diesel Comum"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: A Bomba só pode aceitar Compartimentos que "
                                         "Armazenem o mesmo combustível"});
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU Where NCOMPR In (1, 3)"), 2);
        m_dialogs->clear();
        // The link's own compartment is no repetition, and its fuel is the pump's.
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("1 - Gasolina Comum"));
        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Cobre"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        QCOMPARE(count("Select NMATRL From TB_POSTOBOMBATANQU Where NCOMPR = 1"), 15);
    }

    // A new pump while no tank of its kind has a compartment: its chain of links cannot be
    // completed, and Fechar ends it, as it does once a link exists.
    void aNewPumpWithNothingToDrawFromMayLeaveItsChain() {
        seedTank(kUnder, 9, QStringLiteral("VAZIO"), {});
        seedTank(kAbove, 1, QStringLiteral("AEREO"), {kGasolina});
        openList();
        newPump(QStringLiteral("7"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBombaM"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Incluir Bomba/Compartimento"));
        QVERIFY(!button(QStringLiteral("cmdCancelar"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        click(QStringLiteral("cmdFechar"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBomba"));
        QCOMPARE(column(QStringLiteral("fgrBomba"), 0), QStringList{"7"});
        QCOMPARE(dataRowsOfLinks(), 0);
    }

    void theAbovegroundTwinSeesOnlyItsOwnRows() {
        seedTank(kUnder, 1, QStringLiteral("SUBTERRANEO"), {kDiesel});
        seedTank(kAbove, 1, QStringLiteral("AEREO"), {kGasolina});
        seedPump(kUnder, 1);
        seedLink(kUnder, 1, 1, 1);
        seedPump(kAbove, 2);
        openList(QStringLiteral("frmBombaAereo"));
        QCOMPARE(column(QStringLiteral("fgrBomba"), 0), QStringList{"2"});
        QCOMPARE(headings(QStringLiteral("fgrBomba")).mid(0, 2),
                 QStringList({"Nº Unidade", "Identificação"}));
        QCOMPARE(headings(QStringLiteral("fgrBombaCompar")),
                 QStringList({"Nº Reservatório", "Nº Compartimento", "Material"}));

        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBombaAereoM"));
        QCOMPARE(m_host->session().operacaoItem,
                 QStringLiteral("Incluir Unidade de Abastecimento"));
        fillPump(QStringLiteral("2"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Número da Unidade de Abastecimento já está "
                                         "cadastrado, preencha com outro valor"});
        m_dialogs->clear();
        // The owner's CEP message is spelt right on this side.
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        type(QStringLiteral("txtDRAZAOSOCIL"), QStringLiteral("DONO"));
        type(QStringLiteral("txtDCONTT"), QStringLiteral("MARIA"));
        type(QStringLiteral("txtDLOGRD"), QStringLiteral("RUA B"));
        type(QStringLiteral("txtNLOGRD"), QStringLiteral("12"));
        type(QStringLiteral("txtNBOMBA"), QStringLiteral("1"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Preenchimento Obrigatório do CEP"});
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Distribuidora"));
        m_dialogs->clear();
        // The underground pump 1 is other equipment.
        type(QStringLiteral("txtNBOMBA"), QStringLiteral("1"));
        type(QStringLiteral("txtNIDENT"), QStringLiteral("UNIDADE DE ABASTECIMENTO DA ILHA"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtNIDENT"))->text().size(), 30);
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        m_dialogs->clear();

        QCOMPARE(m_host->session().operacaoItem,
                 QStringLiteral("Incluir Unidade de Abastecimento/Compartimento"));
        QVERIFY(!screen()->findChild<QComboBox*>(QStringLiteral("cmbILINHA")));
        QVERIFY(!button(QStringLiteral("cmdFechar"))->isEnabled());
        QCOMPARE(items(QStringLiteral("cmbNTANQU")), QStringList{"1 - AEREO"});
        fillLink(QStringLiteral("1 - AEREO"), QStringLiteral("1 - Gasolina Comum"), false);
        shot(QStringLiteral("frmBombaAereoM"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        click(QStringLiteral("cmdFechar"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmBombaAereo"));
        QCOMPARE(column(QStringLiteral("fgrBomba"), 0), QStringList({"1", "2"}));
        QSqlQuery link = db().run(QStringLiteral(
            "Select NTANQU, NCOMPR, ILINHA From TB_POSTOBOMBATANQU Where ITANQU = 'A'"));
        QVERIFY(link.next());
        QCOMPARE(link.value(0).toInt(), 1);
        QVERIFY(link.value(2).isNull());
        QVERIFY(!link.next());
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBATANQU Where ITANQU = 'S'"), 1);
        shot(QStringLiteral("frmBombaAereo"));

        m_dialogs->answer(false);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(messages().last(),
                 QStringLiteral("question: Deseja Excluir o Item Selecionado? (Serão Excluídas "
                                "todas as Unidades de Abastecimento/Compartimentos da Unidade de "
                                "Abastecimento.)"));
        QCOMPARE(count("Select Count(*) From TB_POSTOBOMBA"), 3);
    }
};

QTEST_MAIN(TestPumps)
#include "test_pumps.moc"
