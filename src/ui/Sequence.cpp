#include "ui/Sequence.h"

namespace ui {

namespace {

using Role = Sequence::Role;
using Place = Sequence::Place;

const QString kStockControl = QStringLiteral("frmPostoContrEstq");
const QString kLandUse = QStringLiteral("frmPostoUSOOCUPCSOLO");
const QString kDelivery = QStringLiteral("frmPostoEntrg");

// Below 2 the establishment is in operation and walks the whole chain.
bool inOperation(int objetivo) {
    return objetivo < 2;
}

Place stepForward(const Place& from, int objetivo) {
    const QString& s = from.screen;
    if (s == kLandUse)
        return {inOperation(objetivo) ? QStringLiteral("frmTanqu") : kDelivery};
    if (s == QLatin1String("frmBomba"))
        return {kStockControl, Role::Underground};
    if (s == QLatin1String("frmBombaAereo"))
        return {kStockControl, Role::Aboveground};
    if (s == kStockControl)
        return {from.role == Role::Aboveground ? QStringLiteral("frmPostoHistrVazmnAereo")
                                               : QStringLiteral("frmPostoHistrVazmnSubtr")};
    if (s == kDelivery)
        return {};
    const QStringList& chain = Sequence::screens();
    const qsizetype i = chain.indexOf(s);
    if (i < 0 || i + 1 >= chain.size())
        return {};
    return {chain.at(i + 1)};
}

Place stepBack(const Place& from, int objetivo) {
    const QString& s = from.screen;
    if (s == QLatin1String("frmVOR"))
        return {};
    if (s == kDelivery)
        return {inOperation(objetivo) ? QStringLiteral("frmPostoPrevnAcidn") : kLandUse};
    if (s == kStockControl)
        return {from.role == Role::Aboveground ? QStringLiteral("frmBombaAereo")
                                               : QStringLiteral("frmBomba")};
    if (s == QLatin1String("frmPostoHistrVazmnSubtr"))
        return {kStockControl, Role::Underground};
    if (s == QLatin1String("frmPostoHistrVazmnAereo"))
        return {kStockControl, Role::Aboveground};
    const QStringList& chain = Sequence::screens();
    const qsizetype i = chain.indexOf(s);
    if (i <= 0)
        return {};
    return {chain.at(i - 1)};
}

Place walk(Place place, int objetivo, const Sequence::IsBuilt& isBuilt,
           Place (*step)(const Place&, int)) {
    // The chain is finite and every step moves along it, so this ends at a built screen or
    // at the way out.
    do {
        place = step(place, objetivo);
    } while (!place.screen.isEmpty() && isBuilt && !isBuilt(place.screen));
    return place;
}

} // namespace

const QStringList& Sequence::screens() {
    static const QStringList chain = {
        QStringLiteral("frmVOR"),
        QStringLiteral("frmPostoRespnContt"),
        QStringLiteral("frmPostoDistrConsl"),
        QStringLiteral("frmPosto"),
        kLandUse,
        QStringLiteral("frmTanqu"),
        QStringLiteral("frmBomba"),
        kStockControl,
        QStringLiteral("frmPostoHistrVazmnSubtr"),
        QStringLiteral("frmPostoProtcCatdcSubtr"),
        QStringLiteral("frmPostoMontrAmbnt"),
        QStringLiteral("frmTanquAereo"),
        QStringLiteral("frmBombaAereo"),
        QStringLiteral("frmPostoHistrVazmnAereo"),
        QStringLiteral("frmPostoProtcCatdcAereo"),
        QStringLiteral("frmPostoMontrAmbntAereo"),
        QStringLiteral("frmBaciaContn"),
        QStringLiteral("frmPostoGasBatri"),
        QStringLiteral("frmPostoGasCompr"),
        QStringLiteral("frmPostoGasBomba"),
        QStringLiteral("frmPostoMovmn"),
        QStringLiteral("frmPostoAreaServc"),
        QStringLiteral("frmPostoConsmAgua"),
        QStringLiteral("frmPostoEflntLiqdo"),
        QStringLiteral("frmPostoResdu"),
        QStringLiteral("frmPostoPrevnEmissAr"),
        QStringLiteral("frmPostoRuido"),
        QStringLiteral("frmPostoPrevnAcidn"),
        kDelivery,
    };
    return chain;
}

Sequence::Place Sequence::next(const Place& from, int objetivo, const IsBuilt& isBuilt) {
    return walk(from, objetivo, isBuilt, &stepForward);
}

Sequence::Place Sequence::previous(const Place& from, int objetivo, const IsBuilt& isBuilt) {
    return walk(from, objetivo, isBuilt, &stepBack);
}

} // namespace ui
