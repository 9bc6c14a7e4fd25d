// What the environmental screens store is what the exchange file carries and the memorial
// prints: a register filled through the screens, exported and printed.
#include "environment/EnvironmentScreens.h"
#include "exchange/Cp1252.h"
#include "exchange/Exporter.h"
#include "printing/Layout.h"
#include "printing/Memorial.h"
#include "printing/ReportHtml.h"
#include "support/ScreenDriver.h"

#include "PdfText.h"
#include "RegisterFixture.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QRadioButton>
#include <QTest>
#include <QTextDocument>

using namespace testsupport;

class TestEnvironmentOutput : public QObject, private ScreenDriver {
    Q_OBJECT

    void open(const QString& name) { ui::showPlace(*m_host, {name}); }

    // Water, an effluent, a waste, an emission, a noise and the accident prevention, each
    // typed into its screen.
    void fillThroughTheScreens() {
        open("frmPostoConsmAgua");
        click("cmdIncluir");
        choose("cmbIFONTEABAST", "Poços");
        type("txtDFONTEABAST", "poço artesiano");
        type("txtQCONSMSANTR", "10,5");
        type("txtQCONSMCOMRC", "2");
        click("cmdOk");

        open("frmPostoEflntLiqdo");
        click("cmdIncluir");
        choose("cmbTIPOEFLNT", "Drenagem de Tanque");
        type("txtQEFLNT", "3,25");
        choose("cmbSISTMTRATM", "Sem Tratamento");
        choose("cmbDISPSFINAL", "Rede Pública de Esgoto");
        click("cmdOk");

        open("frmPostoResdu");
        click("cmdIncluir");
        choose("cmbTIPORESDU", "Óleo Queimado");
        type("txtQRESDU", "40");
        choose("txtCUNIDD", "L/ano");
        choose("cmbARMZN", "Tambores");
        choose("cmbDISPSFINAL", "Rerrefino");
        click("cmdOk");

        open("frmPostoPrevnEmissAr");
        click("cmdIncluir");
        choose("cmbTIPOFONTE", "Outros");
        type("txtDFONTE", "forno de pão");
        type("txtDDISPSCONTR", "filtro de carvão");
        click("cmdOk");

        open("frmPostoRuido");
        click("cmdIncluir");
        choose("cmbTIPOFONTE", "Compressor para GNV");
        type("txtQFONTE", "2");
        type("mskHINICIFUNCM", "07:00");
        type("mskHTERMNFUNCM", "19:30");
        choose("cmbDMEDDACONTR", "Adequação de Lay-out e Base Anti-Vibratória");
        click("cmdOk");

        open("frmPostoPrevnAcidn");
        click("cmdIncluir");
        type("mskAAPRVC", "10/05/2020");
        type("txtNAUTOVISTR", "4521");
        type("mskAAUTOVISTR", "01/06/2025");
        find<QRadioButton>("optSEQUPEEMERG_0")->click();
        find<QWidget>("chkSEQUPEEMERGDISTR")->setFocus();
        QTest::keyClick(find<QWidget>("chkSEQUPEEMERGDISTR"), Qt::Key_Space);
        click("cmdOk");
        const int saved = int(messages().count("information: Incluído com Sucesso")) +
                          int(messages().count("information: Incluído com Sucesso."));
        QCOMPARE(saved, 6);
    }

private slots:
    void initTestCase() { environment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void theExportCarriesWhatWasTyped() {
        insertEstablishment(db(), {100, 1});
        fillThroughTheScreens();
        const QString dir = m_env->path("export");
        QVERIFY(QDir().mkpath(dir));
        const exchange::ExportResult result = exchange::Exporter(db()).run({100, 1}, dir);
        QFile joined(result.joinedPath);
        QVERIFY(joined.open(QIODevice::ReadOnly));
        const QString text = exchange::cp1252::decode(joined.readAll()).text;
        const QString sep = QStringLiteral("\u00AC");
        const auto section = [&](const QString& table) {
            const qsizetype at = text.indexOf("[" + table + "]");
            return at < 0 ? QString() : text.mid(at, text.indexOf("\n[", at + 1) - at);
        };
        QVERIFY2(section("TB_POSTOBALNCHIDRC").contains("5T"),
                 qPrintable(section("TB_POSTOBALNCHIDRC")));
        QVERIFY(section("TB_POSTOBALNCHIDRC").contains("POÇO ARTESIANO"));
        QVERIFY(section("TB_POSTOEFLNTLIQDO").contains(sep + "T" + sep));
        QVERIFY(section("TB_POSTORESDU").contains(sep + "2311" + sep));
        QVERIFY(section("TB_POSTORESDU").contains("D04"));
        QVERIFY(section("TB_POSTOPREVNEMISSAR").contains("FORNO DE PÃO"));
        QVERIFY2(section("TB_POSTORUIDO").contains(sep + "14"),
                 qPrintable(section("TB_POSTORUIDO")));
        QVERIFY(section("TB_POSTOPREVNACIDN").contains("4521"));
    }

    // Each report of these tables prints, and reads back what was typed, in words.
    void theMemorialPrintsWhatWasTyped() {
        insertEstablishment(db(), {100, 1});
        fillThroughTheScreens();
        const QString pdf = m_env->path("memorial.pdf");
        printing::Memorial(db(), {100, 1}, {QStringLiteral("CADASTRO"), {}, {}}).writePdf(pdf);
        const QString pages = pdfPages(pdf).join('\n');
        const QList<std::pair<const char*, QStringList>> reports = {
            {"rpt27_inforutilzagua", {"Poços", "POÇO ARTESIANO", "Total (m³/mês)", "10,5"}},
            {"rpt28_eflntliqds", {"Drenagem de Tanque", "3,25", "Sem Tratamento"}},
            {"rpt29_residuos", {"Óleo Queimado", "L/ano", "Tambores", "Rerrefino"}},
            {"rpt32_emissatmosféricas", {"Outros", "FORNO DE PÃO", "FILTRO DE CARVÃO"}},
            {"rpt35_ruidos",
             {"Compressor para GNV", "07:00", "19:30",
              "Adequação de Lay-out e Base Anti-Vibratória"}},
            {"rpt33_prevnacidn", {"10/05/2020", "4521", "01/06/2025"}},
        };
        for (const auto& [id, texts] : reports) {
            QVERIFY2(pages.contains(QString::fromUtf8(id)), id);
            QTextDocument report;
            report.setHtml(printing::reportHtml(db(), printing::layout(id), {100, 1}));
            const QString text = report.toPlainText();
            for (const QString& typed : texts)
                QVERIFY2(text.contains(typed), qPrintable(QString::fromUtf8(id) + ": " + typed));
        }
    }
};

QTEST_MAIN(TestEnvironmentOutput)
#include "test_environment_output.moc"
