// The leak history of both systems: the location deciding the fields, "Não Identificado", the
// duplicate tests, the installation dates, and changes that touch exactly the leak opened.
#include "fuel/FuelScreens.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QSqlQuery>
#include <QTest>

using namespace testsupport;

class TestLeaks : public QObject, private ScreenDriver {
    Q_OBJECT

    // Tank 1 (installed 2010) with compartments 1 of "Gasolina Comum" and 2 of "Óleo Diesel
    // S10", pump 5 (installed 2012) drawing from compartment 1.
    void seedSystem(const QString& itanqu = QStringLiteral("S")) {
        seedRow(db(), "TB_POSTOTANQU",
                onRegister({{"ITANQU", itanqu},
                            {"NTANQU", 1},
                            {"NIDENT", "TQ1"},
                            {"AINSTL", "2010-01-01"},
                            {"NMATRL", 4},
                            {"QCOMPRT", 2},
                            {"IPROPR", "D"},
                            {"ITESTEESTNQ", "ND"},
                            {"ISITCA", "A"}}));
        for (const auto& [compartment, fuel] : {std::pair{1, 101}, std::pair{2, 112}})
            seedRow(db(), "TB_POSTOTANQUCOMPR",
                    onRegister({{"ITANQU", itanqu},
                                {"NTANQU", 1},
                                {"NCOMPR", compartment},
                                {"NBOCACARRG", 1},
                                {"QCAPCD", 10},
                                {"NCOMBS", fuel}}));
        seedRow(db(), "TB_POSTOBOMBA",
                onRegister({{"ITANQU", itanqu},
                            {"NBOMBA", 5},
                            {"NIDENT", "B5"},
                            {"AINSTL", "2012-01-01"},
                            {"NVALVLRETNC", 1},
                            {"NFILTRO", 1},
                            {"IPROPR", "D"},
                            {"ITESTEESTNQ", "ND"}}));
        seedRow(
            db(), "TB_POSTOBOMBATANQU",
            onRegister(
                {{"ITANQU", itanqu}, {"NBOMBA", 5}, {"NTANQU", 1}, {"NCOMPR", 1}, {"NMATRL", 1}}));
    }

    void openList(const QString& name = QStringLiteral("frmPostoHistrVazmnSubtr")) {
        ui::showPlace(*m_host, {name});
        QCOMPARE(screen()->objectName(), name);
    }

    void action() {
        choose(QStringLiteral("cmbDOBSRV"), QStringLiteral("Reparo"));
        choose(QStringLiteral("cmbDACAOSITCA"), QStringLiteral("Finalizada"));
    }

    // A leak at compartment `compartment` of tank 1 on 10/05/2020.
    void enterTankLeak(const QString& compartment) {
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("10/05/2020"));
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Tanque"));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1"));
        choose(QStringLiteral("cmbNCOMPR"), compartment);
        action();
        click(QStringLiteral("cmdOk"));
    }

    // The leaks, one text per row: location, tank, compartment, pump, product, situation.
    QStringList leaks() {
        QStringList rows;
        QSqlQuery q = db().run(QStringLiteral(
            "Select ILOCAL, NTANQU, NCOMPR, NBOMBA, NCOMBS, DACAOSITCA, ITANQU From TB_POSTOVAZMN"
            " Order By ITANQU, ILOCAL, NTANQU, NCOMPR, NBOMBA"));
        while (q.next()) {
            QStringList cells;
            for (int c = 0; c < 7; ++c)
                cells << q.value(c).toString();
            rows << cells.join(QLatin1Char(' '));
        }
        return rows;
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void twoLeaksOfOneDayAtOneTankAreBothEditable() {
        seedSystem();
        openList();
        enterTankLeak(QStringLiteral("2"));
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Incluído com Sucesso"));
        enterTankLeak(QStringLiteral("1"));
        QCOMPARE(leaks(), QStringList({"T 1 1 0 101 Finalizada S", "T 1 2 0 112 Finalizada S"}));
        // The same tank and compartment once more that day is refused; a vent is another place.
        enterTankLeak(QStringLiteral("1"));
        QCOMPARE(m_dialogs->last().text,
                 QStringLiteral("Já existe Nº do Tanque ou Nº do Compartimento cadastrado."));
        click(QStringLiteral("cmdCancelar"));
        QCOMPARE(column(QStringLiteral("fgr1"), 2), QStringList({"1", "1"}));
        QCOMPARE(column(QStringLiteral("fgr1"), 5),
                 QStringList({"Gasolina Comum", "Óleo Diesel S10"}));

        // Each opens as itself; a change reaches that one row alone.
        for (int row = 1; row <= 2; ++row) {
            selectRow(QStringLiteral("fgr1"), row);
            click(QStringLiteral("cmdAlterar"));
            QCOMPARE(find<QComboBox>(QStringLiteral("cmbNCOMPR"))->currentText(),
                     QString::number(row));
            QVERIFY(!find<QWidget>(QStringLiteral("picNTANQU"))->isEnabled());
            QVERIFY(!find<QWidget>(QStringLiteral("picAVAZMN"))->isEnabled());
            choose(QStringLiteral("cmbDACAOSITCA"), row == 1 ? "Suspensa" : "Abandonada");
            click(QStringLiteral("cmdOk"));
            QCOMPARE(m_dialogs->last().text, QStringLiteral("Alterado com Sucesso"));
        }
        QCOMPARE(leaks(), QStringList({"T 1 1 0 101 Suspensa S", "T 1 2 0 112 Abandonada S"}));

        // A delete takes the row under the cursor, no other.
        selectRow(QStringLiteral("fgr1"), 2);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(leaks(), QStringList({"T 1 1 0 101 Suspensa S"}));
    }

    void whatALocationDoesNotWriteBackIsLocked() {
        seedSystem();
        seedRow(db(), "TB_POSTOVAZMN",
                onRegister({{"ITANQU", "S"},
                            {"AVAZMN", "2020-05-10"},
                            {"ILOCAL", "L"},
                            {"NTANQU", 1},
                            {"NCOMPR", 1},
                            {"NBOMBA", 5},
                            {"NCOMBS", 101},
                            {"DACAO", "Reparo"},
                            {"DACAOSITCA", "Suspensa"}}));
        openList();
        QCOMPARE(column(QStringLiteral("fgr1"), 1), QStringList({"Linha"}));
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNBOMBA"))->currentText(), QStringLiteral("5"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNCOMBS"))->currentText(),
                 QStringLiteral("Gasolina Comum"));
        for (const char* pic : {"picNTANQU", "picNCOMPR", "picNBOMBA", "picNCOMBS", "picILOCAL"})
            QVERIFY2(!find<QWidget>(QString::fromLatin1(pic))->isEnabled(), pic);
        QVERIFY(find<QComboBox>(QStringLiteral("cmbDOBSRV"))->isEnabled());
        choose(QStringLiteral("cmbDOBSRV"), QStringLiteral("Substituição"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(count("Select Count(*) From TB_POSTOVAZMN Where DACAO = 'Substituição'"
                       " And NTANQU = 1 And NCOMPR = 1 And NBOMBA = 5"),
                 1);
    }

    void notIdentifiedStoresZeroAndShowsItsWords() {
        seedSystem();
        openList();
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("01/02/2021"));
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Bomba"));
        QCOMPARE(items(QStringLiteral("cmbNBOMBA")), QStringList({"5", "Não Identificado"}));
        choose(QStringLiteral("cmbNBOMBA"), QStringLiteral("5"));
        QCOMPARE(items(QStringLiteral("cmbNCOMBS")), QStringList({"Gasolina Comum"}));
        choose(QStringLiteral("cmbNBOMBA"), QStringLiteral("Não Identificado"));
        QCOMPARE(items(QStringLiteral("cmbNCOMBS")).size(),
                 count("Select Count(*) From DICNRCOMBS"));
        choose(QStringLiteral("cmbNCOMBS"), QStringLiteral("Querosene"));
        action();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(leaks(), QStringList({"B 0 0 0 130 Finalizada S"}));
        QCOMPARE(column(QStringLiteral("fgr1"), 4), QStringList({"Não Identificado"}));
        QCOMPARE(column(QStringLiteral("fgr1"), 2), QStringList({""}));

        // "Outros Equipamentos": the whole dictionary, every number 0, one text per day.
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("01/02/2021"));
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Outros Equipamentos"));
        QVERIFY(!find<QComboBox>(QStringLiteral("cmbNTANQU"))->isEnabled());
        QCOMPARE(items(QStringLiteral("cmbNCOMBS")).size(),
                 count("Select Count(*) From DICNRCOMBS"));
        type(QStringLiteral("txtDLOCAL"), QStringLiteral("caixa separadora"));
        choose(QStringLiteral("cmbNCOMBS"), QStringLiteral("Total de Gasolinas"));
        action();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(leaks(), QStringList({"B 0 0 0 130 Finalizada S", "O 0 0 0 109 Finalizada S"}));
        QCOMPARE(db().scalar("Select DLOCAL From TB_POSTOVAZMN Where ILOCAL = 'O'").toString(),
                 QStringLiteral("CAIXA SEPARADORA"));
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("01/02/2021"));
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Outros Equipamentos"));
        type(QStringLiteral("txtDLOCAL"), QStringLiteral("caixa separadora"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text,
                 QStringLiteral("Já existe Outros Equipamentos cadastrados para esta data."));
    }

    void checksInTheirOrder() {
        seedSystem();
        openList();
        click(QStringLiteral("cmdIncluir"));
        // The date takes the first focus and cannot be left empty.
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Bomba"));
        QVERIFY(find<QLineEdit>(QStringLiteral("mskAVAZMN"))->hasFocus());
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("01/02/2011"));
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Bomba"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().title, QStringLiteral("VOË"));
        choose(QStringLiteral("cmbNBOMBA"), QStringLiteral("5"));
        click(QStringLiteral("cmdOk"));
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("01/02/2013"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbNCOMBS"), QStringLiteral("Gasolina Comum"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbDOBSRV"), QStringLiteral("Reparo"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(),
                 QStringList({
                     "critical: Preenchimento Obrigatório da Data",
                     "critical: Preenchimento Obrigatório do Nº da Bomba.",
                     "critical: A Data do Vazamento deve ser Maior ou Igual a Data de Instalação "
                     "da Bomba.",
                     "critical: Preenchimento Obrigatório do Produto Vazado.",
                     "critical: Preenchimento Obrigatório da Ação Decorrente.",
                     "critical: Preenchimento Obrigatório do Situação da Ação.",
                 }));
        QCOMPARE(count("Select Count(*) From TB_POSTOVAZMN"), 0);

        // A tank's leak before its installation; the date itself on leaving.
        m_dialogs->clear();
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("31/13/2013"));
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("01/02/2009"));
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Respiro"));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("2"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(),
                 QStringList({
                     "critical: Preenchimento Incorreto da Data",
                     "critical: Preenchimento Obrigatório do Nº do Compartimento.",
                     "critical: A Data do Vazamento deve ser Maior ou Igual a Data de Instalação "
                     "do Tanque.",
                 }));
    }

    void abovegroundWordsAndLocations() {
        seedSystem(QStringLiteral("A"));
        openList(QStringLiteral("frmPostoHistrVazmnAereo"));
        QCOMPARE(headings(QStringLiteral("fgr1")).mid(2, 3),
                 QStringList({"Nº Reservatório", "Nº Compartimento", "Nº Unid. de Abastecimento"}));
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(items(QStringLiteral("cmbILOCAL")),
                 QStringList({"Reservatório", "Unidade de Abastecimento", "Linha", "Respiro",
                              "Filtro", "Boca de carregamento", "Outros Equipamentos"}));
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("01/02/2015"));
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Reservatório"));
        // No "Combustível Vazado" here: an unidentified tank goes on to the product's message.
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("Não Identificado"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->last().text,
                 QStringLiteral("Preenchimento Obrigatório do Produto Vazado."));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1"));
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("1"));
        action();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(leaks(), QStringList({"T 1 1 0 101 Finalizada A"}));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmPostoHistrVazmnAereo"));
        click(QStringLiteral("cmdAlterar"));
        screen()->resize(800, 600);
        saveScreenshot(*screen(), QStringLiteral("frmPostoHistrVazmnAereoM"));
    }
};

QTEST_MAIN(TestLeaks)
#include "test_leaks.moc"
