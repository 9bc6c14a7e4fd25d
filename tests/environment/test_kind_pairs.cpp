// The pairs that keep one row per kind: liquid effluents, solid waste, air emissions, noise.
#include "environment/EnvironmentScreens.h"
#include "store/CodeLists.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace testsupport;

class TestKindPairs : public QObject, private ScreenDriver {
    Q_OBJECT

    void openList(const QString& name) {
        ui::showPlace(*m_host, {name});
        QCOMPARE(screen()->objectName(), name);
    }
    void shot(const QString& name) {
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        saveScreenshot(*screen(), name);
    }
    // The one stored row of the table on register 100/1, column to value.
    QVariantMap storedRow(const QString& table, const QString& where = QString()) {
        QSqlQuery q = db().run(QStringLiteral("Select * From ") + table +
                               QStringLiteral(" Where NMUNCP = 100 And NSEQNC = 1") + where);
        QVariantMap row;
        if (q.next()) {
            for (int i = 0; i < q.record().count(); ++i)
                row.insert(q.record().fieldName(i), q.value(i));
        }
        return row;
    }
    bool focused(const QString& name) { return find<QWidget>(name)->hasFocus(); }
    void fillEffluent(const QString& kind) {
        choose("cmbTIPOEFLNT", kind);
        type("txtQEFLNT", "12");
        choose("cmbSISTMTRATM", "Fossa Séptica");
        choose("cmbDISPSFINAL", "Sumidouro");
    }

private slots:
    void initTestCase() { environment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void anEffluentRoundTrips() {
        openList("frmPostoEflntLiqdo");
        QCOMPARE(headings("fgrPostoEflntLiqdo"),
                 QStringList({"Tipo", "Quantidade", "Sistema de Tratamento", "Disposição Final"}));
        QVERIFY(!button("cmdAlterar")->isEnabled());
        click("cmdIncluir");
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoEflntLiqdoM"));
        QVERIFY(focused("cmbTIPOEFLNT"));
        QVERIFY(!button("cmdOk")->isEnabled());
        fillEffluent("Efluentes de Serviço");
        QCOMPARE(find<QLineEdit>("txtQEFLNT")->text(), QStringLiteral("12,00"));
        shot("frmPostoEflntLiqdoM");
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});

        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoEflntLiqdo"));
        QCOMPARE(column("fgrPostoEflntLiqdo", 0), QStringList{"Efluentes de Serviço"});
        QCOMPARE(column("fgrPostoEflntLiqdo", 1), QStringList{"12,00"});
        QCOMPARE(column("fgrPostoEflntLiqdo", 2), QStringList{"Fossa Séptica"});
        QCOMPARE(column("fgrPostoEflntLiqdo", 3), QStringList{"Sumidouro"});
        QVariantMap row = storedRow("TB_POSTOEFLNTLIQDO");
        QCOMPARE(row.value("IEFLNTLIQDO").toString(), QStringLiteral("S"));
        QCOMPARE(row.value("QEFLNTLIQDO").toDouble(), 12.0);
        QCOMPARE(row.value("NTRATM").toInt(), 1);
        QCOMPARE(row.value("NDISPSFINAL").toInt(), 5);
        QCOMPARE(row.value("AINFRM").toString(), QStringLiteral("2024-01-10"));
        shot("frmPostoEflntLiqdo");

        // The kind is the row: locked on a change, which starts at the quantity.
        m_dialogs->clear();
        click("cmdAlterar");
        QVERIFY(!find<QComboBox>("cmbTIPOEFLNT")->isEnabled());
        QCOMPARE(find<QComboBox>("cmbTIPOEFLNT")->currentText(),
                 QStringLiteral("Efluentes de Serviço"));
        QVERIFY(focused("txtQEFLNT"));
        QVERIFY(button("cmdFechar")->isEnabled());
        type("txtQEFLNT", "7,5");
        choose("cmbSISTMTRATM", "Sem Tratamento");
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        row = storedRow("TB_POSTOEFLNTLIQDO");
        QCOMPARE(row.value("QEFLNTLIQDO").toDouble(), 7.5);
        QCOMPARE(row.value("NTRATM").toInt(), 6);
        QCOMPARE(column("fgrPostoEflntLiqdo", 1), QStringList{"7,50"});

        m_dialogs->clear();
        m_dialogs->answer(true);
        click("cmdExcluir");
        QCOMPARE(messages(), QStringList({"question: Deseja Excluir o Item Selecionado?",
                                          "information: Excluído com Sucesso"}));
        QCOMPARE(count("Select Count(*) From TB_POSTOEFLNTLIQDO"), 0);
        QCOMPARE(dataRows("fgrPostoEflntLiqdo"), 0);
    }

    // The refusals of Ok come in their order, each on its field; a second row of one kind is
    // refused right after the kind.
    void effluentChecksInTheirOrder() {
        seedRow(db(), "TB_POSTOEFLNTLIQDO",
                onRegister(
                    {{"IEFLNTLIQDO", "D"}, {"QEFLNTLIQDO", 3}, {"NTRATM", 1}, {"NDISPSFINAL", 1}}));
        openList("frmPostoEflntLiqdo");
        click("cmdIncluir");
        type("txtQEFLNT", "5");
        click("cmdOk");
        choose("cmbTIPOEFLNT", "Esgoto Doméstico");
        click("cmdOk");
        choose("cmbTIPOEFLNT", "Drenagem de Tanque");
        find<QLineEdit>("txtQEFLNT")->clear();
        click("cmdOk");
        type("txtQEFLNT", "5");
        click("cmdOk");
        choose("cmbSISTMTRATM", "Fossa Séptica");
        click("cmdOk");
        QCOMPARE(
            messages(),
            QStringList({
                "critical: Preenchimento Obrigatório do Tipo de Efluente Líquido",
                "critical: Tipo de Efluente Líquido já está cadastrado, preencha com outro tipo",
                "critical: Preenchimento Obrigatório da Quantidade de Efluente Líquido",
                "critical: Preenchimento Obrigatório do Sistema de Tratamento",
                "critical: Preenchimento Obrigatório da Disposição Final",
            }));
        QVERIFY(focused("cmbDISPSFINAL"));
        QCOMPARE(count("Select Count(*) From TB_POSTOEFLNTLIQDO"), 1);
        // A Null treatment still lists its row once, with an empty cell.
        db().run("Update TB_POSTOEFLNTLIQDO Set NTRATM = Null");
        openList("frmPostoEflntLiqdo");
        QCOMPARE(column("fgrPostoEflntLiqdo", 2), QStringList{""});
    }

    void aQuantityHasTwoDecimalsAndIsNeverZero() {
        openList("frmPostoEflntLiqdo");
        click("cmdIncluir");
        choose("cmbTIPOEFLNT", "Esgoto Doméstico");
        type("txtQEFLNT", "0");
        QCOMPARE(messages(),
                 QStringList{"critical: O valor da Quantidade deve ser Maior do que Zero"});
        QVERIFY(focused("txtQEFLNT"));
        QCOMPARE(find<QLineEdit>("txtQEFLNT")->text(), QStringLiteral("0,00"));
        m_dialogs->clear();
        type("txtQEFLNT", "0,01");
        QVERIFY(messages().isEmpty());
        auto* quantity = find<QLineEdit>("txtQEFLNT");
        quantity->clear();
        quantity->setFocus();
        QTest::keyClicks(quantity, "3,456");
        QCOMPARE(quantity->text(), QStringLiteral("3,45"));
        QCOMPARE(messages(), QStringList{"critical: Apenas 2 casas decimais serão consideradas"});
    }

    void wasteUnitsAndDestinationsAreStoredAsCodes() {
        openList("frmPostoResdu");
        click("cmdIncluir");
        QVERIFY(!items("cmbDISPSFINAL").contains("Outra"));
        QVERIFY(items("cmbARMZN").contains("Outro"));
        QCOMPARE(items("txtCUNIDD"), QStringList({"kg/mês", "kg/ano", "L/mês", "L/ano"}));
        QVERIFY(!find<QLineEdit>("txtDRESDU")->isEnabled());
        choose("cmbTIPORESDU", "Outros");
        QVERIFY(find<QLineEdit>("txtDRESDU")->isEnabled());
        type("txtQRESDU", "40");
        choose("txtCUNIDD", "kg/ano");
        choose("cmbARMZN", "Tambores");
        choose("cmbDISPSFINAL", "Rerrefino");
        click("cmdOk");
        QCOMPARE(messages(),
                 QStringList{"critical: Preenchimento Necessário da Descrição do Resíduo"});
        QVERIFY(focused("txtDRESDU"));
        type("txtDRESDU", "lâmpadas");
        shot("frmPostoResduM");
        m_dialogs->clear();
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        QVariantMap row = storedRow("TB_POSTORESDU");
        QCOMPARE(row.value("IRESDU").toString(), QStringLiteral("O"));
        QCOMPARE(row.value("DRESDU").toString(), QStringLiteral("LÂMPADAS"));
        QCOMPARE(row.value("CUNIDDMEDDA").toInt(), 2404);
        QCOMPARE(row.value("CDESTNRESDU").toString(), QStringLiteral("A01"));
        QCOMPARE(row.value("CDESTNRESDU1").toString(), QStringLiteral("D04"));
        QCOMPARE(column("fgrPostoResdu", 2), QStringList{"kg/ano"});
        shot("frmPostoResdu");

        // A kind without a description stores the empty text, whatever the field held.
        m_dialogs->clear();
        click("cmdIncluir");
        choose("cmbTIPORESDU", "Outros");
        type("txtDRESDU", "sobra");
        choose("cmbTIPORESDU", "Estopa");
        QVERIFY(!find<QLineEdit>("txtDRESDU")->isEnabled());
        type("txtQRESDU", "2,5");
        choose("txtCUNIDD", "L/mês");
        choose("cmbARMZN", "Caçambas");
        choose("cmbDISPSFINAL", "Reciclagem");
        click("cmdOk");
        row = storedRow("TB_POSTORESDU", " And IRESDU = 'S'");
        QVERIFY(!row.value("DRESDU").isNull());
        QCOMPARE(row.value("DRESDU").toString(), QString());
        QCOMPARE(row.value("CUNIDDMEDDA").toInt(), 2310);

        // A unit the list does not know reads "L/ano" in the grid.
        db().run("Update TB_POSTORESDU Set CUNIDDMEDDA = 2301 Where IRESDU = 'S'");
        openList("frmPostoResdu");
        QCOMPARE(column("fgrPostoResdu", 2), QStringList({"kg/ano", "L/ano"}));
    }

    // The units that a waste row stores are the unit dictionary's, with the same captions, so
    // that the memorial prints what the screen showed.
    void wasteUnitsAreInTheUnitDictionary() {
        for (const store::Code& unit : store::codeList("CUNIDDMEDDA.RESDU")) {
            QCOMPARE(db().scalar("Select CSIGLAUNIDDMEDDA From DICNRUNIDDMEDDA"
                                 " Where CUNIDDMEDDA = ?",
                                 {unit.code})
                         .toString(),
                     unit.label);
        }
    }

    void airEmissionsKeepOneRowPerSource() {
        const QStringList kinds = {"R", "B", "C", "T", "O"};
        for (const QString& kind : kinds)
            seedRow(db(), "TB_POSTOPREVNEMISSAR",
                    onRegister({{"IFONTE", kind},
                                {"DDISPSCONTR", "VÁLVULA"},
                                {"DFONTEOUTRO", kind == "O" ? "FORNO" : ""}}));
        openList("frmPostoPrevnEmissAr");
        QCOMPARE(column("fgrPostoPrevnEmissAr", 0),
                 QStringList({"Bico de Abastecimento", "Braço de Carregamento", "Outros", "Respiro",
                              "Tubo de Descarga"}));
        shot("frmPostoPrevnEmissAr");
        for (const char* kind : {"Respiro", "Outros"}) {
            click("cmdIncluir");
            choose("cmbTIPOFONTE", kind);
            type("txtDDISPSCONTR", "filtro");
            click("cmdOk");
            click("cmdCancelar");
        }
        QCOMPARE(messages(), QStringList(2, "critical: Fonte de emissão já está cadastrada, "
                                            "preencha com outra fonte"));
        QCOMPARE(count("Select Count(*) From TB_POSTOPREVNEMISSAR"), 5);

        // "Outros" asks for its description after the device; the one stored comes back.
        m_dialogs->clear();
        selectRow("fgrPostoPrevnEmissAr", 3);
        click("cmdAlterar");
        QCOMPARE(find<QLineEdit>("txtDFONTE")->text(), QStringLiteral("FORNO"));
        QVERIFY(find<QLineEdit>("txtDFONTE")->isEnabled());
        find<QLineEdit>("txtDDISPSCONTR")->clear();
        find<QLineEdit>("txtDFONTE")->clear();
        type("txtDFONTE", "");
        type("txtDDISPSCONTR", "");
        click("cmdOk");
        type("txtDDISPSCONTR", "lavador");
        click("cmdOk");
        QCOMPARE(messages(),
                 QStringList({"critical: Preenchimento Obrigatório do Dispositivo de Controle",
                              "critical: Preenchimento Necessário da Descrição da Fonte de "
                              "emissão"}));
        shot("frmPostoPrevnEmissArM");
    }

    // A row is deleted by its stored kind: two rows whose captions could be taken one for the
    // other are not.
    void aDeleteGoesByTheStoredKind() {
        seedRow(db(), "TB_POSTOPREVNEMISSAR",
                onRegister({{"IFONTE", "C"}, {"DDISPSCONTR", "A"}, {"DFONTEOUTRO", ""}}));
        seedRow(db(), "TB_POSTOPREVNEMISSAR",
                onRegister({{"IFONTE", "O"}, {"DDISPSCONTR", "B"}, {"DFONTEOUTRO", "X"}}));
        openList("frmPostoPrevnEmissAr");
        selectRow("fgrPostoPrevnEmissAr", 1);
        m_dialogs->answer(true);
        click("cmdExcluir");
        QCOMPARE(db().scalar("Select IFONTE From TB_POSTOPREVNEMISSAR").toString(),
                 QStringLiteral("O"));
    }

    void noiseMeasuresAreStoredByPosition() {
        openList("frmPostoRuido");
        click("cmdIncluir");
        QCOMPARE(items("cmbDMEDDACONTR").size(), 16);
        QCOMPARE(items("cmbTIPOFONTE"),
                 QStringList({"Aspirador", "Compressor para Serviço", "Compressor para GNV",
                              "Gerador", "Ventilador para secagem de veículos", "Outros"}));
        choose("cmbTIPOFONTE", "Gerador");
        type("txtQFONTE", "007");
        QCOMPARE(find<QLineEdit>("txtQFONTE")->text(), QStringLiteral("7"));
        type("mskHINICIFUNCM", "18:00");
        type("mskHTERMNFUNCM", "06:30"); // an end before the start is accepted
        find<QComboBox>("cmbDMEDDACONTR")->setCurrentIndex(9);
        find<QComboBox>("cmbDMEDDACONTR")->setFocus();
        leave(find<QComboBox>("cmbDMEDDACONTR"));
        shot("frmPostoRuidoM");
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Incluído com Sucesso"});
        QVariantMap row = storedRow("TB_POSTORUIDO");
        QCOMPARE(row.value("IFONTE").toString(), QStringLiteral("G"));
        QCOMPARE(row.value("QFONTE").toInt(), 7);
        QCOMPARE(row.value("HINICIFUNCM").toString(), QStringLiteral("18:00:00"));
        QCOMPARE(row.value("HTERMNFUNCM").toString(), QStringLiteral("06:30:00"));
        QCOMPARE(row.value("DMEDDACONTR").toString(), QStringLiteral("14"));
        QCOMPARE(column("fgrPostoRuido", 4), QStringList{"Adequação de Lay-out e Base Vibratória"});
        QCOMPARE(column("fgrPostoRuido", 2), QStringList{"18:00"});
        shot("frmPostoRuido");

        // An edit that leaves the measure alone keeps its code, never the grid's wording.
        m_dialogs->clear();
        click("cmdAlterar");
        QCOMPARE(find<QComboBox>("cmbDMEDDACONTR")->currentText(),
                 QStringLiteral("Adequação de Lay-out e Base Anti-Vibratória"));
        type("txtQFONTE", "2");
        click("cmdOk");
        QCOMPARE(messages(), QStringList{"information: Alterado com Sucesso"});
        row = storedRow("TB_POSTORUIDO");
        QCOMPARE(row.value("DMEDDACONTR").toString(), QStringLiteral("14"));
        QCOMPARE(row.value("QFONTE").toInt(), 2);

        // A single measure is stored, and shown, as its caption.
        click("cmdAlterar");
        choose("cmbDMEDDACONTR", "Isolamento Acústico");
        click("cmdOk");
        QCOMPARE(storedRow("TB_POSTORUIDO").value("DMEDDACONTR").toString(),
                 QStringLiteral("Isolamento Acústico"));
        QCOMPARE(column("fgrPostoRuido", 4), QStringList{"Isolamento Acústico"});
    }

    // A measure that no item names (written by another program) is shown and kept as it is.
    void anUnlistedMeasureIsKept() {
        seedRow(db(), "TB_POSTORUIDO",
                onRegister({{"IFONTE", "A"},
                            {"QFONTE", 1},
                            {"HINICIFUNCM", "08:00:00"},
                            {"HTERMNFUNCM", "18:00:00"},
                            {"DMEDDACONTR", "Enclausuramento"},
                            {"DFONTEOUTRO", ""}}));
        openList("frmPostoRuido");
        QCOMPARE(column("fgrPostoRuido", 4), QStringList{"Enclausuramento"});
        click("cmdAlterar");
        QCOMPARE(find<QComboBox>("cmbDMEDDACONTR")->currentText(),
                 QStringLiteral("Enclausuramento"));
        type("txtQFONTE", "3");
        click("cmdOk");
        QCOMPARE(storedRow("TB_POSTORUIDO").value("DMEDDACONTR").toString(),
                 QStringLiteral("Enclausuramento"));
    }

    void noiseFieldsRefuseZeroAndWrongHours() {
        openList("frmPostoRuido");
        click("cmdIncluir");
        choose("cmbTIPOFONTE", "Outros");
        type("txtQFONTE", "000");
        QVERIFY(find<QLineEdit>("txtQFONTE")->text().isEmpty());
        QVERIFY(focused("txtQFONTE"));
        type("txtQFONTE", "1");
        type("mskHINICIFUNCM", "24:00");
        QVERIFY(focused("mskHINICIFUNCM"));
        type("mskHINICIFUNCM", "07:60");
        type("mskHINICIFUNCM", "7");
        type("mskHINICIFUNCM", "07:00");
        type("mskHTERMNFUNCM", "23:59");
        click("cmdOk");
        choose("cmbDMEDDACONTR", "Nenhuma");
        click("cmdOk");
        QCOMPARE(messages(), QStringList({
                                 "critical: O valor da Quantidade deve ser Maior do que Zero",
                                 "critical: Preenchimento Incorreto do Horário de Funcionamento.",
                                 "critical: Preenchimento Incorreto do Horário de Funcionamento.",
                                 "critical: Preenchimento Incorreto do Horário de Funcionamento.",
                                 "critical: Preenchimento Obrigatório da Medida de Controle",
                                 "critical: Preenchimento Necessário da Descrição do Equipamento",
                             }));
        QCOMPARE(count("Select Count(*) From TB_POSTORUIDO"), 0);
    }

    void theListsWalkTheChain() {
        openList("frmPostoEflntLiqdo");
        click("cmdContinuar");
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoResdu"));
        click("cmdContinuar");
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoPrevnEmissAr"));
        click("cmdContinuar");
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoRuido"));
        click("cmdVoltar");
        click("cmdVoltar");
        click("cmdVoltar");
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoEflntLiqdo"));
    }
};

QTEST_MAIN(TestKindPairs)
#include "test_kind_pairs.moc"
