#include "fuel/FuelScreens.h"
#include "support/FakeHost.h"
#include "support/ScriptedDialogs.h"
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
#include <memory>

using testsupport::FakeHost;
using testsupport::ScriptedDialogs;

namespace {

const QString kCritical = QStringLiteral("critical");

QString iconName(ui::Icon icon) {
    switch (icon) {
    case ui::Icon::Critical:
        return kCritical;
    case ui::Icon::Information:
        return QStringLiteral("information");
    case ui::Icon::Question:
        return QStringLiteral("question");
    default:
        return QStringLiteral("other");
    }
}

} // namespace

class TestTanks : public QObject {
    Q_OBJECT

    std::unique_ptr<testsupport::TestEnvironment> m_env;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<ScriptedDialogs> m_dialogs;

    store::Database& db() { return m_host->database(); }

    QWidget* screen() {
        QWidget* s = m_host->current();
        if (!s)
            qFatal("no screen up");
        return s;
    }
    template <typename T> T* find(const QString& name) {
        T* w = screen()->findChild<T*>(name);
        if (!w)
            qFatal("no %s on %s", qPrintable(name), qPrintable(screen()->objectName()));
        return w;
    }
    QPushButton* button(const QString& name) { return find<QPushButton>(name); }
    void click(const QString& name) {
        QPushButton* b = button(name);
        QVERIFY2(b->isEnabled(), qPrintable(name + " is disabled"));
        b->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // Types into a field and leaves it, as the user's Tab would.
    void type(const QString& name, const QString& text) {
        auto* edit = find<QLineEdit>(name);
        edit->setFocus(Qt::TabFocusReason);
        edit->setText(text);
        leave(edit);
    }
    void choose(const QString& name, const QString& text) {
        auto* combo = find<QComboBox>(name);
        combo->setFocus(Qt::TabFocusReason);
        const int index = combo->findText(text);
        QVERIFY2(index >= 0, qPrintable(text + " is not in " + name));
        combo->setCurrentIndex(index);
        emit combo->activated(index);
        leave(combo);
    }
    void leave(QWidget* field) {
        if (field->hasFocus())
            field->clearFocus();
    }
    void selectLevel(int level) {
        find<QRadioButton>(QStringLiteral("optOperacao_%1").arg(level))->click();
    }
    void selectRow(const QString& grid, int row) {
        auto* g = find<QTableWidget>(grid);
        g->setCurrentCell(row - 1, 0);
        emit g->cellClicked(row - 1, 0);
    }
    int count(const QString& sql) { return db().scalar(sql).toInt(); }
    QStringList column(const QString& grid, int c) {
        QStringList cells;
        auto* g = find<QTableWidget>(grid);
        for (int r = 0; r < g->rowCount(); ++r)
            cells << g->item(r, c)->text();
        return cells;
    }
    QStringList messages() {
        QStringList shown;
        for (const auto& s : m_dialogs->shown())
            shown << iconName(s.icon) + QStringLiteral(": ") + s.text;
        return shown;
    }

    void openList() {
        ui::showPlace(*m_host, {QStringLiteral("frmTanqu")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmTanqu"));
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
    // number `declared`.
    void seedTank(int ntanqu, int declared, int compartments, const QString& ipropr = "D") {
        db().run(QStringLiteral(
                     "Insert Into TB_POSTOTANQU (NMUNCP, NSEQNC, AINFRM, ITANQU, NTANQU, NIDENT,"
                     " AINSTL, NMATRL, QCOMPRT, IPROPR, ITESTEESTNQ, ISITCA, SSISTMPROTC, IPROTC,"
                     " DPROTC, IFREQNMANTN) Values (100, 1, '2024-01-10', 'S', ?, 'TQ', "
                     "'2005-06-01', 4, ?, ?, 'ND', 'A', 'S', 'Corrente Impressa', 'RETIFICADOR',"
                     " 'Mensal')"),
                 {ntanqu, declared, ipropr});
        for (int c = 1; c <= compartments; ++c)
            db().run(QStringLiteral("Insert Into TB_POSTOTANQUCOMPR Values (100, 1, '2024-01-10',"
                                    " 'S', ?, ?, 1, 10, 101, 3, 5)"),
                     {ntanqu, c});
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }

    void init() {
        m_env = std::make_unique<testsupport::TestEnvironment>();
        m_host = std::make_unique<FakeHost>(m_env->newDatabasePath());
        ui::Session& s = m_host->session();
        s.nmuncp = 100;
        s.nseqnc = 1;
        s.ainfrm = QDate(2024, 1, 10);
        s.razaoSocial = QStringLiteral("AUTO POSTO TESTE LTDA");
        s.objetivo = 0;
        m_dialogs = std::make_unique<ScriptedDialogs>();
    }

    void cleanup() {
        m_dialogs.reset();
        m_host.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_env.reset();
    }

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
    }
};

QTEST_MAIN(TestTanks)
#include "test_tanks.moc"
