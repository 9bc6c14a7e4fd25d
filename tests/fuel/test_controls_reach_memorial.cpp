// A register filled through the protection, leak, stock-control, basin, movement and monitoring
// screens: what was typed is in the exchange file and in the printed memorial.
#include "PdfText.h"
#include "RegisterFixture.h"
#include "exchange/Cp1252.h"
#include "exchange/Exporter.h"
#include "fuel/FuelScreens.h"
#include "printing/Memorial.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QTest>

using namespace testsupport;

class TestControlsReachMemorial : public QObject, private ScreenDriver {
    Q_OBJECT

    void seedSystem(const QString& itanqu) {
        seedRow(db(), "TB_POSTOTANQU",
                onRegister({{"ITANQU", itanqu},
                            {"NTANQU", 1},
                            {"NIDENT", "TQ1"},
                            {"AINSTL", "2010-01-01"},
                            {"NMATRL", itanqu == "A" ? 10 : 4},
                            {"QCOMPRT", 1},
                            {"IPROPR", "D"},
                            {"ITESTEESTNQ", "ND"},
                            {"ISITCA", "A"}}));
        seedRow(db(), "TB_POSTOTANQUCOMPR",
                onRegister({{"ITANQU", itanqu},
                            {"NTANQU", 1},
                            {"NCOMPR", 1},
                            {"NBOCACARRG", 1},
                            {"QCAPCD", 10},
                            {"NCOMBS", 112}}));
        seedRow(db(), "TB_POSTOBOMBA",
                onRegister({{"ITANQU", itanqu},
                            {"NBOMBA", 120},
                            {"NIDENT", "B120"},
                            {"AINSTL", "2012-01-01"},
                            {"NVALVLRETNC", 1},
                            {"NFILTRO", 1},
                            {"IPROPR", "D"},
                            {"ITESTEESTNQ", "ND"}}));
    }

    void go(const QString& screenName, ui::Sequence::Role role = ui::Sequence::Role::None) {
        ui::showPlace(*m_host, {screenName, role});
    }

    void fill() {
        go(QStringLiteral("frmPostoContrEstq"), ui::Sequence::Role::Underground);
        click(QStringLiteral("cmdIncluir"));
        find<QCheckBox>(QStringLiteral("chkICONTRESTQUOUTRO"))->click();
        type(QStringLiteral("txtDCONTRESTQU"), QStringLiteral("sonda de nivel"));
        click(QStringLiteral("cmdOk"));

        go(QStringLiteral("frmPostoHistrVazmnSubtr"));
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("mskAVAZMN"), QStringLiteral("10/05/2020"));
        choose(QStringLiteral("cmbILOCAL"), QStringLiteral("Tanque"));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1"));
        choose(QStringLiteral("cmbNCOMPR"), QStringLiteral("1"));
        choose(QStringLiteral("cmbDOBSRV"), QStringLiteral("Impermeabilização"));
        choose(QStringLiteral("cmbDACAOSITCA"), QStringLiteral("Em Andamento"));
        click(QStringLiteral("cmdOk"));

        for (const QString& list : {QStringLiteral("frmPostoProtcCatdcSubtr"),
                                    QStringLiteral("frmPostoProtcCatdcAereo")}) {
            go(list);
            click(QStringLiteral("cmdIncluir"));
            choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1 - TQ1"));
            find<QRadioButton>(QStringLiteral("optSSISTMPROTC_0"))->click();
            choose(QStringLiteral("cmbIPROTC"), list.endsWith(QLatin1String("Aereo"))
                                                    ? QStringLiteral("Sem proteção")
                                                    : QStringLiteral("Anodo de Sacrifício"));
            choose(QStringLiteral("cmbIFREQNMANTN"), QStringLiteral("Quinzenal"));
            click(QStringLiteral("cmdOk"));
        }

        go(QStringLiteral("frmPostoMontrAmbnt"));
        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbTIPOMONTR"), QStringLiteral("Detector de Vazamento na Linha"));
        choose(QStringLiteral("cmbBOMBA"), QStringLiteral("120-B120"));
        click(QStringLiteral("cmdOk"));

        go(QStringLiteral("frmBaciaContn"));
        click(QStringLiteral("cmdIncluir"));
        type(QStringLiteral("txtNBACIA"), QStringLiteral("3"));
        type(QStringLiteral("txtQCONTN"), QStringLiteral("40"));
        choose(QStringLiteral("cmbIREVST"), QStringLiteral("Outros"));
        type(QStringLiteral("txtIREVST"), QStringLiteral("geomembrana"));
        click(QStringLiteral("cmdOk"));
        choose(QStringLiteral("cmbNTANQU"), QStringLiteral("1 - TQ1"));
        click(QStringLiteral("cmdOk"));
        click(QStringLiteral("cmdFechar"));

        go(QStringLiteral("frmPostoMovmn"));
        click(QStringLiteral("cmdIncluir"));
        choose(QStringLiteral("cmbNCOMBS"), QStringLiteral("Óleo Diesel S10"));
        type(QStringLiteral("txtQCOMBS"), QStringLiteral("1250,5"));
        choose(QStringLiteral("cmbCUNIDDMEDDA"), QStringLiteral("L/mês"));
        click(QStringLiteral("cmdOk"));
    }

private slots:
    void initTestCase() { fuel::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void whatWasTypedIsExportedAndPrinted() {
        insertEstablishment(db(), {100, 1});
        seedSystem(QStringLiteral("S"));
        seedSystem(QStringLiteral("A"));
        fill();
        for (const auto& shown : m_dialogs->shown())
            QVERIFY2(shown.icon == ui::Icon::Information, qPrintable(shown.text));

        const QString dir = m_env->path(QStringLiteral("out"));
        QDir().mkpath(dir);
        const exchange::ExportResult result = exchange::Exporter(db()).run({100, 1}, dir);
        QFile joined(result.joinedPath);
        QVERIFY(joined.open(QIODevice::ReadOnly));
        const QString exported = exchange::cp1252::decode(joined.readAll()).text;
        for (const char* typed :
             {"SONDA DE NIVEL", "Impermeabilização", "Em Andamento", "GEOMEMBRANA"})
            QVERIFY2(exported.contains(QString::fromUtf8(typed)), typed);

        const QString pdf = m_env->path(QStringLiteral("memorial.pdf"));
        printing::Memorial(db(), {100, 1}, {QStringLiteral("CADASTRO"), {}, {}}).writePdf(pdf);
        const QString printed = pdfPages(pdf).join(QLatin1Char('\n'));
        qDebug().noquote() << printed;
        // Words that a narrow column of the report breaks are looked for by their first line.
        for (const char* typed :
             {"SONDA DE NIVEL", "Em Andamento", "Anodo de", "Sem proteção", "Quinzenal",
              "Detector de Vazamento na Linha", "GEOMEMBRANA", "Total de Óleo Diesel", "1.250,50"})
            QVERIFY2(printed.contains(QString::fromUtf8(typed)), typed);
    }
};

QTEST_MAIN(TestControlsReachMemorial)
#include "test_controls_reach_memorial.moc"
