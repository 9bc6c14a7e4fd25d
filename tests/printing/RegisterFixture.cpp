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
    return {{"DRAZAOSOCIL", name},
            {"DCONTT", "MARIA DA SILVA"},
            {"DLOGRD", "RUA DAS FLORES"},
            {"NLOGRD", 120},
            {"DLOGRDCOMPM", "SALA 4"},
            {"DBAIRR", "CENTRO"},
            {"CCEP", 1310100},
            {"NMUNCPDISTRFORNC", 100},
            {"DMUNCPDISTRFORNC", "SÃO PAULO"},
            {"NDDD", 11},
            {"NTELFN", 32145678},
            {"NFAX", 32145679},
            {"DEMAIL", "contato@empresa.com.br"}};
}

QVariantMap with(QVariantMap base, const QVariantMap& more) {
    for (auto it = more.begin(); it != more.end(); ++it)
        base.insert(it.key(), it.value());
    return base;
}

// The surfaces of a service area: all of them asked, some present.
QVariantMap paving(bool unpaved) {
    return {{"SSEMPAVMN", unpaved ? -1 : 0},
            {"SCONCR", unpaved ? 0 : -1},
            {"SASFLT", -1},
            {"SBLOCR", 0},
            {"SPARLL", 0},
            {"SOUTRO", 0}};
}

void fillTanksAndPumps(store::Database& db, const store::RegisterKey& key, const char* kind) {
    const bool under = QLatin1String(kind) == QLatin1String("S");
    for (int tank = 1; tank <= 2; ++tank) {
        const bool own = tank == 1;
        insertRow(db, "TB_POSTOTANQU",
                  keyed(key, {{"ITANQU", kind},
                              {"NTANQU", tank},
                              {"NIDENT", QStringLiteral("T-%1").arg(tank)},
                              {"AINSTL", own ? "2005-08-20" : "2008-02-11"},
                              {"NMATRL", under ? (own ? 2 : 5) : 9},
                              {"DMATRLOUTRO",
                               under ? QVariant() : QVariant(own ? "POLIETILENO" : "FIBRA")},
                              {"QCOMPRT", tank},
                              {"ITESTEESTNQ", "R"},
                              {"ATESTEESTNQ", own ? "2023-11-30" : "2022-12-01"},
                              {"SSISTMPROTC", "S"},
                              {"IPROTC", own ? (under ? "A" : "P") : "O"},
                              {"DPROTC", own ? QVariant() : QVariant("MANTA ASFÁLTICA")},
                              {"IFREQNMANTN", own ? "M" : "E"},
                              {"AMANTNULTMA", "2024-01-15"},
                              {"IPROPR", own ? "D" : "O"},
                              {"IPOSCA", under ? QVariant() : QVariant(own ? "H" : "V")},
                              {"NBASE", under ? QVariant() : QVariant(own ? 1 : 4)},
                              {"ISITCA", own ? "A" : "D"}}));
        for (int compartment = 1; compartment <= tank; ++compartment) {
            insertRow(db, "TB_POSTOTANQUCOMPR",
                      keyed(key, {{"ITANQU", kind},
                                  {"NTANQU", tank},
                                  {"NCOMPR", compartment},
                                  {"NBOCACARRG", compartment == 1 ? 1 : 3},
                                  {"QCAPCD", compartment == 1 ? 15 : 10},
                                  {"NCOMBS", compartment == 1 ? 101 : 112},
                                  {"QRESPRALTRA", 4},
                                  {"QRESPRDISTCRECPT", 3.5}}));
        }
        insertRow(db, "TB_POSTOBOMBA",
                  keyed(key, {{"ITANQU", kind},
                              {"NBOMBA", tank},
                              {"NIDENT", QStringLiteral("B-%1").arg(tank)},
                              {"AINSTL", "2006-01-10"},
                              {"NVALVLRETNC", own ? 1 : 2},
                              {"NFILTRO", own ? 2 : 4},
                              {"ITESTEESTNQ", "R"},
                              {"ATESTEESTNQ", own ? "2023-10-31" : "2022-10-30"},
                              {"IPROPR", own ? "P" : "O"}}));
        insertRow(db, "TB_POSTOBOMBATANQU",
                  keyed(key, {{"ITANQU", kind},
                              {"NBOMBA", tank},
                              {"NTANQU", tank},
                              {"NCOMPR", 1},
                              {"NMATRL", own ? 12 : 16},
                              {"ILINHA", under ? QVariant(own ? "S" : "P") : QVariant()}}));
        // The owner rows: that of the equipment of others, and one left behind for equipment
        // the station now owns itself, as an older file may bring it; the reports of the
        // station's own equipment never show the second.
        const QString owner = own ? QStringLiteral("PROPRIETÁRIA ANTERIOR S.A.")
                                  : QStringLiteral("DONA DO EQUIPAMENTO S.A.");
        insertRow(db, "TB_POSTOTANQUPROPR",
                  keyed(key, with(company(owner), {{"ITANQU", kind}, {"NTANQU", tank}})));
        insertRow(db, "TB_POSTOBOMBAPROPR",
                  keyed(key, with(company(owner), {{"ITANQU", kind}, {"NBOMBA", tank}})));
    }
    insertRow(db, "TB_POSTOCONTRESTQU",
              keyed(key, {{"ITANQU", kind},
                          {"ICONTRESTQUREGUA", "R"},
                          {"ICONTRESTQUELETR", "E"},
                          {"ICONTRESTQUOUTRO", "O"},
                          {"DCONTRESTQU", "SONDA CAPACITIVA"},
                          {"SLMC", 1},
                          {"SATULZ", 0}}));
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
    insertRow(db, "TB_POSTOVAZMN",
              keyed(key, {{"ITANQU", kind},
                          {"AVAZMN", "2021-03-09"},
                          {"ILOCAL", "B"},
                          {"NTANQU", 0},
                          {"NCOMPR", 0},
                          {"NBOMBA", 2},
                          {"NCOMBS", 112},
                          {"DACAO", "Substituição"},
                          {"DACAOSITCA", "Em Andamento"}}));
    insertRow(db, "TB_POSTOVAZMN",
              keyed(key, {{"ITANQU", kind},
                          {"AVAZMN", "2022-05-17"},
                          {"ILOCAL", "O"},
                          {"NTANQU", 0},
                          {"NCOMPR", 0},
                          {"NBOMBA", 0},
                          {"DLOCAL", "CAIXA SEPARADORA"},
                          {"NCOMBS", 131}}));
    insertRow(db, "TB_POSTOMONTRAMBNT",
              keyed(key, {{"ITANQU", kind}, {"NMONTR", 1}, {"IEQUPM", "T"}, {"NEQUPM", 1}}));
    insertRow(db, "TB_POSTOMONTRAMBNT",
              keyed(key, {{"ITANQU", kind},
                          {"NMONTR", 10},
                          {"IEQUPM", "O"},
                          {"NEQUPM", 0},
                          {"DMONTR", "ANÁLISE DO SOLO"}}));
}

void fillVehicleGas(store::Database& db, const store::RegisterKey& key) {
    for (int n = 1; n <= 2; ++n) {
        const bool own = n == 1;
        const char* owner = own ? "D" : "O";
        insertRow(db, "TB_POSTOGASBATRI",
                  keyed(key, {{"NBATRI", n},
                              {"AINSTL", "2012-04-01"},
                              {"QCILND", own ? 8 : 6},
                              {"AMANTNULTMA", "2023-09-05"},
                              {"IPROPR", owner},
                              {"ISITCA", "A"}}));
        insertRow(db, "TB_POSTOGASCOMPR",
                  keyed(key, {{"NCOMPR", n},
                              {"NIDENT", QStringLiteral("C-%1").arg(n)},
                              {"AINSTL", "2012-04-02"},
                              {"AMANTNULTMA", "2023-09-06"},
                              {"IPROPR", owner},
                              {"ISITCA", "A"}}));
        insertRow(db, "TB_POSTOGASBOMBA",
                  keyed(key, {{"NBOMBA", n},
                              {"NIDENT", QStringLiteral("G-%1").arg(n)},
                              {"AINSTL", "2012-04-03"},
                              {"NBICO", own ? 2 : 4},
                              {"AMANTNULTMA", "2023-09-07"},
                              {"IPROPR", owner},
                              {"ISITCA", "D"}}));
        insertRow(db, "TB_POSTOGASCOMPRBATRI",
                  keyed(key, {{"NCOMPR", n}, {"NBATRI", n}, {"NMATRL", 12}}));
        insertRow(db, "TB_POSTOGASBOMBABATRI",
                  keyed(key, {{"NBOMBA", n}, {"NBATRI", n}, {"NMATRL", 17}}));
        // As with the fuel equipment: the second owner row is one left behind.
        const QString name =
            own ? QStringLiteral("GÁS ANTERIOR S.A.") : QStringLiteral("GÁS DONO S.A.");
        insertRow(db, "TB_POSTOGASBATRIPROPR", keyed(key, with(company(name), {{"NBATRI", n}})));
        insertRow(db, "TB_POSTOGASCOMPRPROPR", keyed(key, with(company(name), {{"NCOMPR", n}})));
        insertRow(db, "TB_POSTOGASBOMBAPROPR", keyed(key, with(company(name), {{"NBOMBA", n}})));
    }
}

void fillEnvironment(store::Database& db, const store::RegisterKey& key) {
    insertRow(
        db, "TB_POSTOMOVMN",
        keyed(key,
              {{"NCOMBS", 101}, {"NSEQNCCOMBS", 1}, {"QCOMBS", 45000.5}, {"CUNIDDMEDDA", 2310}}));
    insertRow(db, "TB_POSTOMOVMN",
              keyed(key, {{"NCOMBS", 135},
                          {"NSEQNCCOMBS", 1},
                          {"DCOMBS", "QUEROSENE DE ILUMINAÇÃO"},
                          {"QCOMBS", 1200},
                          {"CUNIDDMEDDA", 2302}}));
    insertRow(db, "TB_POSTOAREAABAST",
              keyed(key, with(paving(false), {{"SDRENG", -1},
                                              {"SDRENGSAO", -1},
                                              {"SDRENGDEMAS", 0},
                                              {"SDRENGDEMASSAO", 0}})));
    insertRow(db, "TB_POSTOAREATROCAOLEO", keyed(key, paving(true)));
    insertRow(db, "TB_POSTOAREALAVAGEM",
              keyed(key, with(paving(false), {{"SCOLTAAGUASERVD", -1},
                                              {"SCAIXARETNCSOLDO", -1},
                                              {"SSAO", 0},
                                              {"SSAOPROPR", -1},
                                              {"SSAOPISTA", 0}})));
    insertRow(db, "TB_POSTOAREADESCARGA",
              keyed(key, with(paving(false), {{"SDRENG", -1}, {"SDRENGSAO", 0}})));
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
                          {"DRESDU", ""},
                          {"QRESDU", 200},
                          {"CUNIDDMEDDA", 2310},
                          {"CDESTNRESDU", "A01"},
                          {"CDESTNRESDU1", "D01"}}));
    insertRow(db, "TB_POSTORESDU",
              keyed(key, {{"IRESDU", "O"},
                          {"DRESDU", "LÂMPADAS"},
                          {"QRESDU", 3},
                          {"CUNIDDMEDDA", 2404},
                          {"CDESTNRESDU", "A04"},
                          {"CDESTNRESDU1", "D05"}}));
    insertRow(db, "TB_POSTOPREVNEMISSAR",
              keyed(key, {{"IFONTE", "R"}, {"DFONTEOUTRO", ""}, {"DDISPSCONTR", "Válvula"}}));
    insertRow(db, "TB_POSTOPREVNEMISSAR",
              keyed(key, {{"IFONTE", "O"},
                          {"DFONTEOUTRO", "CABINE DE PINTURA"},
                          {"DDISPSCONTR", "Filtro de manta"}}));
    insertRow(db, "TB_POSTORUIDO",
              keyed(key, {{"IFONTE", "A"},
                          {"QFONTE", 2},
                          {"HINICIFUNCM", "08:00:00"},
                          {"HTERMNFUNCM", "18:00:00"},
                          {"DMEDDACONTR", "12"}}));
    insertRow(db, "TB_POSTORUIDO",
              keyed(key, {{"IFONTE", "O"},
                          {"DFONTEOUTRO", "LAVADORA DE ALTA PRESSÃO"},
                          {"QFONTE", 1},
                          {"HINICIFUNCM", "09:30:00"},
                          {"HTERMNFUNCM", "17:15:00"},
                          {"DMEDDACONTR", "Isolamento Acústico"}}));
    insertRow(db, "TB_POSTOPREVNACIDN",
              keyed(key, {{"AAPRVC", "2022-06-01"},
                          {"NAUTOVISTR", 123456},
                          {"AAUTOVISTR", "2025-06-01"},
                          {"SEQUPEEMERG", -1},
                          {"SEQUPEEMERGPROPR", -1},
                          {"SEQUPEEMERGTERCR", 0},
                          {"SEQUPEEMERGDISTR", 0},
                          {"DRAZAOSOCIL", "BRIGADA PRONTA LTDA"},
                          {"DCONTT", "PAULO ROCHA"},
                          {"DCARGO", "BRIGADISTA"},
                          {"NDDD", 11},
                          {"NTELFN", 31112222},
                          {"NCELLR", 966554433},
                          {"NPAGER", 4321},
                          {"NDDDACINM", 12},
                          {"NTELFNACINM", 39998888}}));
    insertRow(db, "TB_POSTOENTRG",
              keyed(key, {{"DNOME", "JOÃO PEREIRA"},
                          {"DCARGO", "SÓCIO"},
                          {"NRG", 123456789},
                          {"IANEXO", -1},
                          {"NQUANT", 3}}));
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
               {"DLOGRDCOMPM", "LOJA 2"},
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
               {"NINSCRMUNCP", 88776},
               {"QLATTD", 233415},
               {"QLONGT", 463712},
               {"CSITU", 1}});
    insertRow(db, "TB_POSTO",
              keyed(key, {{"IESTBL", "R"},
                          {"DBANDR", "BANDEIRA BRANCA"},
                          {"NANP", "SP0012345"},
                          {"NANPANTRR", "SP0009876"},
                          {"ICLASSABNT", 0},
                          {"QAREATERRN", 0},
                          {"ILOCLZATIVD", "N"},
                          {"AINICIATIVD", "2010-05-01"},
                          {"ALEVNT", surveyDate}}));
}

void fillRegister(store::Database& db, const store::RegisterKey& key, int distributors) {
    // One transaction: a register of some eighty rows is written in one go, not row by row.
    store::Transaction transaction(db);
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
                          {"DLOGRDCOMPM", "APTO 12"},
                          {"DBAIRR", "CONSOLAÇÃO"},
                          {"CCEP", 1305000},
                          {"NMUNCPRESPN", 100},
                          {"NDDD", 11},
                          {"NTELFN", 998877665},
                          {"NFAX", 33334444},
                          {"DEMAIL", "joao@boaviagem.com.br"}}));
    insertRow(db, "TB_POSTOCONTT",
              keyed(key, {{"DNOMEROTNR", "ANA LIMA"},
                          {"DCARGOROTNR", "GERENTE"},
                          {"NDDDROTNR", 11},
                          {"NTELFNROTNR", 30457788},
                          {"NFAX", 30457791},
                          {"DEMAILROTNR", "ana@boaviagem.com.br"},
                          {"NCELLRROTNR", 988776655},
                          {"DNOMEEMERG", "CARLOS SOUZA"},
                          {"DCARGOEMERG", "SUPERVISOR"},
                          {"NDDDEMERG", 19},
                          {"NTELFNEMERG", 30457790},
                          {"NFAXEMERG", 30457792},
                          {"DEMAILEMERG", "carlos@boaviagem.com.br"},
                          {"NCELLREMERG", 977665544},
                          {"NPAGEREMERG", 1234},
                          {"NDDDACINM", 21},
                          {"NTELFNACINM", 30457793}}));
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

    fillTanksAndPumps(db, key, "S");
    fillTanksAndPumps(db, key, "A");
    insertRow(db, "TB_POSTOBACIA",
              keyed(key, {{"NBACIA", 1},
                          {"QCONTN", 33.5},
                          {"IREVST", "Concreto"},
                          {"SDRENG", -1},
                          {"DDESTN", "Caixa separadora"}}));
    insertRow(db, "TB_POSTOBACIARESRV",
              keyed(key, {{"NBACIA", 1}, {"ITANQU", "A"}, {"NTANQU", 1}}));
    fillVehicleGas(db, key);
    fillEnvironment(db, key);
    transaction.commit();
}

} // namespace testsupport
