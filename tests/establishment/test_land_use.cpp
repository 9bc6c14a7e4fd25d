// frmPostoUSOOCUPCSOLO: what lies around the establishment.
#include "establishment/EstablishmentScreens.h"
#include "store/Database.h"
#include "support/ScreenDriver.h"
#include "support/Seeds.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QSqlQuery>
#include <QTest>

using testsupport::onRegister;
using testsupport::seedRow;

class TestLandUse : public QObject, private testsupport::ScreenDriver {
    Q_OBJECT

    void open() {
        ui::showPlace(*m_host, {QStringLiteral("frmPostoUSOOCUPCSOLO")});
        QCOMPARE(screen()->objectName(), QStringLiteral("frmPostoUSOOCUPCSOLO"));
    }
    QCheckBox* box(int code) { return find<QCheckBox>(QStringLiteral("Check_%1").arg(code)); }
    QList<int> rows() {
        QList<int> codes;
        QSqlQuery q = db().run("SELECT NUSOOCUPCSOLO FROM TB_POSTOUSOOCUPCSOLO ORDER BY 1");
        while (q.next())
            codes << q.value(0).toInt();
        return codes;
    }

private slots:
    void initTestCase() { establishment::registerScreens(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void theListIsWrittenWithTheRegistersDate() {
        // A day below 13 must not swap with the month.
        m_host->session().ainfrm = QDate(2024, 3, 5);
        open();
        QVERIFY(box(1)->text().startsWith("EDIFÍCIO MULTIFAMILIAR COM ATÉ QUATRO ANDARES"));
        QCOMPARE(box(36)->text(),
                 QStringLiteral("CORPOS D` ÁGUA DESTINADOS AO ABASTECIMENTO PÚBLICO (NBR 13786)"));
        QVERIFY(!box(1)->isEnabled());
        QVERIFY(button("cmdIncluir")->isEnabled());
        click("cmdIncluir");
        QCOMPARE(QApplication::focusWidget(), box(1));
        box(5)->click();
        box(47)->click();
        m_dialogs->clear();
        click("cmdOk");
        QCOMPARE(m_dialogs->texts(), QStringList{QStringLiteral("Dados incluídos com Sucesso.")});
        QCOMPARE(rows(), (QList<int>{5, 47}));
        QCOMPARE(count("SELECT COUNT(*) FROM TB_POSTOUSOOCUPCSOLO WHERE AINFRM = '2024-03-05'"), 2);
        open();
        QVERIFY(box(5)->isChecked());
        QVERIFY(box(47)->isChecked());
        QVERIFY(!box(6)->isChecked());
        QVERIFY(button("cmdAlterar")->isEnabled());
        // Everything cleared on a change: saved as such, and the next showing offers Incluir.
        click("cmdAlterar");
        box(5)->click();
        box(47)->click();
        m_dialogs->clear();
        click("cmdOk");
        QCOMPARE(m_dialogs->texts(), QStringList{QStringLiteral("Dados alterados com Sucesso.")});
        QCOMPARE(rows(), QList<int>{});
        QVERIFY(button("cmdIncluir")->isEnabled());
    }

    void anEmptyInsertIsARemindingRefusal() {
        open();
        click("cmdIncluir");
        m_dialogs->clear();
        click("cmdOk");
        QCOMPARE(m_dialogs->texts(),
                 QStringList{QStringLiteral("É necessário selecionar pelo menos um item de Uso e "
                                            "Ocupação do Solo na Vizinhança.")});
        QCOMPARE(m_dialogs->last().icon, ui::Icon::Critical);
        QCOMPARE(rows(), QList<int>{});
        QVERIFY(button("cmdIncluir")->isEnabled());
    }

    void aFailedSaveKeepsTheOldList() {
        for (int code : {2, 3})
            seedRow(db(), "TB_POSTOUSOOCUPCSOLO", onRegister({{"NUSOOCUPCSOLO", code}}));
        db().run("CREATE TRIGGER fail BEFORE INSERT ON TB_POSTOUSOOCUPCSOLO "
                 "WHEN NEW.NUSOOCUPCSOLO = 9 BEGIN SELECT RAISE(ABORT, 'disco cheio'); END");
        open();
        click("cmdAlterar");
        box(4)->click();
        box(9)->click();
        m_dialogs->clear();
        click("cmdOk");
        QVERIFY(!m_dialogs->texts().contains(QStringLiteral("Dados alterados com Sucesso.")));
        QCOMPARE(rows(), (QList<int>{2, 3}));
        QVERIFY(box(9)->isChecked());
        QVERIFY(button("cmdOk")->isEnabled());
        click("cmdCancelar");
        QVERIFY(!box(9)->isChecked());
        QVERIFY(box(2)->isChecked());
    }

    void fitsTheSmallestScreen() {
        open();
        QVERIFY(screen()->minimumSizeHint().width() <= 800);
        QVERIFY(screen()->minimumSizeHint().height() <= 600);
        screen()->resize(800, 600);
        QCoreApplication::processEvents();
        testsupport::saveScreenshot(*screen(), QStringLiteral("frmPostoUSOOCUPCSOLO"));
    }
};

QTEST_MAIN(TestLandUse)
#include "test_land_use.moc"
