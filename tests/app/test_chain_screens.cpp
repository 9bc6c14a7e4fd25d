#include "app/Screens.h"
#include "support/FakeHost.h"
#include "support/TestEnvironment.h"
#include "ui/ScreenHost.h"

#include <QTest>

namespace {

// A screen of the chain that only says where it is.
QWidget* placeholder(ui::ScreenHost&, const ui::Sequence::Place& place) {
    auto* w = new QWidget;
    w->setObjectName(place.screen);
    w->setProperty("role", int(place.role));
    return w;
}

} // namespace

class TestChainScreens : public QObject {
    Q_OBJECT

private slots:
    void screensStillMissing() {
        app::registerScreens();
        QStringList missing;
        for (const QString& name : ui::Sequence::screens()) {
            if (!ui::ScreenRegistry::instance().contains(name))
                missing << name;
        }
        // Every screen added to the program leaves this list.
        const QStringList expected = {
            "frmPostoRespnContt",      "frmPostoDistrConsl",      "frmPosto",
            "frmPostoUSOOCUPCSOLO",    "frmPostoContrEstq",       "frmPostoHistrVazmnSubtr",
            "frmPostoProtcCatdcSubtr", "frmPostoMontrAmbnt",      "frmPostoHistrVazmnAereo",
            "frmPostoProtcCatdcAereo", "frmPostoMontrAmbntAereo", "frmBaciaContn",
            "frmPostoMovmn",           "frmPostoAreaServc",       "frmPostoConsmAgua",
            "frmPostoEflntLiqdo",      "frmPostoResdu",           "frmPostoPrevnEmissAr",
            "frmPostoRuido",           "frmPostoPrevnAcidn",      "frmPostoEntrg",
        };
        QCOMPARE(missing, expected);
    }

    void hostWalksTheChain_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("fromRole");
        QTest::addColumn<int>("objetivo");
        QTest::addColumn<bool>("forward");
        QTest::addColumn<QString>("to");
        QTest::addColumn<int>("toRole");
        const int none = int(ui::Sequence::Role::None);
        const int s = int(ui::Sequence::Role::Underground);
        const int a = int(ui::Sequence::Role::Aboveground);
        QTest::newRow("cadastro: land use to tanks")
            << "frmPostoUSOOCUPCSOLO" << none << 0 << true << "frmTanqu" << none;
        QTest::newRow("licença prévia: land use to delivery")
            << "frmPostoUSOOCUPCSOLO" << none << 2 << true << "frmPostoEntrg" << none;
        QTest::newRow("cadastro: delivery back to accidents")
            << "frmPostoEntrg" << none << 0 << false << "frmPostoPrevnAcidn" << none;
        QTest::newRow("licença de instalação: delivery back to land use")
            << "frmPostoEntrg" << none << 3 << false << "frmPostoUSOOCUPCSOLO" << none;
        QTest::newRow("underground pumps to stock control")
            << "frmBomba" << none << 0 << true << "frmPostoContrEstq" << s;
        QTest::newRow("aboveground stock control on")
            << "frmPostoContrEstq" << a << 0 << true << "frmPostoHistrVazmnAereo" << none;
        QTest::newRow("underground stock control back")
            << "frmPostoContrEstq" << s << 0 << false << "frmBomba" << none;
        QTest::newRow("aboveground leaks back")
            << "frmPostoHistrVazmnAereo" << none << 0 << false << "frmPostoContrEstq" << a;
        QTest::newRow("delivery on ends") << "frmPostoEntrg" << none << 0 << true << "" << none;
    }

    void hostWalksTheChain() {
        QFETCH(QString, from);
        QFETCH(int, fromRole);
        QFETCH(int, objetivo);
        QFETCH(bool, forward);
        QFETCH(QString, to);
        QFETCH(int, toRole);
        for (const QString& name : ui::Sequence::screens()) {
            if (!ui::ScreenRegistry::instance().contains(name))
                ui::ScreenRegistry::instance().add(name, placeholder);
        }
        testsupport::TestEnvironment env;
        testsupport::FakeHost host(env.newDatabasePath());
        host.session().objetivo = objetivo;
        const ui::Sequence::Place place{from, ui::Sequence::Role(fromRole)};
        QWidget* shown = forward ? ui::showNext(host, place) : ui::showPrevious(host, place);
        if (to.isEmpty()) {
            QVERIFY(!shown);
            QVERIFY(host.left());
            return;
        }
        QVERIFY(shown);
        QCOMPARE(host.current(), shown);
        QCOMPARE(shown->objectName(), to);
        if (shown->property("role").isValid())
            QCOMPARE(shown->property("role").toInt(), toRole);
    }
};

QTEST_MAIN(TestChainScreens)
#include "test_chain_screens.moc"
