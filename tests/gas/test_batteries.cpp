// The storage batteries of vehicle gas: the list, its maintenance screen and the delete that
// takes every link to a battery with it.
#include "GasDriver.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

using namespace testsupport;

class TestBatteries : public QObject, private GasDriver {
    Q_OBJECT

    void fillBattery(const QString& number) {
        type(QStringLiteral("txtNBATRI"), number);
        type(QStringLiteral("mskAINSTL"), QStringLiteral("04/05/2010"));
        type(QStringLiteral("txtQCILND"), QStringLiteral("12"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Distribuidora"));
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Em Uso"));
    }

private slots:
    void initTestCase() { gas::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    // Inserted, listed with its captions, changed to a third party's and back: what is stored
    // is what was typed, and the owner row lives exactly while "Outros" owns the battery.
    void aBatteryRoundTrips() {
        openList(QStringLiteral("frmPostoGasBatri"));
        QCOMPARE(headings(QStringLiteral("fgrPostoGasBatri")),
                 QStringList({"Nº Bateria", "Data da Instalação", "Nº de Cilindros",
                              "Data da Última Manutenção", "Proprietário", "Situação"}));
        QVERIFY(!button(QStringLiteral("cmdAlterar"))->isEnabled());
        click(QStringLiteral("cmdIncluir"));
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoGasBatriM"));
        QVERIFY(find<QLineEdit>(QStringLiteral("txtNBATRI"))->hasFocus());
        QVERIFY(!find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        fillBattery(QStringLiteral("7"));
        shot(QStringLiteral("frmPostoGasBatriM-new"));
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        m_dialogs->clear();

        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoGasBatri"));
        QCOMPARE(column(QStringLiteral("fgrPostoGasBatri"), 0), QStringList{"7"});
        QCOMPARE(column(QStringLiteral("fgrPostoGasBatri"), 4), QStringList{"Distribuidora"});
        QCOMPARE(column(QStringLiteral("fgrPostoGasBatri"), 5), QStringList{"Em Uso"});
        QVariantMap row = stored("TB_POSTOGASBATRI", {{"NBATRI", 7}});
        QCOMPARE(row.value("AINSTL").toString(), QStringLiteral("2010-05-04"));
        QCOMPARE(row.value("QCILND").toInt(), 12);
        QVERIFY(row.value("AMANTNULTMA").isNull());
        QCOMPARE(row.value("IPROPR").toString(), QStringLiteral("D"));
        QCOMPARE(row.value("ISITCA").toString(), QStringLiteral("A"));
        QCOMPARE(row.value("AINFRM").toString(), QStringLiteral("2024-01-10"));

        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("mskAINSTL"))->text(),
                 QStringLiteral("04/05/2010"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtQCILND"))->text(), QStringLiteral("12"));
        QVERIFY(!find<QWidget>(QStringLiteral("picNBATRI"))->isEnabled());
        QVERIFY(find<QLineEdit>(QStringLiteral("mskAINSTL"))->hasFocus());
        QVERIFY(button(QStringLiteral("cmdFechar"))->isEnabled());
        QVERIFY(!button(QStringLiteral("cmdOk"))->isEnabled());
        type(QStringLiteral("txtQCILND"), QStringLiteral("9"));
        type(QStringLiteral("mskAMANTN"), QStringLiteral("01/02/2020"));
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Desativado"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        QVERIFY(find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        fillOwner(QStringLiteral("GAS DONO LTDA"));
        shot(QStringLiteral("frmPostoGasBatriM-owner"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        m_dialogs->clear();
        row = stored("TB_POSTOGASBATRI", {{"NBATRI", 7}});
        QCOMPARE(row.value("QCILND").toInt(), 9);
        QCOMPARE(row.value("AMANTNULTMA").toString(), QStringLiteral("2020-02-01"));
        QCOMPARE(row.value("ISITCA").toString(), QStringLiteral("D"));
        QCOMPARE(row.value("IPROPR").toString(), QStringLiteral("O"));
        const QVariantMap owner = stored("TB_POSTOGASBATRIPROPR", {{"NBATRI", 7}});
        QCOMPARE(owner.value("DRAZAOSOCIL").toString(), QStringLiteral("GAS DONO LTDA"));
        QCOMPARE(owner.value("CCEP").toInt(), 1310100);
        QCOMPARE(column(QStringLiteral("fgrPostoGasBatri"), 4), QStringList{"Outros"});
        QCOMPARE(column(QStringLiteral("fgrPostoGasBatri"), 5), QStringList{"Desativado"});

        // Opened again, the owner comes back from its row; a distributor's battery has none.
        click(QStringLiteral("cmdAlterar"));
        QCOMPARE(find<QLineEdit>(QStringLiteral("txtDRAZAOSOCIL"))->text(),
                 QStringLiteral("GAS DONO LTDA"));
        QVERIFY(find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Distribuidora"));
        QVERIFY(!find<QWidget>(QStringLiteral("fraProp"))->isVisible());
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        QVERIFY(stored("TB_POSTOGASBATRIPROPR", {{"NBATRI", 7}}).isEmpty());
    }

    // The refusals of Ok, each in its turn, with the focus on its field.
    void okRefusesInItsOrder() {
        seedBattery(3);
        openList(QStringLiteral("frmPostoGasBatri"));
        click(QStringLiteral("cmdIncluir"));
        // The message of Ok, and whether its field took the focus back.
        const auto refusal = [&](const QString& field) -> QString {
            m_dialogs->clear();
            click(QStringLiteral("cmdOk"));
            const bool focused = find<QWidget>(field)->hasFocus();
            return messages().value(0) + (focused ? QString() : QStringLiteral(" (no focus)"));
        };
        type(QStringLiteral("mskAINSTL"), QStringLiteral("04/05/2010"));
        QCOMPARE(refusal("txtNBATRI"),
                 QStringLiteral("critical: Preenchimento Obrigatório do Número da Bateria"));
        type(QStringLiteral("txtNBATRI"), QStringLiteral("3"));
        QCOMPARE(refusal("txtNBATRI"),
                 QStringLiteral(
                     "critical: Número de Bateria já está cadastrado, preencha com outro valor"));
        // A number of 0 is a number like any other.
        type(QStringLiteral("txtNBATRI"), QStringLiteral("0"));
        QCOMPARE(refusal("txtQCILND"),
                 QStringLiteral("critical: Preenchimento Obrigatório da Quantidade de Cilindros"));
        type(QStringLiteral("txtQCILND"), QStringLiteral("4"));
        // A date begun and never finished, as no leaving of the field would let through.
        find<QLineEdit>(QStringLiteral("mskAMANTN"))->setText(QStringLiteral("12/03/2"));
        QCOMPARE(refusal("mskAMANTN"),
                 QStringLiteral("critical: Preenchimento Incompleto da Data da Última Manutenção"));
        type(QStringLiteral("mskAMANTN"), QStringLiteral("12/03/2012"));
        QCOMPARE(refusal("cmbIPROPR"),
                 QStringLiteral("critical: Preenchimento Obrigatório do Tipo do Proprietário"));
        choose(QStringLiteral("cmbIPROPR"), QStringLiteral("Outros"));
        QCOMPARE(refusal("cmbISITCA"),
                 QStringLiteral("critical: Preenchimento Obrigatório da Situação do Tanque"));
        choose(QStringLiteral("cmbISITCA"), QStringLiteral("Em Uso"));
        QCOMPARE(refusal("txtDRAZAOSOCIL"),
                 QStringLiteral("critical: Preenchimento Obrigatório da Razão Social"));
        fillOwner(QStringLiteral("OUTRO DONO"));
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        QCOMPARE(column(QStringLiteral("fgrPostoGasBatri"), 0), QStringList({"0", "3"}));
        QCOMPARE(stored("TB_POSTOGASBATRIPROPR", {{"NBATRI", 0}}).value("DRAZAOSOCIL").toString(),
                 QStringLiteral("OUTRO DONO"));
    }

    void theDatesAreCheckedOnLeaving() {
        openList(QStringLiteral("frmPostoGasBatri"));
        click(QStringLiteral("cmdIncluir"));
        const auto leaving = [&](const QString& field, const QString& text) {
            m_dialogs->clear();
            type(field, text);
            return messages().value(0);
        };
        QCOMPARE(leaving("mskAINSTL", "31/13/2010"),
                 QStringLiteral("critical: Preenchimento Incorreto da Data da Instalação"));
        QVERIFY(find<QLineEdit>(QStringLiteral("mskAINSTL"))->hasFocus());
        const QString tomorrow = QDate::currentDate().addDays(1).toString("dd/MM/yyyy");
        QCOMPARE(
            leaving("mskAINSTL", tomorrow),
            QStringLiteral("critical: Data de Instalação não deve ser maior que a Data Atual."));
        QCOMPARE(leaving("mskAINSTL", "10/10/2015"), QString());
        QCOMPARE(leaving("mskAMANTN", "09/10/2015"),
                 QStringLiteral("critical: Data da Última Manutenção Deve Ser Maior ou Igual a "
                                "Data de Instalação."));
        QCOMPARE(leaving("mskAMANTN", tomorrow),
                 QStringLiteral(
                     "critical: Data da Última Manutenção não deve ser maior que a Data Atual."));
        QCOMPARE(leaving("mskAMANTN", "10/10/2015"), QString());
        // Once entered, the maintenance date is not left empty.
        QCOMPARE(
            leaving("mskAMANTN", ""),
            QStringLiteral("critical: Preenchimento Obrigatório da Data da Última Manutenção."));
        QCOMPARE(leaving("mskAMANTN", "10/10/2015"), QString());
        // The battery's own wording of the order of the two dates.
        QCOMPARE(leaving("mskAINSTL", "11/10/2015"),
                 QStringLiteral("critical: Data da Última Instalação Deve Ser Menor ou Igual a "
                                "Data da Última Manutenção."));
        QCOMPARE(leaving("mskAINSTL", ""),
                 QStringLiteral("critical: Preenchimento Obrigatório da Data da Instalação."));
    }

    // The question names the links; battery 1 goes with its links from compressors and
    // dispensers and its owner, and battery 2 keeps everything.
    void deletingABatteryTakesItsLinks() {
        seedBattery(1, QStringLiteral("O"));
        seedBattery(2, QStringLiteral("O"));
        seedOwner("TB_POSTOGASBATRIPROPR", "NBATRI", 1);
        seedOwner("TB_POSTOGASBATRIPROPR", "NBATRI", 2);
        seedEquipment("TB_POSTOGASBOMBA", "NBOMBA", 1);
        seedEquipment("TB_POSTOGASCOMPR", "NCOMPR", 1);
        for (int nbatri : {1, 2}) {
            seedLink("TB_POSTOGASBOMBABATRI", "NBOMBA", 1, nbatri);
            seedLink("TB_POSTOGASCOMPRBATRI", "NCOMPR", 1, nbatri);
        }
        openList(QStringLiteral("frmPostoGasBatri"));
        shot(QStringLiteral("frmPostoGasBatri"));
        m_dialogs->answer(true);
        click(QStringLiteral("cmdExcluir"));
        QCOMPARE(messages(),
                 QStringList({"question: Deseja Excluir o Item Selecionado? (Serão Excluídas As "
                              "Ligações das Bombas e Compressores para Esta Bateria de "
                              "Armazenagem.)",
                              "information: Excluído com Sucesso"}));
        QCOMPARE(column(QStringLiteral("fgrPostoGasBatri"), 0), QStringList{"2"});
        for (const char* table :
             {"TB_POSTOGASBATRIPROPR", "TB_POSTOGASBOMBABATRI", "TB_POSTOGASCOMPRBATRI"}) {
            QCOMPARE(count(QStringLiteral("Select Count(*) From %1 Where NBATRI = 1").arg(table)),
                     0);
            QCOMPARE(count(QStringLiteral("Select Count(*) From %1 Where NBATRI = 2").arg(table)),
                     1);
        }
        QCOMPARE(count("Select Count(*) From TB_POSTOGASBOMBA"), 1);
        QCOMPARE(count("Select Count(*) From TB_POSTOGASCOMPR"), 1);
    }

    // What the screens stored is what the exchange file and the memorial read.
    void aBatteryReachesTheExportAndTheMemorial() {
        openList(QStringLiteral("frmPostoGasBatri"));
        click(QStringLiteral("cmdIncluir"));
        fillBattery(QStringLiteral("5"));
        type(QStringLiteral("mskAMANTN"), QStringLiteral("20/06/2019"));
        click(QStringLiteral("cmdOk"));
        const QString file = exported();
        const QString sep(QChar(0xAC));
        QVERIFY2(file.contains(QStringList({"100", "1", "10/01/2024", "5", "04/05/2010", "12",
                                            "20/06/2019", "D", "A"})
                                   .join(sep)),
                 qPrintable(file));
        const QString memorial = printed();
        QVERIFY2(memorial.contains(QStringLiteral("20/06/2019")), qPrintable(memorial));
        QVERIFY(memorial.contains(QStringLiteral("Distribuidora")));
    }
};

QTEST_MAIN(TestBatteries)
#include "test_batteries.moc"
