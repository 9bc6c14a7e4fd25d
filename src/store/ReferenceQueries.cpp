#include "store/ReferenceQueries.h"

#include "store/Database.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>

namespace store {

namespace {

// Names are ordered as a Brazilian reader orders them, accents aside ("ÁGUAS" among the
// A's), which the engine's byte order would not do.
std::vector<Municipality> sortedByName(QSqlQuery query) {
    std::vector<Municipality> rows;
    while (query.next()) {
        rows.push_back(
            {query.value(0).toInt(), query.value(1).toString(), query.value(2).toString()});
    }
    QCollator collator{QLocale(QLocale::Portuguese, QLocale::Brazil)};
    std::stable_sort(rows.begin(), rows.end(), [&](const Municipality& a, const Municipality& b) {
        return collator.compare(a.name, b.name) < 0;
    });
    return rows;
}

} // namespace

std::vector<Municipality> municipalities(Database& db) {
    return sortedByName(db.run(QStringLiteral("SELECT NMUNCP, DMUNCP, DRESMDMUNCP FROM MUNCP "
                                              "WHERE NMUNCP >= 100 ORDER BY DMUNCP")));
}

std::vector<Municipality> states(Database& db) {
    return sortedByName(db.run(QStringLiteral("SELECT NMUNCP, DMUNCP, DRESMDMUNCP FROM MUNCP "
                                              "WHERE NMUNCP < 99 ORDER BY DMUNCP")));
}

std::optional<Municipality> municipality(Database& db, int number) {
    QSqlQuery query = db.run(
        QStringLiteral("SELECT NMUNCP, DMUNCP, DRESMDMUNCP FROM MUNCP WHERE NMUNCP = ?"), {number});
    if (!query.next())
        return std::nullopt;
    return Municipality{query.value(0).toInt(), query.value(1).toString(),
                        query.value(2).toString()};
}

std::optional<int> cepRegional(Database& db, int nmuncp, const QString& fourAndStar,
                               const QString& threeAndStars, const QString& five) {
    QSqlQuery query = db.run(QStringLiteral("SELECT NREGNL FROM CEP WHERE NMUNCP = ? AND "
                                            "(CCEP = ? OR CCEP = ? OR CCEP = ?)"),
                             {nmuncp, fourAndStar, threeAndStars, five});
    if (!query.next())
        return std::nullopt;
    return query.value(0).toInt();
}

rules::CepCheck consscep(Database& db, const QString& cep, int nmuncp) {
    const rules::CepPatterns p = rules::cepPatterns(cep);
    const std::optional<int> regional =
        cepRegional(db, nmuncp, p.fourAndStar, p.threeAndStars, p.five);
    if (!regional)
        return {rules::kCepInvalido, 0};
    return {QString(), *regional};
}

} // namespace store
