#include "establishment/AddressRow.h"

#include "store/SqlValues.h"

namespace establishment {

namespace {

QVariant numberOrNull(const QString& digits) {
    return digits.isEmpty() ? QVariant() : QVariant(digits.toLongLong());
}

QString digitsOf(const QVariant& value) {
    return value.isNull() ? QString() : QString::number(value.toLongLong());
}

} // namespace

ui::AddressValues addressOf(const store::Row& row, const AddressColumns& columns) {
    ui::AddressValues v;
    v.street = row.value(QStringLiteral("DLOGRD")).toString();
    v.number = digitsOf(row.value(QStringLiteral("NLOGRD")));
    v.complement = row.value(QStringLiteral("DLOGRDCOMPM")).toString();
    v.district = row.value(QStringLiteral("DBAIRR")).toString();
    const QVariant cep = row.value(QStringLiteral("CCEP"));
    v.cep = cep.isNull() ? QString() : digitsOf(cep).rightJustified(8, QLatin1Char('0'));
    if (const QVariant n = row.value(columns.municipalityNumber); !n.isNull())
        v.municipality = n.toInt();
    v.ddd = digitsOf(row.value(QStringLiteral("NDDD")));
    v.telephone = digitsOf(row.value(QStringLiteral("NTELFN")));
    v.fax = digitsOf(row.value(QStringLiteral("NFAX")));
    v.email = row.value(QStringLiteral("DEMAIL")).toString();
    return v;
}

store::Row addressRow(const ui::AddressValues& v, const AddressColumns& columns,
                      const QVariant& municipalityName) {
    store::Row row;
    row.insert(QStringLiteral("DLOGRD"), store::textValue(v.street));
    row.insert(QStringLiteral("NLOGRD"), numberOrNull(v.number));
    row.insert(QStringLiteral("DLOGRDCOMPM"), store::textValue(v.complement));
    row.insert(QStringLiteral("DBAIRR"), store::textValue(v.district));
    row.insert(QStringLiteral("CCEP"), numberOrNull(v.cep));
    row.insert(columns.municipalityNumber, v.municipality ? QVariant(*v.municipality) : QVariant());
    row.insert(columns.municipalityName, municipalityName);
    row.insert(QStringLiteral("NDDD"), numberOrNull(v.ddd));
    row.insert(QStringLiteral("NTELFN"), numberOrNull(v.telephone));
    row.insert(QStringLiteral("NFAX"), numberOrNull(v.fax));
    row.insert(QStringLiteral("DEMAIL"), store::textValue(v.email));
    return row;
}

} // namespace establishment
