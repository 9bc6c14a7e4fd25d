// frmPosto: the station's characteristics and its commerce and services, through the screen.
#include "establishment/EstablishmentScreens.h"
#include "printing/Layout.h"
#include "printing/ReportHtml.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSqlQuery>
#include <QTest>

using testsupport::onRegister;
using testsupport::seedRow;

class TestCharacteristics : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    void open() {
        ui::showPlace(*m_host, {QStringLiteral("frmPosto")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPosto"));
    }
    // The row that the register form leaves: no zone, no class, zeros.
    void seedNewRow() {
        seedRow(db(), "TB_POSTO",
                onRegister({{"IESTBL", "R"}, {"QAREATERRN", 0}, {"QFUNCNADMNS", 0}}));
    }
    void seedCompletedRow() {
        seedRow(db(), "TB_POSTO",
                onRegister({{"IESTBL", "R"},
                            {"ICLASSABNT", 1},
                            {"QAREATERRN", 800},
                            {"QAREACONST", 120.5},
                            {"QAREAARLIVRE", 600},
                            {"QFUNCNADMNS", 2},
                            {"QFUNCNOPERC", 6},
                            {"HINICIFUNCM", "07:00:00"},
                            {"HTERMNFUNCM", "22:00:00"},
                            {"NHORASJORNDDIA", 15},
                            {"NDIASJORNDMES", 30},
                            {"NDIASJORNDANO", 360},
                            {"ILOCLZATIVD", "C"}}));
        for (int code : {1, 5})
            seedRow(db(), "TB_POSTOCOMRCSERVC", onRegister({{"NCOMRCSERVC", code}}));
    }
    QLineEdit* field(const QString& name) { return find<QLineEdit>(name); }
    QCheckBox* box(int code) { return find<QCheckBox>(QStringLiteral("Check1_%1").arg(code)); }
    QRadioButton* option(const QString& name, int index) {
        return find<QRadioButton>(QStringLiteral("%1_%2").arg(name).arg(index));
    }
    // Sets a field as if typed, without leaving it: only the validation of Ok sees it.
    void put(const QString& name, const QString& text) { field(name)->setText(text); }
    QString okMessage() {
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        return m_dialogs->shown().isEmpty() ? QString() : m_dialogs->last().text;
    }
    QList<int> commerceRows() {
        QList<int> codes;
        QSqlQuery q = db().run(QStringLiteral("SELECT NCOMRCSERVC FROM TB_POSTOCOMRCSERVC WHERE "
                                              "NMUNCP = 100 AND NSEQNC = 1 ORDER BY 1"));
        while (q.next())
            codes << q.value(0).toInt();
        return codes;
    }
    QVariant post(const QString& column) {
        return db().scalar(
            QStringLiteral("SELECT %1 FROM TB_POSTO WHERE NMUNCP = 100 AND NSEQNC = 1")
                .arg(column));
    }

private slots:
    void initTestCase() { establishment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void aNewRowIsCompletedAndChanged() {
        seedNewRow();
        open();
        QVERIFY(button("cmdIncluir")->isEnabled());
        QVERIFY(!button("cmdAlterar")->isEnabled());
        QVERIFY(!find<QGroupBox>("fraAreas")->isEnabled());
        QVERIFY(field("txtQAREATERRN")->text().isEmpty()); // a stored 0 shows empty
        click("cmdIncluir");
        QCOMPARE(QApplication::focusWidget(), option("optClasse", 0));
        option("optClasse", 2)->click();
        type("txtQAREATERRN", "1250,5");
        type("txtQAREACONST", "310,25");
        type("txtQAREAARLIVRE", "940");
        type("txtNHORASJORNDDIA", "16");
        type("txtNDIASJORNDMES", "30");
        type("txtNDOASJORNDANO", "360");
        type("txtQFUNCNADMNS", "3");
        type("txtQFUNCNOPERC", "12");
        QCOMPARE(field("txtTotal")->text(), QStringLiteral("15"));
        type("mskHINICIFUNCM", "0600");
        type("mskHTERMNFUNCM", "2230");
        option("optLocAtiv", 1)->click();
        box(2)->click();
        box(17)->click();
        QVERIFY(field("txtDCOMRCSERVC")->isEnabled());
        type("txtDCOMRCSERVC", "Oficina de motos");
        QCOMPARE(okMessage(), QStringLiteral("Dados Incluídos com Sucesso."));

        QCOMPARE(post("ICLASSABNT").toInt(), 2);
        QCOMPARE(post("QAREATERRN").toDouble(), 1250.5);
        QCOMPARE(post("QAREACONST").toDouble(), 310.25);
        QCOMPARE(post("HINICIFUNCM").toString(), QStringLiteral("06:00:00"));
        QCOMPARE(post("HTERMNFUNCM").toString(), QStringLiteral("22:30:00"));
        QCOMPARE(post("NDIASJORNDANO").toInt(), 360);
        QCOMPARE(post("ILOCLZATIVD").toString(), QStringLiteral("R"));
        QCOMPARE(commerceRows(), (QList<int>{2, 17}));
        QCOMPARE(db().scalar("SELECT DCOMRCSERVC FROM TB_POSTOCOMRCSERVC WHERE NCOMRCSERVC = 17")
                     .toString(),
                 QStringLiteral("Oficina de motos"));
        QCOMPARE(db().scalar("SELECT COUNT(*) FROM TB_POSTOCOMRCSERVC WHERE NCOMRCSERVC = 2 "
                             "AND DCOMRCSERVC IS NULL AND AINFRM = '2024-01-10'")
                     .toInt(),
                 1);
        QVERIFY(!button("cmdIncluir")->isEnabled());
        QVERIFY(button("cmdAlterar")->isEnabled());

        // The memorial reads what was stored.
        const QString report =
            printing::reportHtml(db(), printing::layout("rpt02_carct"), m_host->session().key());
        for (const char* text : {"Classe 2", "Zona Rural", "Lava Rápido", "Oficina de motos"})
            QVERIFY2(report.contains(QString::fromUtf8(text)), text);

        // Shown again as stored; unticking "Outros" empties its text and the row goes.
        open();
        QCOMPARE(field("txtQAREATERRN")->text(), QStringLiteral("1250,5"));
        QCOMPARE(field("mskHTERMNFUNCM")->text(), QStringLiteral("22:30"));
        QCOMPARE(field("txtTotal")->text(), QStringLiteral("15"));
        QVERIFY(option("optLocAtiv", 1)->isChecked());
        QVERIFY(option("optClasse", 2)->isChecked());
        QCOMPARE(field("txtDCOMRCSERVC")->text(), QStringLiteral("Oficina de motos"));
        click("cmdAlterar");
        QCOMPARE(QApplication::focusWidget(), field("txtQAREATERRN"));
        box(17)->click();
        QVERIFY(field("txtDCOMRCSERVC")->text().isEmpty());
        QVERIFY(!field("txtDCOMRCSERVC")->isEnabled());
        option("optLocAtiv", 3)->click();
        QCOMPARE(okMessage(), QStringLiteral("Dados Alterados com Sucesso."));
        QCOMPARE(commerceRows(), (QList<int>{2}));
        QCOMPARE(post("ILOCLZATIVD").toString(), QStringLiteral("C"));
    }

    void theValidationRefusesInItsOrder() {
        seedNewRow();
        open();
        click("cmdIncluir");
        const auto expect = [&](const QString& message, const QString& focus) {
            QCOMPARE(okMessage(), message);
            QCOMPARE(m_dialogs->last().icon, ui::Icon::Critical);
            QCOMPARE(QApplication::focusWidget()->objectName(), focus);
            QApplication::focusWidget()->clearFocus();
        };
        expect("Preenchimento Obrigatório da Área Total do Terreno.", "txtQAREATERRN");
        put("txtQAREATERRN", "100");
        expect("Preenchimento Obrigatório da Área Construída.", "txtQAREACONST");
        put("txtQAREACONST", "500"); // the built area may exceed the plot
        expect("Preenchimento Obrigatório da Área de Atividade ao Ar Livre.", "txtQAREAARLIVRE");
        put("txtQAREAARLIVRE", "100,01");
        expect("A Área Livre não deve ser maior que a Área do Terreno.", "txtQAREAARLIVRE");
        put("txtQAREAARLIVRE", "100"); // equal to the plot passes
        expect("Preenchimento Obrigatório do Número de Horas de Jornada de Trabalho por Dia.",
               "txtNHORASJORNDDIA");
        put("txtNHORASJORNDDIA", "25");
        expect("Número de Horas de Jornada de Trabalho por Dia não pode ser maior que 24.",
               "txtNHORASJORNDDIA");
        put("txtNHORASJORNDDIA", "24");
        expect("Preenchimento Obrigatório do Número de Dias de Jornada de Trabalho por Mês.",
               "txtNDIASJORNDMES");
        put("txtNDIASJORNDMES", "32");
        expect("Número de Dias de Jornada de Trabalho por Mês não pode ser maior que 31.",
               "txtNDIASJORNDMES");
        put("txtNDIASJORNDMES", "31");
        expect("Preenchimento Obrigatório do Número de Dias de Jornada de Trabalho por Ano.",
               "txtNDOASJORNDANO");
        put("txtNDOASJORNDANO", "366");
        expect("Número de Dias de Jornada de Trabalho por Ano não pode ser maior que 365.",
               "txtNDOASJORNDANO");
        put("txtNDOASJORNDANO", "365");
        expect("Preenchimento Obrigatório da Hora Início de Funcionamento.", "mskHINICIFUNCM");
        put("mskHINICIFUNCM", "0800");
        expect("Preenchimento Obrigatório da Hora Término de Funcionamento.", "mskHTERMNFUNCM");
        put("mskHTERMNFUNCM", "0200"); // a night shift ends before it starts
        expect("Preenchimento Obrigatório do Número de Funcionários Administrativos.",
               "txtQFUNCNADMNS");
        put("txtQFUNCNOPERC", "0"); // one of the two is enough, and the empty one stores 0
        box(17)->click();
        expect("Preenchimento Obrigatório do Comércio e Serviços Agregados.", "txtDCOMRCSERVC");
        put("txtDCOMRCSERVC", "X");
        QCOMPARE(okMessage(), QStringLiteral("Dados Incluídos com Sucesso."));
        QCOMPARE(post("QFUNCNADMNS").toInt(), 0);
        QCOMPARE(post("QFUNCNOPERC").toInt(), 0);
        QCOMPARE(post("ICLASSABNT").toInt(), 0);                       // no class chosen
        QCOMPARE(post("ILOCLZATIVD").toString(), QStringLiteral("U")); // the zone drawn first
    }

    void fieldsRefuseOnLeaving() {
        seedNewRow();
        open();
        click("cmdIncluir");
        // A refused field holds the focus: it gets a good value before the next one is typed.
        const auto leaving = [&](const QString& name, const QString& text,
                                 const QString& good = QString()) -> QString {
            m_dialogs->clear();
            type(name, text);
            const QString shown = m_dialogs->shown().isEmpty() ? QString() : m_dialogs->last().text;
            if (!shown.isEmpty() && !good.isNull()) {
                if (QApplication::focusWidget() != field(name))
                    return QStringLiteral("the focus left ") + name;
                type(name, good);
            }
            return shown;
        };
        const QString wrongTime = "Preenchimento Incorreto do Horário de Funcionamento.";
        QCOMPARE(leaving("mskHINICIFUNCM", "2400", ""), wrongTime);
        QCOMPARE(leaving("mskHINICIFUNCM", "1260", ""), wrongTime);
        QCOMPARE(leaving("mskHINICIFUNCM", "123", ""), wrongTime);
        QCOMPARE(leaving("mskHINICIFUNCM", "2359"), QString());
        QCOMPARE(leaving("mskHTERMNFUNCM", ""), QString());
        QCOMPARE(leaving("txtNHORASJORNDDIA", "25", "8"),
                 QStringLiteral("Preenchimento Incorreto do Número de Horas de Jornada de "
                                "Trabalho."));
        QCOMPARE(leaving("txtNDIASJORNDMES", "0", ""),
                 QStringLiteral("Preenchimento Obrigatório do Número de Dias de Jornada de "
                                "Trabalho por Mês."));
        QCOMPARE(leaving("txtNDIASJORNDMES", ""), QString()); // left to the validation
        QCOMPARE(leaving("txtNDOASJORNDANO", "366", "300"),
                 QStringLiteral("Preenchimento Incorreto do Número de Dias de Jornada de "
                                "Trabalho por Ano."));
        // The total follows the administration's number only.
        QCOMPARE(leaving("txtQFUNCNOPERC", "4"), QString());
        QVERIFY(field("txtTotal")->text().isEmpty());
        QCOMPARE(leaving("txtQFUNCNADMNS", "0"), QString());
        QCOMPARE(field("txtTotal")->text(), QStringLiteral("4"));
        QCOMPARE(leaving("txtQFUNCNOPERC", "0"),
                 QStringLiteral("Total de Funcionários Não Pode ser Zero"));
        QVERIFY(!field("txtTotal")->parentWidget()->isEnabled());
        // The plot's area holds the focus until it is filled.
        QCOMPARE(leaving("txtQAREATERRN", "0"),
                 QStringLiteral("Preenchimento Obrigatório da Área Total do Terreno"));
        QCOMPARE(QApplication::focusWidget(), field("txtQAREATERRN"));
        QCOMPARE(leaving("txtQAREATERRN", "10"), QString());
        // Excluir does nothing.
        m_dialogs->clear();
        click("Command6");
        QVERIFY(m_dialogs->shown().isEmpty());
    }

    void wellsImposeClassThree() {
        seedCompletedRow();
        open();
        QVERIFY(option("optClasse", 1)->isChecked()); // no MUNCPPOCO row: the stored class
        db().run("INSERT INTO MUNCPPOCO (NMUNCP, NPOCO) VALUES (100, 0)");
        open();
        click("cmdAlterar");
        QVERIFY(find<QGroupBox>("fraClasse")->isEnabled()); // no wells: the class is free
        click("cmdCancelar");
        db().run("UPDATE MUNCPPOCO SET NPOCO = 3 WHERE NMUNCP = 100");
        open();
        QVERIFY(option("optClasse", 3)->isChecked());
        click("cmdAlterar");
        QVERIFY(!find<QGroupBox>("fraClasse")->isEnabled());
        QVERIFY(option("optClasse", 3)->isChecked());
        QCOMPARE(okMessage(), QStringLiteral("Dados Alterados com Sucesso."));
        QCOMPARE(post("ICLASSABNT").toInt(), 3);
    }

    void aFailedSaveKeepsTheRowAndItsList() {
        seedCompletedRow();
        // The third insert of the list fails.
        db().run("CREATE TRIGGER fail BEFORE INSERT ON TB_POSTOCOMRCSERVC "
                 "WHEN NEW.NCOMRCSERVC = 9 BEGIN SELECT RAISE(ABORT, 'disco cheio'); END");
        open();
        QCOMPARE(field("txtQAREACONST")->text(), QStringLiteral("120,5"));
        click("cmdAlterar");
        type("txtQAREACONST", "200");
        box(1)->click();
        box(8)->click();
        box(9)->click();
        box(12)->click();
        okMessage();
        QVERIFY(!m_dialogs->shown().isEmpty());
        QVERIFY(m_dialogs->last().text != QStringLiteral("Dados Alterados com Sucesso."));
        QCOMPARE(post("QAREACONST").toDouble(), 120.5);
        QCOMPARE(commerceRows(), (QList<int>{1, 5}));
        // What was typed is still there, to save again.
        QVERIFY(button("cmdOk")->isEnabled());
        QCOMPARE(field("txtQAREACONST")->text(), QStringLiteral("200"));
        QVERIFY(box(12)->isChecked());
        db().run("DROP TRIGGER fail");
        QCOMPARE(okMessage(), QStringLiteral("Dados Alterados com Sucesso."));
        QCOMPARE(commerceRows(), (QList<int>{5, 8, 9, 12}));
        QCOMPARE(post("QAREACONST").toDouble(), 200.0);
    }

    void fitsTheSmallestScreen() {
        seedCompletedRow();
        open();
        QVERIFY(screen()->minimumSizeHint().width() <= 800);
        QVERIFY(screen()->minimumSizeHint().height() <= 600);
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), QStringLiteral("frmPosto"));
    }
};

QTEST_MAIN(TestCharacteristics)
#include "test_characteristics.moc"
