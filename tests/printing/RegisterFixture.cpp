#include "RegisterFixture.h"

#include "store/Database.h"
#include "store/TableCatalogue.h"

#include <QStringList>

namespace testsupport {

void insertRow(store::Database& db, const char* table, const QVariantMap& values) {
    const store::Table& t = store::table(table);
    QStringList columns;
    QStringList marks;
    QVariantList bound;
    for (auto it = values.begin(); it != values.end(); ++it) {
        columns << t.column(it.key().toStdString()).qname();
        marks << QStringLiteral("?");
        bound << it.value();
    }
    db.run(QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)")
               .arg(t.qname(), columns.join(QLatin1Char(',')), marks.join(QLatin1Char(','))),
           bound);
}

namespace {

QVariantMap keyed(const store::RegisterKey& key, QVariantMap values) {
    values.insert(QStringLiteral("NMUNCP"), key.nmuncp);
    values.insert(QStringLiteral("NSEQNC"), key.nseqnc);
    if (!values.contains(QStringLiteral("AINFRM")))
        values.insert(QStringLiteral("AINFRM"), QStringLiteral("2024-03-01"));
    return values;
}

QVariantMap company(const QString& name) {
    return {{"DRAZAOSOCIL", name},        {"DCONTT", "MARIA DA SILVA"},
            {"DLOGRD", "RUA DAS FLORES"}, {"NLOGRD", 120},
            {"DBAIRR", "CENTRO"},         {"CCEP", 1310100},
            {"NMUNCPDISTRFORNC", 100},    {"NDDD", 11},
            {"NTELFN", 32145678},         {"DEMAIL", "contato@empresa.com.br"}};
}

QVariantMap with(QVariantMap base, const QVariantMap& more) {
    for (auto it = more.begin(); it != more.end(); ++it)
        base.insert(it.key(), it.value());
    return base;
}

} // namespace

void insertEstablishment(store::Database& db, const store::RegisterKey& key,
                         const QVariant& surveyDate) {
    insertRow(db, "EMPRS",
              {{"NMUNCP", key.nmuncp},
               {"NSEQNC", key.nseqnc},
               {"DFANTS", "AUTO POSTO BOA VIAGEM"},
               {"DRAZAOSOCIL", "COMERCIAL DE COMBUSTÍVEIS BOA VIAGEM LTDA"},
               {"DLOGRD", "AVENIDA DOS BANDEIRANTES"},
               {"NLOGRD", 1500},
               {"DBAIRR", "VILA OLÍMPIA"},
               {"CCEP", 4553000},
               {"NDDD", 11},
               {"NTELFN", 30457788},
               {"NTELEX", 30457789},
               {"CCGC", 11222333000181LL},
               {"CIBGE", 5050400},
               {"DATIVD", "Comércio varejista de combustíveis"},
               {"ACADST", "2024-02-10"},
               {"DEMAIL", "posto@boaviagem.com.br"},
               {"NINSCRESTDL", 110042490114LL},
               {"CSITU", 1}});
    insertRow(db, "TB_POSTO",
              keyed(key, {{"IESTBL", "R"},
                          {"DBANDR", "BANDEIRA BRANCA"},
                          {"NANP", "SP0012345"},
                          {"ICLASSABNT", 0},
                          {"QAREATERRN", 0},
                          {"ILOCLZATIVD", "N"},
                          {"AINICIATIVD", "2010-05-01"},
                          {"ALEVNT", surveyDate}}));
}

void fillRegister(store::Database& db, const store::RegisterKey& key, int distributors) {
    insertEstablishment(db, key);
    db.run(QStringLiteral("UPDATE TB_POSTO SET ICLASSABNT = 2, QAREATERRN = 1250.5, "
                          "QAREACONST = 310.25, QAREAARLIVRE = 940, QFUNCNADMNS = 3, "
                          "QFUNCNOPERC = 12, HINICIFUNCM = '06:00:00', HTERMNFUNCM = '22:30:00', "
                          "NHORASJORNDDIA = 16, NDIASJORNDMES = 30, NDIASJORNDANO = 360, "
                          "ILOCLZATIVD = 'U' WHERE NMUNCP = ? AND NSEQNC = ?"),
           {key.nmuncp, key.nseqnc});
    insertRow(db, "TB_POSTORESPN",
              keyed(key, {{"DRESPN", "JOÃO PEREIRA"},
                          {"NRG", 123456789},
                          {"DRGORGAO", "SSP"},
                          {"IUF", "SP"},
                          {"CCPF", 12345678909LL},
                          {"DLOGRD", "RUA AUGUSTA"},
                          {"NLOGRD", 45},
                          {"CCEP", 1305000},
                          {"NMUNCPRESPN", 100},
                          {"NDDD", 11},
                          {"NTELFN", 998877665}}));
    insertRow(db, "TB_POSTOCONTT",
              keyed(key, {{"DNOMEROTNR", "ANA LIMA"},
                          {"DCARGOROTNR", "GERENTE"},
                          {"NDDDROTNR", 11},
                          {"NTELFNROTNR", 30457788},
                          {"DNOMEEMERG", "CARLOS SOUZA"},
                          {"DCARGOEMERG", "SUPERVISOR"},
                          {"NDDDEMERG", 11},
                          {"NTELFNEMERG", 30457790}}));
    for (int i = 1; i <= distributors; ++i) {
        insertRow(db, "TB_POSTODISTRFORNC",
                  keyed(key, with(company(QStringLiteral("FORNECEDORA NÚMERO %1 LTDA").arg(i)),
                                  {{"NIDENT", i}, {"IDISTRFORNC", i == 1 ? "D" : "F"}})));
    }
    for (int code : {1, 5, 17})
        insertRow(db, "TB_POSTOCOMRCSERVC",
                  keyed(key, {{"NCOMRCSERVC", code},
                              {"DCOMRCSERVC",
                               code == 17 ? QVariant("Lava-jato de motos") : QVariant()}}));
    for (int code : {5, 16, 36})
        insertRow(db, "TB_POSTOUSOOCUPCSOLO", keyed(key, {{"NUSOOCUPCSOLO", code}}));

    for (const char* kind : {"S", "A"}) {
        const bool under = QLatin1String(kind) == QLatin1String("S");
        for (int tank = 1; tank <= 2; ++tank) {
            insertRow(db, "TB_POSTOTANQU",
                      keyed(key, {{"ITANQU", kind},
                                  {"NTANQU", tank},
                                  {"NIDENT", QStringLiteral("T-%1").arg(tank)},
                                  {"AINSTL", "2005-08-20"},
                                  {"NMATRL", under ? 2 : 10},
                                  {"QCOMPRT", 1},
                                  {"ATESTEESTNQ", "2023-11-30"},
                                  {"SSISTMPROTC", "S"},
                                  {"IPROTC", under ? "A" : "P"},
                                  {"IFREQNMANTN", "M"},
                                  {"AMANTNULTMA", "2024-01-15"},
                                  {"IPROPR", tank == 1 ? "D" : "O"},
                                  {"IPOSCA", under ? QVariant() : QVariant("H")},
                                  {"NBASE", under ? QVariant() : QVariant(1)},
                                  {"ITESTEESTNQ", "R"},
                                  {"ISITCA", "A"}}));
            insertRow(db, "TB_POSTOTANQUCOMPR",
                      keyed(key, {{"ITANQU", kind},
                                  {"NTANQU", tank},
                                  {"NCOMPR", 1},
                                  {"NBOCACARRG", 1},
                                  {"QCAPCD", 15},
                                  {"NCOMBS", 101},
                                  {"QRESPRALTRA", 4},
                                  {"QRESPRDISTCRECPT", 3}}));
            insertRow(db, "TB_POSTOBOMBA",
                      keyed(key, {{"ITANQU", kind},
                                  {"NBOMBA", tank},
                                  {"NIDENT", QStringLiteral("B-%1").arg(tank)},
                                  {"AINSTL", "2006-01-10"},
                                  {"NVALVLRETNC", 1},
                                  {"NFILTRO", 2},
                                  {"ATESTEESTNQ", "2023-11-30"},
                                  {"ITESTEESTNQ", "R"},
                                  {"IPROPR", tank == 1 ? "P" : "O"}}));
            insertRow(db, "TB_POSTOBOMBATANQU",
                      keyed(key, {{"ITANQU", kind},
                                  {"NBOMBA", tank},
                                  {"NTANQU", tank},
                                  {"NCOMPR", 1},
                                  {"NMATRL", 12},
                                  {"ILINHA", "S"}}));
        }
        insertRow(db, "TB_POSTOTANQUPROPR",
                  keyed(key, with(company(QStringLiteral("DONA DO TANQUE S.A.")),
                                  {{"ITANQU", kind}, {"NTANQU", 2}})));
        insertRow(db, "TB_POSTOBOMBAPROPR",
                  keyed(key, with(company(QStringLiteral("DONA DA BOMBA S.A.")),
                                  {{"ITANQU", kind}, {"NBOMBA", 2}})));
        insertRow(db, "TB_POSTOCONTRESTQU",
                  keyed(key, {{"ITANQU", kind},
                              {"ICONTRESTQUREGUA", "R"},
                              {"ICONTRESTQUELETR", "E"},
                              {"SLMC", 1},
                              {"SATULZ", 1}}));
        insertRow(db, "TB_POSTOVAZMN",
                  keyed(key, {{"ITANQU", kind},
                              {"AVAZMN", "2019-07-04"},
                              {"ILOCAL", "T"},
                              {"NTANQU", 1},
                              {"NCOMPR", 1},
                              {"NBOMBA", 0},
                              {"NCOMBS", 101},
                              {"DACAO", "Reparo"},
                              {"DACAOSITCA", "Finalizada"}}));
        insertRow(db, "TB_POSTOMONTRAMBNT",
                  keyed(key, {{"ITANQU", kind},
                              {"NMONTR", 1},
                              {"IEQUPM", "T"},
                              {"NEQUPM", 1},
                              {"DMONTR", QVariant()}}));
    }
    insertRow(db, "TB_POSTOBACIA",
              keyed(key, {{"NBACIA", 1},
                          {"QCONTN", 33.5},
                          {"IREVST", "Concreto"},
                          {"SDRENG", -1},
                          {"DDESTN", "Caixa separadora"}}));
    insertRow(db, "TB_POSTOBACIARESRV",
              keyed(key, {{"NBACIA", 1}, {"ITANQU", "A"}, {"NTANQU", 1}}));
    for (int n = 1; n <= 2; ++n) {
        const char* owner = n == 1 ? "D" : "O";
        insertRow(db, "TB_POSTOGASBATRI",
                  keyed(key, {{"NBATRI", n},
                              {"AINSTL", "2012-04-01"},
                              {"QCILND", 8},
                              {"IPROPR", owner},
                              {"ISITCA", "A"}}));
        insertRow(db, "TB_POSTOGASCOMPR",
                  keyed(key, {{"NCOMPR", n},
                              {"NIDENT", QStringLiteral("C-%1").arg(n)},
                              {"AINSTL", "2012-04-01"},
                              {"IPROPR", owner},
                              {"ISITCA", "A"}}));
        insertRow(db, "TB_POSTOGASBOMBA",
                  keyed(key, {{"NBOMBA", n},
                              {"NIDENT", QStringLiteral("G-%1").arg(n)},
                              {"AINSTL", "2012-04-01"},
                              {"NBICO", 2},
                              {"IPROPR", owner},
                              {"ISITCA", "D"}}));
        insertRow(db, "TB_POSTOGASCOMPRBATRI",
                  keyed(key, {{"NCOMPR", n}, {"NBATRI", n}, {"NMATRL", 12}}));
        insertRow(db, "TB_POSTOGASBOMBABATRI",
                  keyed(key, {{"NBOMBA", n}, {"NBATRI", n}, {"NMATRL", 12}}));
    }
    insertRow(db, "TB_POSTOGASBATRIPROPR",
              keyed(key, with(company(QStringLiteral("GÁS DONO S.A.")), {{"NBATRI", 2}})));
    insertRow(db, "TB_POSTOGASCOMPRPROPR",
              keyed(key, with(company(QStringLiteral("GÁS DONO S.A.")), {{"NCOMPR", 2}})));
    insertRow(db, "TB_POSTOGASBOMBAPROPR",
              keyed(key, with(company(QStringLiteral("GÁS DONO S.A.")), {{"NBOMBA", 2}})));
    insertRow(
        db, "TB_POSTOMOVMN",
        keyed(key,
              {{"NCOMBS", 101}, {"NSEQNCCOMBS", 1}, {"QCOMBS", 45000.5}, {"CUNIDDMEDDA", 2310}}));
    insertRow(db, "TB_POSTOAREALAVAGEM",
              keyed(key, {{"SCONCR", -1}, {"SCOLTAAGUASERVD", -1}, {"SSAO", 0}}));
    insertRow(db, "TB_POSTOBALNCHIDRC",
              keyed(key, {{"IFONTEABAST", "3R"},
                          {"NFONTEABASTIDENT", 1},
                          {"DFONTEABAST", "Sabesp"},
                          {"QCONSMSANTR", 12.5},
                          {"QCONSMCOMRC", 40}}));
    insertRow(
        db, "TB_POSTOEFLNTLIQDO",
        keyed(key,
              {{"IEFLNTLIQDO", "D"}, {"QEFLNTLIQDO", 10.75}, {"NTRATM", 1}, {"NDISPSFINAL", 1}}));
    insertRow(db, "TB_POSTORESDU",
              keyed(key, {{"IRESDU", "Q"},
                          {"QRESDU", 200},
                          {"CUNIDDMEDDA", 2310},
                          {"CDESTNRESDU", "A01"},
                          {"CDESTNRESDU1", "D01"}}));
    insertRow(db, "TB_POSTOPREVNEMISSAR",
              keyed(key, {{"IFONTE", "R"}, {"DFONTEOUTRO", ""}, {"DDISPSCONTR", "Válvula"}}));
    insertRow(db, "TB_POSTORUIDO",
              keyed(key, {{"IFONTE", "A"},
                          {"QFONTE", 2},
                          {"HINICIFUNCM", "08:00:00"},
                          {"HTERMNFUNCM", "18:00:00"},
                          {"DMEDDACONTR", "12"}}));
    insertRow(db, "TB_POSTOPREVNACIDN",
              keyed(key, {{"AAPRVC", "2022-06-01"},
                          {"NAUTOVISTR", 123456},
                          {"AAUTOVISTR", "2025-06-01"},
                          {"SEQUPEEMERG", -1},
                          {"SEQUPEEMERGPROPR", -1},
                          {"SEQUPEEMERGTERCR", 0},
                          {"SEQUPEEMERGDISTR", 0}}));
    insertRow(db, "TB_POSTOENTRG",
              keyed(key, {{"DNOME", "JOÃO PEREIRA"},
                          {"DCARGO", "SÓCIO"},
                          {"NRG", 123456789},
                          {"IANEXO", -1},
                          {"NQUANT", 3}}));
}

} // namespace testsupport
