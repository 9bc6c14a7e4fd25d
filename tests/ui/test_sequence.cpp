#include "ui/Sequence.h"

#include <QTest>

using Place = ui::Sequence::Place;
using Role = ui::Sequence::Role;

namespace {

constexpr int kCadastro = 0;
constexpr int kLicencaPrevia = 2;

// The whole walk forward from the register list, for an objective.
QStringList walkForward(int objetivo, const ui::Sequence::IsBuilt& isBuilt = {}) {
    QStringList visited;
    Place place{QStringLiteral("frmVOR")};
    while (!place.screen.isEmpty() && visited.size() < 100) {
        visited << place.screen;
        place = ui::Sequence::next(place, objetivo, isBuilt);
    }
    return visited;
}

QStringList walkBack(const Place& start, int objetivo) {
    QStringList visited;
    Place place = start;
    while (!place.screen.isEmpty() && visited.size() < 100) {
        visited << place.screen;
        place = ui::Sequence::previous(place, objetivo);
    }
    return visited;
}

} // namespace

class TestSequence : public QObject {
    Q_OBJECT

private slots:
    void stationInOperationWalksTheWholeChain() {
        const QStringList expected = {
            "frmVOR",
            "frmPostoRespnContt",
            "frmPostoDistrConsl",
            "frmPosto",
            "frmPostoUSOOCUPCSOLO",
            "frmTanqu",
            "frmBomba",
            "frmPostoContrEstq",
            "frmPostoHistrVazmnSubtr",
            "frmPostoProtcCatdcSubtr",
            "frmPostoMontrAmbnt",
            "frmTanquAereo",
            "frmBombaAereo",
            "frmPostoContrEstq",
            "frmPostoHistrVazmnAereo",
            "frmPostoProtcCatdcAereo",
            "frmPostoMontrAmbntAereo",
            "frmBaciaContn",
            "frmPostoGasBatri",
            "frmPostoGasCompr",
            "frmPostoGasBomba",
            "frmPostoMovmn",
            "frmPostoAreaServc",
            "frmPostoConsmAgua",
            "frmPostoEflntLiqdo",
            "frmPostoResdu",
            "frmPostoPrevnEmissAr",
            "frmPostoRuido",
            "frmPostoPrevnAcidn",
            "frmPostoEntrg",
        };
        QCOMPARE(walkForward(kCadastro), expected);
        QCOMPARE(walkForward(1), expected);
        QCOMPARE(ui::Sequence::screens().size(), 29);

        // Back from the end retraces the same road.
        QStringList reversed = expected;
        std::reverse(reversed.begin(), reversed.end());
        QCOMPARE(walkBack({QStringLiteral("frmPostoEntrg")}, kCadastro), reversed);
    }

    void projectJumpsFromLandUseToDelivery_data() {
        QTest::addColumn<int>("objetivo");
        QTest::newRow("Licença Prévia") << kLicencaPrevia;
        QTest::newRow("Licença de Instalação") << 3;
        QTest::newRow("Licença Prévia e de Instalação") << 4;
    }

    void projectJumpsFromLandUseToDelivery() {
        QFETCH(int, objetivo);
        const QStringList expected = {"frmVOR",   "frmPostoRespnContt",   "frmPostoDistrConsl",
                                      "frmPosto", "frmPostoUSOOCUPCSOLO", "frmPostoEntrg"};
        QCOMPARE(walkForward(objetivo), expected);
        QCOMPARE(ui::Sequence::previous({QStringLiteral("frmPostoEntrg")}, objetivo),
                 Place{QStringLiteral("frmPostoUSOOCUPCSOLO")});
    }

    void stockControlFollowsTheRoleThatBroughtTheUser() {
        const Place underground{QStringLiteral("frmPostoContrEstq"), Role::Underground};
        const Place aboveground{QStringLiteral("frmPostoContrEstq"), Role::Aboveground};
        QCOMPARE(ui::Sequence::next({QStringLiteral("frmBomba")}, kCadastro), underground);
        QCOMPARE(ui::Sequence::next({QStringLiteral("frmBombaAereo")}, kCadastro), aboveground);
        QCOMPARE(ui::Sequence::next(underground, kCadastro),
                 Place{QStringLiteral("frmPostoHistrVazmnSubtr")});
        QCOMPARE(ui::Sequence::next(aboveground, kCadastro),
                 Place{QStringLiteral("frmPostoHistrVazmnAereo")});
        QCOMPARE(ui::Sequence::previous(underground, kCadastro), Place{QStringLiteral("frmBomba")});
        QCOMPARE(ui::Sequence::previous(aboveground, kCadastro),
                 Place{QStringLiteral("frmBombaAereo")});
        QCOMPARE(ui::Sequence::previous({QStringLiteral("frmPostoHistrVazmnAereo")}, kCadastro),
                 aboveground);
    }

    void endsLeaveTheQuestionnaire() {
        QVERIFY(ui::Sequence::next({QStringLiteral("frmPostoEntrg")}, kCadastro).screen.isEmpty());
        QVERIFY(ui::Sequence::previous({QStringLiteral("frmVOR")}, kCadastro).screen.isEmpty());
    }

    void screensNotBuiltArePassedOver() {
        const QStringList built = {"frmVOR", "frmPostoUSOOCUPCSOLO", "frmBomba", "frmPostoEntrg"};
        const auto isBuilt = [&](const QString& s) { return built.contains(s); };
        QCOMPARE(walkForward(kCadastro, isBuilt),
                 QStringList({"frmVOR", "frmPostoUSOOCUPCSOLO", "frmBomba", "frmPostoEntrg"}));
        QCOMPARE(walkForward(kLicencaPrevia, isBuilt),
                 QStringList({"frmVOR", "frmPostoUSOOCUPCSOLO", "frmPostoEntrg"}));
        QCOMPARE(ui::Sequence::previous({QStringLiteral("frmBomba")}, kCadastro, isBuilt),
                 Place{QStringLiteral("frmPostoUSOOCUPCSOLO")});
        // With nothing built but the list, Continuar leaves the questionnaire.
        const auto onlyTheList = [](const QString& s) { return s == QLatin1String("frmVOR"); };
        QVERIFY(ui::Sequence::next({QStringLiteral("frmVOR")}, kCadastro, onlyTheList)
                    .screen.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSequence)
#include "test_sequence.moc"
