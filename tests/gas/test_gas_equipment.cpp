// Gas dispensers and compressors: one family of screens, each with its links to the storage
// batteries, entered with the first link and then in a chain that the user closes.
#include "GasDriver.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>

using namespace testsupport;

namespace {

// What a test needs to know of each of the two lists.
struct Kind {
    QString list;
    QString maintenance;
    std::string_view table;
    std::string_view linkTable;
    QString column;
    QString field;
    QString grid;
    QString linkGrid;
    QString word;
};

const Kind kDispenser = {"frmPostoGasBomba",
                         "frmPostoGasBombaM",
                         "TB_POSTOGASBOMBA",
                         "TB_POSTOGASBOMBABATRI",
                         "NBOMBA",
                         "txtNBOMBA",
                         "fgrPostoGasBomba",
                         "fgrPostoGasBombaBatri",
                         "Bomba"};
const Kind kCompressor = {
    "frmPostoGasCompr", "frmPostoGasComprM", "TB_POSTOGASCOMPR", "TB_POSTOGASCOMPRBATRI",
    "NCOMPR",           "txtNCOMPR",         "fgrPostoGasCompr", "fgrPostoGasComprBatri",
    "Compressor"};

} // namespace

Q_DECLARE_METATYPE(const Kind*)

class TestGasEquipment : public QObject, private GasDriver {
    Q_OBJECT

    void fill(const Kind& k, const QString& number) {
        type(k.field, number);
        type(QStringLiteral("txtNIDENT"), QStringLiteral("EQUIPAMENTO ") + number);
        type(QStringLiteral("mskAINSTL"), QStringLiteral("02/03/2012"));
        if (&k == &kDispenser)
            type(QStringLiteral("txtNBICOS"), QStringLiteral("4"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Proprietário"));
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Em Uso"));
    }
    void chooseLink(const QString& battery, const QString& material) {
        choose(QStringLiteral("cmbNBATRI"), battery);
        choose(QStringLiteral("cmbDMATRILINHA"), material);
    }
    void addFamilies() {
        QTest::addColumn<const Kind*>("kind");
        QTest::newRow("dispensers") << &kDispenser;
        QTest::newRow("compressors") << &kCompressor;
    }
    // Equipment 1 and 2, each linked to batteries 1 and 2.
    void seedLinked(const Kind& k) {
        seedBattery(1);
        seedBattery(2);
        for (int n : {1, 2}) {
            seedEquipment(k.table, k.column, n);
            seedLink(k.linkTable, k.column, n, 1);
            seedLink(k.linkTable, k.column, n, 2);
        }
    }

private slots:
    void initTestCase() { gas::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    // A new one comes with its first link in one save; the chain of links that follows can be
    // closed at once, since one link exists, or go on.
    void aNewOneIsSavedWithItsFirstLink_data() { addFamilies(); }
    void aNewOneIsSavedWithItsFirstLink() {
        QFETCH(const Kind*, kind);
        const Kind& k = *kind;
        seedBattery(1);
        seedBattery(2);
        openList(k.list);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(screen()->objectName(), k.maintenance);
        QVERIFY(find<QWidget>(QStringLiteral("fraBateria"))->isVisible());
        QCOMPARE(items(QStringLiteral("cmbNBATRI")), QStringList({"1", "2"}));
        QVERIFY(items(QStringLiteral("cmbDMATRILINHA")).contains(QStringLiteral("Cobre")));
        QVERIFY(!items(QStringLiteral("cmbDMATRILINHA")).contains(QStringLiteral("Aço")));
        fill(k, QStringLiteral("3"));
        chooseLink(QStringLiteral("2"), QStringLiteral("Cobre"));
        shot(k.maintenance + QStringLiteral("-new"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        m_dialogs->clear();
        QCOMPARE(stored(k.table, {{k.column, 3}}).value("NIDENT").toString(),
                 QStringLiteral("EQUIPAMENTO 3"));
        QCOMPARE(stored(k.linkTable, {{k.column, 3}, {"NBATRI", 2}}).value("NMATRL").toInt(),
                 kCobre);

        // The next link: the equipment shown and frozen, and Fechar may end the chain.
        QCOMPARE(screen()->objectName(), k.maintenance);
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Incluir Ligação"));
        QVERIFY(!find<QWidget>(k.field)->isEnabled() ||
                !find<QWidget>(k.field)->parentWidget()->isEnabled());
        QCOMPARE(find<QLineEdit>(k.field)->text(), QStringLiteral("3"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtNIDENT"))->text(),
                 QStringLiteral("EQUIPAMENTO 3"));
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNBATRI"))->hasFocus());
        QVERIFY(button(QStringLiteral("cmdOk"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdCancelar"))->isEnabled());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        shot(k.maintenance + QStringLiteral("-link"));
        // The same battery twice is refused; another one is taken, and the chain goes on.
        chooseLink(QStringLiteral("2"), QStringLiteral("Cobre"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"critical: Número de Bateria já está cadastrado, "
                                         "preencha com outro valor"});
        m_dialogs->clear();
        chooseLink(QStringLiteral("1"), QStringLiteral("Aço Galvanizado"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        QCOMPARE(screen()->objectName(), k.maintenance);
        click(QStringLiteral("cmdFechar"));
        QCOMPARE(screen()->objectName(), k.list);
        QCOMPARE(column(k.grid, 0), QStringList{"3"});
        QCOMPARE(column(k.linkGrid, 0), QStringList({"1", "2"}));
        QCOMPARE(column(k.linkGrid, 1), QStringList({"Aço Galvanizado", "Cobre"}));
        QCOMPARE(count(QStringLiteral("Select Count(*) From %1").arg(k.linkTable.data())), 2);
    }

    // With no battery in the register the list of batteries is empty, and nothing is saved.
    void withoutABatteryNothingIsSaved_data() { addFamilies(); }
    void withoutABatteryNothingIsSaved() {
        QFETCH(const Kind*, kind);
        const Kind& k = *kind;
        openList(k.list);
        click(QStringLiteral("cmdIncluir"));
        QVERIFY(items(QStringLiteral("cmbNBATRI")).isEmpty());
        fill(k, QStringLiteral("1"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(),
                 QStringList{"critical: Preenchimento Obrigatório de pelo menos uma Bateria"});
        QVERIFY(find<QComboBox>(QStringLiteral("cmbNBATRI"))->hasFocus());
        QCOMPARE(screen()->objectName(), k.maintenance);
        QCOMPARE(count(QStringLiteral("Select Count(*) From %1").arg(k.table.data())), 0);
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtNIDENT"))->text(),
                 QStringLiteral("EQUIPAMENTO 1"));
    }

    // The refusals of Ok on a new dispenser, each in its turn; the compressor's are the same
    // less the nozzles.
    void okRefusesInItsOrder_data() {
        QTest::addColumn<const Kind*>("kind");
        QTest::addColumn<QStringList>("expected");
        const QStringList dispenser = {
            "txtNBOMBA: Preenchimento Obrigatório do Número da Bomba",
            "txtNBOMBA: Número de Unidade de Armazenamento já está cadastrado, preencha com "
            "outro valor",
            "txtNIDENT: Preenchimento Obrigatório da Identificação.",
            "mskAINSTL: Preenchimento Obrigatório da Data da Instalação",
            "txtNBICOS: Preenchimento Obrigatório do Número de Bicos.",
            "cmbNBATRI: Preenchimento Obrigatório de pelo menos uma Bateria",
            "cmbDMATRILINHA: Preenchimento Obrigatório do Material da Linha",
            "mskAMANTN: Preenchimento Incompleto da Data da Última Manutenção",
            "cmbIPROPR: Preenchimento Obrigatório do Tipo do Proprietário",
            "cmbISITCA: Preenchimento Obrigatório da Situação do Compressor",
        };
        QStringList compressor = dispenser;
        compressor[0] = "txtNCOMPR: Preenchimento Obrigatório do Número do Compressor";
        compressor[1] =
            "txtNCOMPR: Número de Compressor já está cadastrado, preencha com outro valor";
        compressor.removeAt(4);
        QTest::newRow("dispensers") << &kDispenser << dispenser;
        QTest::newRow("compressors") << &kCompressor << compressor;
    }
    void okRefusesInItsOrder() {
        QFETCH(const Kind*, kind);
        QFETCH(QStringList, expected);
        const Kind& k = *kind;
        seedBattery(1);
        seedEquipment(k.table, k.column, 1);
        openList(k.list);
        click(QStringLiteral("cmdIncluir"));
        QStringList refused;
        const auto ok = [&] {
            m_dialogs->clear();
            click(QStringLiteral("cmdOk"));
            QWidget* focus = screen()->focusWidget();
            if (focus && qobject_cast<QComboBox*>(focus->parentWidget()))
                focus = focus->parentWidget();
            refused << (focus ? focus->objectName() : QString()) + QStringLiteral(": ") +
                           m_dialogs->texts().value(0);
        };
        // The last field first, so that Ok is offered while everything before it is empty.
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Desativado"));
        ok();
        type(k.field, QStringLiteral("1"));
        ok();
        type(k.field, QStringLiteral("2"));
        ok();
        type(QStringLiteral("txtNIDENT"), QStringLiteral("ABC"));
        ok();
        type(QStringLiteral("mskAINSTL"), QStringLiteral("02/03/2012"));
        if (&k == &kDispenser) {
            ok();
            type(QStringLiteral("txtNBICOS"), QStringLiteral("2"));
        }
        ok();
        choose(QStringLiteral("cmbNBATRI"), QStringLiteral("1"));
        ok();
        choose(QStringLiteral("cmbDMATRILINHA"), QStringLiteral("Cobre"));
        find<QLineEdit>(QStringLiteral("mskAMANTN"))->setText(QStringLiteral("01/0"));
        ok();
        type(QStringLiteral("mskAMANTN"), QStringLiteral("01/02/2013"));
        ok();
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Distribuidora"));
        find<QComboBox>(QStringLiteral("cmbISITCA"))->setCurrentIndex(-1);
        ok();
        QCOMPARE(refused, expected);
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Desativado"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(m_dialogs->texts(), QStringList{"Incluído com Sucesso"});
        QCOMPARE(stored(k.table, {{k.column, 2}}).value("AMANTNULTMA").toString(),
                 QStringLiteral("2013-02-01"));
    }

    // Changing one link rewrites that link alone, with the register's information date; the
    // battery of a link is not changed.
    void changingOneLinkLeavesTheOthers_data() { addFamilies(); }
    void changingOneLinkLeavesTheOthers() {
        QFETCH(const Kind*, kind);
        const Kind& k = *kind;
        seedLinked(k);
        m_host->session().ainfrm = QDate(2024, 6, 30);
        openList(k.list);
        selectRow(k.linkGrid, 2);
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(m_host->session().operacaoItem, QStringLiteral("Alterar Ligação"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbNBATRI"))->currentText(), QStringLiteral("2"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbDMATRILINHA"))->currentText(),
                 QStringLiteral("Aço Galvanizado"));
        QVERIFY(!find<QWidget>(QStringLiteral("picNBATRI"))->isEnabled());
        QVERIFY(find<QComboBox>(QStringLiteral("cmbDMATRILINHA"))->hasFocus());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        auto* material = find<QComboBox>(QStringLiteral("cmbDMATRILINHA"));
        material->setCurrentIndex(-1);
        leave(material);
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(),
                 QStringList{"critical: É necessário a seleção de um material de linha"});
        m_dialogs->clear();
        choose(QStringLiteral("cmbDMATRILINHA"), QStringLiteral("Cobre"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});

        QCOMPARE(count(QStringLiteral("Select Count(*) From %1").arg(k.linkTable.data())), 4);
        for (int n : {1, 2}) {
            for (int b : {1, 2}) {
                const QVariantMap link = stored(k.linkTable, {{k.column, n}, {"NBATRI", b}});
                const bool changed = n == 1 && b == 2;
                QCOMPARE(link.value("NMATRL").toInt(), changed ? kCobre : kGalvanizado);
                QCOMPARE(link.value("AINFRM").toString(),
                         QString::fromLatin1(changed ? "2024-06-30" : "2024-01-10"));
            }
        }
        QCOMPARE(column(k.linkGrid, 1), QStringList({"Aço Galvanizado", "Cobre"}));
    }

    // A change of the equipment writes every field, the dispenser's nozzles included, and
    // nothing of its links.
    void aChangeIsStoredWhole_data() { addFamilies(); }
    void aChangeIsStoredWhole() {
        QFETCH(const Kind*, kind);
        const Kind& k = *kind;
        seedLinked(k);
        openList(k.list);
        selectRow(k.grid, 2);
        click(QStringLiteral("cmdAlterar"));
        QVERIFY(!find<QWidget>(QStringLiteral("fraBateria"))->isVisible());
        QVERIFY(find<QLineEdit>(QStringLiteral("txtNIDENT"))->hasFocus());
        QCOMPARE(find<QLineEdit>(k.field)->text(), QStringLiteral("2"));
        type(QStringLiteral("txtNIDENT"), QStringLiteral("novo nome"));
        if (&k == &kDispenser)
            type(QStringLiteral("txtNBICOS"), QStringLiteral("6"));
        type(QStringLiteral("mskAMANTN"), QStringLiteral("05/05/2015"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        fillOwner(QStringLiteral("DONO DO GAS"));
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Desativado"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});

        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtNIDENT"))->text(), QStringLiteral("NOVO NOME"));
        if (&k == &kDispenser)
            QCOMPARE(find<QLineEdit>(QStringLiteral("txtNBICOS"))->text(), QStringLiteral("6"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("mskAMANTN"))->text(),
                 QStringLiteral("05/05/2015"));
        QCOMPARE(find<QComboBox>(QStringLiteral("cmbISITCA"))->currentText(),
                 QStringLiteral("Desativado"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtDRAZAOSOCIL"))->text(),
                 QStringLiteral("DONO DO GAS"));
        const QVariantMap other = stored(k.table, {{k.column, 1}});
        QCOMPARE(other.value("NIDENT").toString(), QStringLiteral("EQUIPAMENTO"));
        QCOMPARE(count(QStringLiteral("Select Count(*) From %1").arg(k.linkTable.data())), 4);
    }

    // The links' level needs equipment; deleting takes the equipment's links and owner, and a
    // link alone leaves the equipment, even without any link.
    void deletes_data() { addFamilies(); }
    void deletes() {
        QFETCH(const Kind*, kind);
        const Kind& k = *kind;
        openList(k.list);
        selectLevel(1);
        emit find<QTableWidget>(k.linkGrid)->cellClicked(0, 0);
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(messages(),
                 QStringList{&k == &kDispenser
                                 ? "critical: É necessário incluir uma unidade de abastecimento "
                                   "primeiramente"
                                 : "critical: É necessário incluir um compressor primeiramente"});
        m_dialogs->clear();

        seedLinked(k);
        seedOwner(&k == &kDispenser ? "TB_POSTOGASBOMBAPROPR" : "TB_POSTOGASCOMPRPROPR", k.column,
                  1);
        seedOwner(&k == &kDispenser ? "TB_POSTOGASBOMBAPROPR" : "TB_POSTOGASCOMPRPROPR", k.column,
                  2);
        openList(k.list);
        selectRow(k.linkGrid, 1);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        selectRow(k.linkGrid, 1);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(
            m_dialogs->texts().value(0),
            QStringLiteral("Deseja Excluir o Item Selecionado? (Será Excluída A Ligação Com Esta "
                           "Bateria.)"));
        QCOMPARE(dataRows(k.linkGrid), 0);
        QCOMPARE(column(k.grid, 0), QStringList({"1", "2"}));
        m_dialogs->clear();

        selectLevel(0);
        selectRow(k.grid, 2);
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(m_dialogs->texts().value(0),
                 &k == &kDispenser
                     ? QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídos As "
                                      "Ligações das Baterias para Esta Unidade de Abastecimento.)")
                     : QStringLiteral("Deseja Excluir o Item Selecionado? (Serão Excluídos As "
                                      "Ligações das Baterias para Este Compressor.)"));
        QCOMPARE(column(k.grid, 0), QStringList{"1"});
        QCOMPARE(count(QStringLiteral("Select Count(*) From %1").arg(k.linkTable.data())), 0);
        QCOMPARE(count(QStringLiteral("Select Count(*) From %1PROPR").arg(k.table.data())), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOGASBATRI"), 2);
    }

    // A station's gas equipment entered through the chain reaches the exchange file and the
    // memorial as it was typed.
    void theEquipmentReachesTheExportAndTheMemorial() {
        seedBattery(1);
        openList(kCompressor.list);
        click(QStringLiteral("cmdIncluir"));
        fill(kCompressor, QStringLiteral("4"));
        chooseLink(QStringLiteral("1"), QStringLiteral("Cobre"));
        click(QStringLiteral("cmdOk"));
        click(QStringLiteral("cmdFechar"));
        click(QStringLiteral("cmdContinuar"));
        QCOMPARE(screen()->objectName(), kDispenser.list);
        click(QStringLiteral("cmdIncluir"));
        fill(kDispenser, QStringLiteral("6"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        fillOwner(QStringLiteral("FORNECEDORA DE GAS"));
        chooseLink(QStringLiteral("1"), QStringLiteral("Aço Inoxidável"));
        click(QStringLiteral("cmdOk"));
        click(QStringLiteral("cmdFechar"));

        const QString file = exported();
        const QString sep(QChar(0xAC));
        const auto line = [&](const QStringList& fields) { return fields.join(sep); };
        QVERIFY2(file.contains(line({"100", "1", "10/01/2024", "4", "EQUIPAMENTO 4", "02/03/2012",
                                     "Null", "P", "A"})),
                 qPrintable(file));
        QVERIFY(file.contains(line({"100", "1", "10/01/2024", "4", "1", "15"})));
        QVERIFY(file.contains(line({"100", "1", "10/01/2024", "6", "EQUIPAMENTO 6", "02/03/2012",
                                    "4", "Null", "O", "A"})));
        QVERIFY(file.contains(line({"100", "1", "10/01/2024", "6", "1", "17"})));
        QVERIFY(file.contains(QStringLiteral("FORNECEDORA DE GAS")));

        const QString memorial = printed();
        for (const char* text :
             {"EQUIPAMENTO 4", "EQUIPAMENTO 6", "Cobre", "Aço Inoxidável", "FORNECEDORA DE GAS"})
            QVERIFY2(memorial.contains(QString::fromUtf8(text)), text);
    }
};

QTEST_MAIN(TestGasEquipment)
#include "test_gas_equipment.moc"
