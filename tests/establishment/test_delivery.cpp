// frmPostoEntrg: the delivery declaration at the end of the questionnaire.
#include "establishment/EstablishmentScreens.h"
#include "printing/Layout.h"
#include "printing/ReportHtml.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

using testsupport::onRegister;
using testsupport::seedRow;

class TestDelivery : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    void open() {
        ui::showPlace(*m_host, {QStringLiteral("frmPostoEntrg")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoEntrg"));
    }
    QLineEdit* field(const QString& name) { return find<QLineEdit>(name); }
    QRadioButton* anexo(int index) {
        return find<QRadioButton>(QStringLiteral("optANEXO_%1").arg(index));
    }
    QString okMessage() {
        m_dialogs->clear();
        click(QStringLiteral("cmdOk"));
        return m_dialogs->shown().isEmpty() ? QString() : m_dialogs->last().text;
    }
    QVariant stored(const char* column) {
        return db().scalar(
            QStringLiteral("SELECT %1 FROM TB_POSTOENTRG").arg(QLatin1String(column)));
    }

private slots:
    void initTestCase() { establishment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void theDeclarationIsRefusedInOrderAndSaved() {
        open();
        QVERIFY(button("cmdIncluir")->isEnabled());
        QVERIFY(!button("cmdExcluir")->isEnabled());
        QVERIFY(!field("txtDNOME")->isEnabled());
        click("cmdIncluir");
        QCOMPARE(QApplication::focusWidget(), field("txtDNOME"));
        QVERIFY(!field("txtNQUANT")->isEnabled());
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento obrigatório do campo Nome"));
        type("txtDNOME", "João Pereira");
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento obrigatório do Cargo do Representante "
                                             "do Empreendimento"));
        type("txtDCARGO", "Sócio");
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento obrigatório do campo RG"));
        type("txtNRG", "9876543210");
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento obrigatório da existência ou não de "
                                             "documentos anexos"));
        QCOMPARE(QApplication::focusWidget(), anexo(1));
        anexo(0)->click();
        QVERIFY(field("txtNQUANT")->isEnabled());
        QCOMPARE(QApplication::focusWidget(), field("txtNQUANT"));
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento obrigatório da quantidade de anexos"));
        type("txtNQUANT", "0");
        QCOMPARE(okMessage(), QStringLiteral("Preenchimento obrigatório da quantidade de anexos"));
        type("txtNQUANT", "3");
        QCOMPARE(okMessage(), QStringLiteral("Incluído com Sucesso."));
        QCOMPARE(QApplication::focusWidget(), button("cmdContinuar"));
        QCOMPARE(stored("IANEXO").toInt(), -1);
        QCOMPARE(stored("NQUANT").toInt(), 3);
        QCOMPARE(stored("NRG").toLongLong(), 9876543210LL);
        QCOMPARE(stored("DNOME").toString(), QStringLiteral("JOÃO PEREIRA"));
        const QString report =
            printing::reportHtml(db(), printing::layout("rpt34_entrega"), m_host->session().key());
        QVERIFY(report.contains("JOÃO PEREIRA"));
        QVERIFY(report.contains("Sim"));

        // "Não" empties the quantity, which is stored as 0.
        click("cmdAlterar");
        anexo(1)->click();
        QVERIFY(field("txtNQUANT")->text().isEmpty());
        QVERIFY(!field("txtNQUANT")->isEnabled());
        QCOMPARE(okMessage(), QStringLiteral("Alterado com Sucesso."));
        QCOMPARE(stored("IANEXO").toInt(), 0);
        QCOMPARE(stored("NQUANT").toInt(), 0);
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTOENTRG"), 1);
    }

    void aLongIdentityIsShownWholeAndDeletedOnYes() {
        seedRow(db(), "TB_POSTOENTRG",
                onRegister({{"DNOME", "ANA"},
                            {"DCARGO", "GERENTE"},
                            {"NRG", 123456789012345LL},
                            {"IANEXO", 0},
                            {"NQUANT", 0}}));
        open();
        QCOMPARE(field("txtNRG")->text(), QStringLiteral("123456789012345"));
        QVERIFY(anexo(1)->isChecked());
        click("cmdAlterar");
        QCOMPARE(okMessage(), QStringLiteral("Alterado com Sucesso."));
        QCOMPARE(stored("NRG").toLongLong(), 123456789012345LL);

        m_dialogs->clear();
        m_dialogs->answer(false);
        click("cmdExcluir");
        QCOMPARE(m_dialogs->last().text, QStringLiteral("Deseja Excluir os Ítens?."));
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTOENTRG"), 1);
        m_dialogs->answer(true);
        click("cmdExcluir");
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTOENTRG"), 0);
        QVERIFY(field("txtDNOME")->text().isEmpty());
        QVERIFY(!anexo(0)->isChecked() && !anexo(1)->isChecked());
        QVERIFY(button("cmdIncluir")->isEnabled());
        // Continuar ends the questionnaire, with or without a declaration.
        click("cmdContinuar");
        QVERIFY(m_host->left());
    }

    void fitsTheSmallestScreen() {
        open();
        QVERIFY(screen()->minimumSizeHint().width() <= 800);
        QVERIFY(screen()->minimumSizeHint().height() <= 600);
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), QStringLiteral("frmPostoEntrg"));
    }
};

QTEST_MAIN(TestDelivery)
#include "test_delivery.moc"
