// Round trips through the tank and pump screens, driven as a user would: a row changed on the
// screen is read back whole, column by column, so that a value the screen does not carry over
// shows as a difference; what a row shows when it is opened; and which blocks each operation
// shows and opens.
#include "fuel/FuelScreens.h"
#include "support/Rows.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"
#include "ui/FieldBehaviour.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QTest>

namespace {

const char* const kTanks = "TB_POSTOTANQU";
const char* const kCompartments = "TB_POSTOTANQUCOMPR";
const char* const kPumps = "TB_POSTOBOMBA";
const char* const kLinks = "TB_POSTOBOMBATANQU";

// The names of one family's pair of screens.
struct Family {
    QString itanqu;
    QString tankList;
    QString pumpList;
};

Family familyOf(const QString& itanqu) {
    if (itanqu == QLatin1String("A"))
        return {itanqu, QStringLiteral("frmTanquAereo"), QStringLiteral("frmBombaAereo")};
    return {itanqu, QStringLiteral("frmTanqu"), QStringLiteral("frmBomba")};
}

} // namespace

class TestFuelRoundTrips : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    Family m_family;

    bool above() const { return m_family.itanqu == QLatin1String("A"); }

    // A row of the family on register 100/1.
    void seed(const char* table, store::Row values) {
        values.insert(QStringLiteral("ITANQU"), m_family.itanqu);
        testsupport::seedRow(db(), table, testsupport::onRegister(std::move(values)));
    }

    // A tank with every column the screens write, and its compartments, which differ in every
    // column from each other.
    void seedTank(int ntanqu, const QString& ipropr, int compartments,
                  const QVariantMap& more = {}) {
        QVariantMap tank = {{"NTANQU", ntanqu},
                            {"NIDENT", QStringLiteral("TQ %1").arg(ntanqu)},
                            {"AINSTL", "2005-06-01"},
                            {"NMATRL", above() ? 9 : 4},
                            {"DMATRLOUTRO", above() ? QVariant("PEAD") : QVariant()},
                            {"QCOMPRT", compartments + 1},
                            {"ATESTEESTNQ", "2023-11-30"},
                            {"ITESTEESTNQ", "R"},
                            {"SSISTMPROTC", "S"},
                            {"IPROTC", "C"},
                            {"DPROTC", "RETIFICADOR"},
                            {"IFREQNMANTN", "M"},
                            {"AMANTNULTMA", "2024-01-02"},
                            {"IPROPR", ipropr},
                            {"IPOSCA", above() ? QVariant("H") : QVariant()},
                            {"NBASE", above() ? QVariant(2) : QVariant()},
                            {"ISITCA", "A"}};
        for (auto it = more.begin(); it != more.end(); ++it)
            tank.insert(it.key(), it.value());
        seed(kTanks, tank);
        for (int c = 1; c <= compartments; ++c) {
            seed(kCompartments, {{"NTANQU", ntanqu},
                                 {"NCOMPR", c},
                                 {"NBOCACARRG", c == 1 ? 3 : 2},
                                 {"QCAPCD", 10 + c},
                                 {"NCOMBS", c == 1 ? 112 : 101},
                                 {"QRESPRALTRA", 3 + c},
                                 {"QRESPRDISTCRECPT", c == 1 ? 2.5 : 6.0}});
        }
        if (ipropr == QLatin1String("O")) {
            seed("TB_POSTOTANQUPROPR", {{"NTANQU", ntanqu},
                                        {"DRAZAOSOCIL", "DONO SA"},
                                        {"DCONTT", "JOSE"},
                                        {"DLOGRD", "RUA A"},
                                        {"NLOGRD", 10},
                                        {"CCEP", 1310100},
                                        {"NMUNCPDISTRFORNC", 100},
                                        {"NDDD", 11},
                                        {"NTELFN", 33334444}});
        }
    }

    void seedPump(int nbomba, const QString& ipropr, const QVariantMap& more = {}) {
        QVariantMap pump = {
            {"NBOMBA", nbomba},       {"NIDENT", QStringLiteral("BICO %1").arg(nbomba)},
            {"AINSTL", "2006-02-01"}, {"NVALVLRETNC", 2},
            {"NFILTRO", 3},           {"ATESTEESTNQ", "2023-10-31"},
            {"SSISTMPROTC", 0},       {"ITESTEESTNQ", "R"},
            {"IPROPR", ipropr}};
        for (auto it = more.begin(); it != more.end(); ++it)
            pump.insert(it.key(), it.value());
        seed(kPumps, pump);
        if (ipropr == QLatin1String("O")) {
            seed("TB_POSTOBOMBAPROPR", {{"NBOMBA", nbomba},
                                        {"DRAZAOSOCIL", "DONO SA"},
                                        {"DCONTT", "JOSE"},
                                        {"DLOGRD", "RUA A"},
                                        {"NLOGRD", 10},
                                        {"CCEP", 1310100},
                                        {"NMUNCPDISTRFORNC", 100},
                                        {"NDDD", 11},
                                        {"NTELFN", 33334444}});
        }
    }

    void seedLink(int nbomba, int ntanqu, int ncompr) {
        seed(kLinks, {{"NBOMBA", nbomba},
                      {"NTANQU", ntanqu},
                      {"NCOMPR", ncompr},
                      {"NMATRL", 13},
                      {"ILINHA", above() ? QVariant() : QVariant("P")}});
    }

    // Every row of the family in `table`, whole.
    QStringList rows(const char* table, const QString& order) {
        return testsupport::rowsOf(db(), table, QStringLiteral("ITANQU = ? ORDER BY ") + order,
                                   {m_family.itanqu});
    }

    // `before` with the columns of `changed` set to their new values.
    static QStringList changed(QStringList before, int row, const QStringList& changes) {
        QStringList cells = before[row].split(QStringLiteral("; "));
        for (const QString& change : changes) {
            const QString column = change.section(QLatin1Char('='), 0, 0) + QLatin1Char('=');
            bool found = false;
            for (QString& cell : cells) {
                if (cell.startsWith(column)) {
                    cell = change;
                    found = true;
                }
            }
            if (!found)
                qFatal("no column %s", qPrintable(column));
        }
        before[row] = cells.join(QStringLiteral("; "));
        return before;
    }

    void open(const QString& list) {
        ui::showPlace(*m_host, {list});
        QCOMPARE(screen()->objectName(), list);
    }

    void ok(const QString& message) {
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{QStringLiteral("information: ") + message});
    }

    // The blocks of the screen that is up, as "name: shown enabled" or "name: hidden".
    QString blocks(const QStringList& names) {
        QStringList states;
        for (const QString& name : names) {
            const auto* block = find<QGroupBox>(name);
            if (!block->isVisible())
                states << name + QStringLiteral(": hidden");
            else
                states << name + (block->isEnabled() ? QStringLiteral(": open")
                                                     : QStringLiteral(": closed"));
        }
        return states.join(QStringLiteral(", "));
    }

    QString text(const QString& name) { return find<QLineEdit>(name)->text(); }
    QString shown(const QString& name) { return find<QComboBox>(name)->currentText(); }

    static void families() {
        QTest::addColumn<QString>("itanqu");
        QTest::newRow("underground") << "S";
        QTest::newRow("aboveground") << "A";
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }

    void init() { start(); }

    void cleanup() { stop(); }

    // A compartment opened, changed in one field and then in all, and read back whole: every
    // column the user did not touch keeps its value, every one touched has the new one.
    void aChangedCompartmentKeepsEveryColumn_data() { families(); }

    void aChangedCompartmentKeepsEveryColumn() {
        QFETCH(QString, itanqu);
        m_family = familyOf(itanqu);
        seedTank(3, QStringLiteral("D"), 2);
        const QStringList before = rows(kCompartments, QStringLiteral("NTANQU, NCOMPR"));
        open(m_family.tankList);
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Alterar Compartimento"));
        QCOMPARE(text(QStringLiteral("txtNCOMPR")), QStringLiteral("1"));
        QCOMPARE(shown(QStringLiteral("cmbNBOCACARRG")), QStringLiteral("Descarga Selada"));
        QCOMPARE(text(QStringLiteral("txtQCAPCD")), QStringLiteral("11"));
        QCOMPARE(shown(QStringLiteral("cmbNCOMBS")), QStringLiteral("Óleo Diesel S10"));
        QCOMPARE(text(QStringLiteral("txtQRESPRALTRA")), QStringLiteral("4"));
        QCOMPARE(text(QStringLiteral("txtQRESPRDISTCRECPT")), QStringLiteral("2,5"));

        type(QStringLiteral("txtQCAPCD"), QStringLiteral("20"));
        ok(QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(rows(kCompartments, QStringLiteral("NTANQU, NCOMPR")),
                 changed(before, 0, {"QCAPCD=20"}));

        selectRow(QStringLiteral("fgrPostoTanquCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        choose(QStringLiteral("cmbNBOCACARRG"), QStringLiteral("Com Câmara de Contenção"));
        type(QStringLiteral("txtQCAPCD"), QStringLiteral("25"));
        choose(QStringLiteral("cmbNCOMBS"), QStringLiteral("Gasolina Aditivada"));
        type(QStringLiteral("txtQRESPRALTRA"), QStringLiteral("7"));
        type(QStringLiteral("txtQRESPRDISTCRECPT"), QStringLiteral("8,75"));
        ok(QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(rows(kCompartments, QStringLiteral("NTANQU, NCOMPR")),
                 changed(before, 0,
                         {"NBOCACARRG=4", "QCAPCD=25", "NCOMBS=102", "QRESPRALTRA=7",
                          "QRESPRDISTCRECPT=8.75"}));
    }

    // A tank changed in one field and then in the others: its row read back whole, protection
    // and all.
    void aChangedTankKeepsEveryColumn_data() { families(); }

    void aChangedTankKeepsEveryColumn() {
        QFETCH(QString, itanqu);
        m_family = familyOf(itanqu);
        seedTank(3, QStringLiteral("D"), 1);
        const QStringList before = rows(kTanks, QStringLiteral("NTANQU"));
        open(m_family.tankList);
        click(QStringLiteral("cmdAlterar"));
        type(QStringLiteral("txtNIDENT"), QStringLiteral("NOVO NOME"));
        ok(QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(rows(kTanks, QStringLiteral("NTANQU")), changed(before, 0, {"NIDENT=NOVO NOME"}));

        click(QStringLiteral("cmdAlterar"));
        type(QStringLiteral("mskAINSTL"), QStringLiteral("02/03/2004"));
        type(QStringLiteral("mskATESTEESTNQ"), QStringLiteral("04/05/2022"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Proprietário"));
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Desativado"));
        QStringList changes = {"AINSTL=2004-03-02", "ATESTEESTNQ=2022-05-04", "IPROPR=P",
                               "ISITCA=D"};
        if (above()) {
            choose(QStringLiteral("cmbIPOSCA"), QStringLiteral("Vertical"));
            type(QStringLiteral("txtDMATRLOUTRO"), QStringLiteral("FIBRA"));
            choose(QStringLiteral("cmbNBASE"), QStringLiteral("Estrutura Metálica"));
            changes << "IPOSCA=V"
                    << "DMATRLOUTRO=FIBRA"
                    << "NBASE=4";
        } else {
            choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Aço Carbono - Jaquetado"));
            changes << "NMATRL=3";
        }
        ok(QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(rows(kTanks, QStringLiteral("NTANQU")),
                 changed(changed(before, 0, {"NIDENT=NOVO NOME"}), 0, changes));
        QCOMPARE(rows(kCompartments, QStringLiteral("NCOMPR")).size(), 1);
    }

    // A pump and then its link, each changed and read back whole.
    void aChangedPumpAndLinkKeepEveryColumn_data() { families(); }

    void aChangedPumpAndLinkKeepEveryColumn() {
        QFETCH(QString, itanqu);
        m_family = familyOf(itanqu);
        seedTank(1, QStringLiteral("D"), 2);
        seedPump(4, QStringLiteral("D"));
        seedLink(4, 1, 1);
        const QStringList pumps = rows(kPumps, QStringLiteral("NBOMBA"));
        const QStringList links = rows(kLinks, QStringLiteral("NBOMBA, NTANQU, NCOMPR"));
        open(m_family.pumpList);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(shown(QStringLiteral("cmbNVALVLRETNC")), QStringLiteral("Junto ao Tanque"));
        QCOMPARE(shown(QStringLiteral("cmbNFILTRO")), QStringLiteral("Filtro Coalescente"));
        type(QStringLiteral("txtNIDENT"), QStringLiteral("NOVO BICO"));
        ok(QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(rows(kPumps, QStringLiteral("NBOMBA")), changed(pumps, 0, {"NIDENT=NOVO BICO"}));

        click(QStringLiteral("cmdAlterar"));
        type(QStringLiteral("mskAINSTL"), QStringLiteral("07/08/2009"));
        choose(QStringLiteral("cmbNVALVLRETNC"), QStringLiteral("Junto à Bomba"));
        choose(QStringLiteral("cmbNFILTRO"), QStringLiteral("Filtro de Linha"));
        type(QStringLiteral("mskATESTEESTNQ"), QStringLiteral("09/10/2021"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Proprietário"));
        ok(QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(rows(kPumps, QStringLiteral("NBOMBA")),
                 changed(pumps, 0,
                         {"NIDENT=NOVO BICO", "AINSTL=2009-08-07", "NVALVLRETNC=1", "NFILTRO=1",
                          "ATESTEESTNQ=2021-10-09", "IPROPR=P"}));

        selectRow(QStringLiteral("fgrBombaCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(shown(QStringLiteral("cmbNMATRL")),
                 QStringLiteral("Polietileno de Alta Densidade (PEAD)"));
        choose(QStringLiteral("cmbNMATRL"), QStringLiteral("Cobre"));
        ok(QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(rows(kLinks, QStringLiteral("NBOMBA, NTANQU, NCOMPR")),
                 changed(links, 0, {"NMATRL=15"}));

        selectRow(QStringLiteral("fgrBombaCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("2 - Gasolina Comum"));
        QStringList changes = {"NCOMPR=2", "NMATRL=15"};
        if (!above()) {
            choose(QStringLiteral("cmbILINHA"), QStringLiteral("Sucção"));
            changes << "ILINHA=S";
        }
        ok(QStringLiteral("Alterado com Sucesso"));
        QCOMPARE(rows(kLinks, QStringLiteral("NBOMBA, NTANQU, NCOMPR")),
                 changed(links, 0, changes));
    }

    // What the integrity report of a tank or pump shows when the row is opened: a report date
    // means a report made, whatever the stored condition says; without one, the stored
    // condition, and the date closed.
    void theIntegrityReportLoadsAsStored_data() {
        QTest::addColumn<QString>("itanqu");
        QTest::addColumn<bool>("pump");
        QTest::addColumn<QVariant>("condition");
        QTest::addColumn<QVariant>("date");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("dateShown");
        for (const char* kind : {"S", "A"}) {
            for (const bool pump : {false, true}) {
                const QByteArray name = QByteArray(kind) + (pump ? " pump" : " tank");
                QTest::newRow(name + ", report made")
                    << kind << pump << QVariant("R") << QVariant("2023-11-30") << "Realizado"
                    << "30/11/2023";
                QTest::newRow(name + ", not made")
                    << kind << pump << QVariant("NR") << QVariant() << "Não Realizado"
                    << "";
            }
        }
        // The rest is the same code for both kinds.
        for (const bool pump : {false, true}) {
            const QByteArray name = pump ? "pump" : "tank";
            QTest::newRow(name + ", a date with another condition")
                << "S" << pump << QVariant("NR") << QVariant("2020-02-29") << "Realizado"
                << "29/02/2020";
            QTest::newRow(name + ", not available")
                << "S" << pump << QVariant("ND") << QVariant() << "Não Disponível"
                << "";
            QTest::newRow(name + ", no condition")
                << "S" << pump << QVariant() << QVariant() << "Não Disponível"
                << "";
        }
    }

    void theIntegrityReportLoadsAsStored() {
        QFETCH(QString, itanqu);
        QFETCH(bool, pump);
        QFETCH(QVariant, condition);
        QFETCH(QVariant, date);
        QFETCH(QString, shown);
        QFETCH(QString, dateShown);
        m_family = familyOf(itanqu);
        const QVariantMap report = {{"ITESTEESTNQ", condition}, {"ATESTEESTNQ", date}};
        seedTank(1, QStringLiteral("D"), 1, pump ? QVariantMap() : report);
        if (pump)
            seedPump(2, QStringLiteral("D"), report);
        open(pump ? m_family.pumpList : m_family.tankList);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(this->shown(QStringLiteral("cmbitesteestnq")), shown);
        auto* dateField = find<QLineEdit>(QStringLiteral("mskATESTEESTNQ"));
        QCOMPARE(ui::clipText(dateField).isEmpty() ? QString() : dateField->text(), dateShown);
        QCOMPARE(dateField->isEnabled(), !dateShown.isEmpty());
        // Closed again unchanged, the row is as it was.
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
    }

    // Each operation shows the blocks it needs, open for input or closed, whatever operation
    // the pair ran before: a tank of others (1, no compartment yet), one of the distributor (2)
    // and another of others (3), each compartment operation on its own tank.
    void theTankBlocksFollowTheOperation_data() { families(); }

    void theTankBlocksFollowTheOperation() {
        QFETCH(QString, itanqu);
        m_family = familyOf(itanqu);
        seedTank(1, QStringLiteral("O"), 0);
        seedTank(2, QStringLiteral("D"), 1);
        seedTank(3, QStringLiteral("O"), 1);
        const QStringList names = {"fraTanque", "fraCompar", "fraProp"};
        const QString tankOfOthers =
            QStringLiteral("fraTanque: open, fraCompar: hidden, fraProp: open");
        const QString tankOfOwn =
            QStringLiteral("fraTanque: open, fraCompar: hidden, fraProp: hidden");
        const QString compartmentOfOthers =
            QStringLiteral("fraTanque: closed, fraCompar: open, fraProp: closed");
        const QString compartmentOfOwn =
            QStringLiteral("fraTanque: closed, fraCompar: open, fraProp: hidden");
        open(m_family.tankList);

        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), tankOfOthers);
        click(QStringLiteral("cmdFechar"));
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Incluir Compartimento"));
        QCOMPARE(blocks(names), compartmentOfOthers);
        click(QStringLiteral("cmdFechar"));

        selectRow(QStringLiteral("fgrPostoTanqu"), 2);
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Alterar Compartimento"));
        QCOMPARE(blocks(names), compartmentOfOwn);
        click(QStringLiteral("cmdFechar"));
        selectLevel(0);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), tankOfOwn);
        click(QStringLiteral("cmdFechar"));

        selectLevel(0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(blocks(names), tankOfOwn);
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        QCOMPARE(blocks(names), tankOfOthers);
        click(QStringLiteral("cmdCancelar"));

        selectRow(QStringLiteral("fgrPostoTanqu"), 3);
        selectRow(QStringLiteral("fgrPostoTanquCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), compartmentOfOthers);
        click(QStringLiteral("cmdFechar"));
        selectLevel(0);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), tankOfOthers);
    }

    // The same for pumps: one of others without a link yet (1), one of the distributor (2)
    // and another of others (3), each with a link.
    void thePumpBlocksFollowTheOperation_data() { families(); }

    void thePumpBlocksFollowTheOperation() {
        QFETCH(QString, itanqu);
        m_family = familyOf(itanqu);
        seedTank(1, QStringLiteral("D"), 2);
        seedPump(1, QStringLiteral("O"));
        seedPump(2, QStringLiteral("D"));
        seedLink(2, 1, 1);
        seedPump(3, QStringLiteral("O"));
        seedLink(3, 1, 2);
        const QStringList names = {"fraBomba", "fraBombaCompar", "fraProp"};
        const QString pumpOfOthers =
            QStringLiteral("fraBomba: open, fraBombaCompar: hidden, fraProp: open");
        const QString pumpOfOwn =
            QStringLiteral("fraBomba: open, fraBombaCompar: hidden, fraProp: hidden");
        const QString linkOfOthers =
            QStringLiteral("fraBomba: closed, fraBombaCompar: open, fraProp: closed");
        const QString linkOfOwn =
            QStringLiteral("fraBomba: closed, fraBombaCompar: open, fraProp: hidden");
        open(m_family.pumpList);

        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), pumpOfOthers);
        click(QStringLiteral("cmdFechar"));
        selectRow(QStringLiteral("fgrBombaCompar"), 0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(blocks(names), linkOfOthers);
        click(QStringLiteral("cmdFechar"));

        selectRow(QStringLiteral("fgrBomba"), 2);
        selectRow(QStringLiteral("fgrBombaCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), linkOfOwn);
        click(QStringLiteral("cmdFechar"));
        selectLevel(0);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), pumpOfOwn);
        click(QStringLiteral("cmdFechar"));

        selectLevel(0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(blocks(names), pumpOfOwn);
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        QCOMPARE(blocks(names), pumpOfOthers);
        click(QStringLiteral("cmdCancelar"));

        selectRow(QStringLiteral("fgrBomba"), 3);
        selectRow(QStringLiteral("fgrBombaCompar"), 1);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), linkOfOthers);
        click(QStringLiteral("cmdFechar"));
        selectLevel(0);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(blocks(names), pumpOfOthers);
    }
};

QTEST_MAIN(TestFuelRoundTrips)
#include "test_fuel_round_trips.moc"
