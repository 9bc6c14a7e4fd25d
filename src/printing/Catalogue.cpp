#include "printing/Catalogue.h"

#include "store/Database.h"
#include "store/TableCatalogue.h"

#include <QStringList>
#include <stdexcept>

namespace printing {

namespace {

using Op = Condition::Op;
using Kind = Probe::Kind;

QString q(std::string_view name) {
    return QString::fromLatin1(name.data(), qsizetype(name.size()));
}

Condition is(std::string_view column, const char* value) {
    return {column, Op::Equal, QString::fromLatin1(value)};
}

Condition isNot(std::string_view column, const char* value) {
    return {column, Op::NotEqual, QString::fromLatin1(value)};
}

// The kind of system and the owner test that the tank and pump reports share.
std::vector<Condition> system(const char* kind) {
    return {is("ITANQU", kind)};
}
std::vector<Condition> ownedBy(const char* kind, bool others) {
    return {is("ITANQU", kind), others ? is("IPROPR", "O") : isNot("IPROPR", "O")};
}

Probe anyRow(std::string_view table, std::vector<Condition> conditions = {}) {
    return {Kind::AnyRow, {table}, std::move(conditions), {}};
}

const std::vector<ReportEntry> kCatalogue = {
    {1, "rpt01_ident", QStringLiteral("Identificação do Empreendimento"), {}, {}},
    {2,
     "rpt03_distrfornc",
     QStringLiteral("Distribuidoras e Fornecedoras"),
     anyRow("TB_POSTODISTRFORNC"),
     {}},
    {3,
     "rpt02_carct",
     QStringLiteral("Características Gerais"),
     {Kind::ColumnNotNull, {"TB_POSTO"}, {}, "HINICIFUNCM"},
     {}},
    {4, "rpt04_tanqusubtr", QStringLiteral("Tanques - Subterrâneo"),
     anyRow("TB_POSTOTANQU", ownedBy("S", false)), ownedBy("S", false)},
    {5, "rpt06_tanqusubtrpropr", QStringLiteral("Tanques de Outros Proprietários - Subterrâneo"),
     anyRow("TB_POSTOTANQU", ownedBy("S", true)), ownedBy("S", true)},
    {6, "rpt08_bombasubtr", QStringLiteral("Bombas - Subterrâneo"),
     anyRow("TB_POSTOBOMBA", ownedBy("S", false)), ownedBy("S", false)},
    {7, "rpt10_bombasubtrpropr", QStringLiteral("Bombas de Outros Proprietários - Subterrâneo"),
     anyRow("TB_POSTOBOMBA", ownedBy("S", true)), ownedBy("S", true)},
    {8, "rpt12_contrestqusubtr", QStringLiteral("Controle de Estoque - Subterrâneo"),
     anyRow("TB_POSTOCONTRESTQU", system("S")), system("S")},
    {9, "rpt14_histrvazmnsubtr", QStringLiteral("Histórico de Vazamento - Subterrâneo"),
     anyRow("TB_POSTOVAZMN", system("S")), system("S")},
    // Any tank with protection data brings the report in, not the first tank alone: the
    // memorial never leaves out what was typed.
    {10,
     "rpt16_protccatdc",
     QStringLiteral("Proteção Catódica - Subterrâneo"),
     anyRow("TB_POSTOTANQU", {is("ITANQU", "S"), {"SSISTMPROTC", Op::NotEmpty, {}}}),
     {is("ITANQU", "S"), {"SSISTMPROTC", Op::NotEmpty, {}}}},
    {11, "rpt30_monitambntsubtr", QStringLiteral("Monitoramento Ambiental (Subterrâneo)"),
     anyRow("TB_POSTOMONTRAMBNT", system("S")), system("S")},
    {12, "rpt05_tanquaereo", QStringLiteral("Reservatórios - Aéreo"),
     anyRow("TB_POSTOTANQU", ownedBy("A", false)), ownedBy("A", false)},
    {13, "rpt07_tanquaereopropr", QStringLiteral("Reservatórios de Outros Proprietários - Aéreo"),
     anyRow("TB_POSTOTANQU", ownedBy("A", true)), ownedBy("A", true)},
    {14, "rpt09_bombaaereo", QStringLiteral("Unidades de Abastecimento - Aéreo"),
     anyRow("TB_POSTOBOMBA", ownedBy("A", false)), ownedBy("A", false)},
    {15, "rpt11_bombaaereopropr",
     QStringLiteral("Unidades de Abastecimento de Outros Proprietários - Aéreo"),
     anyRow("TB_POSTOBOMBA", ownedBy("A", true)), ownedBy("A", true)},
    {16, "rpt13_contrestquaereo", QStringLiteral("Controle de Estoque - Aéreo"),
     anyRow("TB_POSTOCONTRESTQU", system("A")), system("A")},
    {17, "rpt15_histrvazmnaereo", QStringLiteral("Histórico de Vazamento - Aéreo"),
     anyRow("TB_POSTOVAZMN", system("A")), system("A")},
    // The aboveground layout lists every reservoir, decided or not.
    {18,
     "rpt17_protccorrs",
     QStringLiteral("Proteção Contra Corrosão - Aéreo"),
     {Kind::FirstTankColumn, {"TB_POSTOTANQU"}, system("A"), "SSISTMPROTC"},
     system("A")},
    {19, "rpt31_monitambntaereo", QStringLiteral("Monitoramento Ambiental (Aéreo)"),
     anyRow("TB_POSTOMONTRAMBNT", system("A")), system("A")},
    {20, "rpt18_baciacontn", QStringLiteral("Bacia de Contenção"), anyRow("TB_POSTOBACIA"), {}},
    {21,
     "rpt19_batriarmaz",
     QStringLiteral("Baterias de Armazenagem - Gás Natural Veicular"),
     anyRow("TB_POSTOGASBATRI", {isNot("IPROPR", "O")}),
     {isNot("IPROPR", "O")}},
    {22,
     "rpt20_batriarmazpropr",
     QStringLiteral("Baterias de Armazenagem de Outros Proprietários - Gás Natural Veicular"),
     anyRow("TB_POSTOGASBATRI", {is("IPROPR", "O")}),
     {is("IPROPR", "O")}},
    {23,
     "rpt21_compr",
     QStringLiteral("Compressores - Gás Natural Veicular"),
     anyRow("TB_POSTOGASCOMPR", {isNot("IPROPR", "O")}),
     {isNot("IPROPR", "O")}},
    {24,
     "rpt22_comprpropr",
     QStringLiteral("Compressores de Outros Proprietários - Gás Natural Veicular"),
     anyRow("TB_POSTOGASCOMPR", {is("IPROPR", "O")}),
     {is("IPROPR", "O")}},
    {25,
     "rpt23_uniddabatc",
     QStringLiteral("Unidades de Abastecimento - Gás Natural Veicular"),
     anyRow("TB_POSTOGASBOMBA", {isNot("IPROPR", "O")}),
     {isNot("IPROPR", "O")}},
    {26,
     "rpt24_uniddabatcpropr",
     QStringLiteral("Unidades de Abastecimento de Outros Proprietários - Gás Natural Veicular"),
     anyRow("TB_POSTOGASBOMBA", {is("IPROPR", "O")}),
     {is("IPROPR", "O")}},
    {27,
     "rpt25_movmnmensalmedia",
     QStringLiteral("Movimentação Mensal Média"),
     anyRow("TB_POSTOMOVMN"),
     {}},
    {28,
     "rpt26_areasserv",
     QStringLiteral("Áreas de Serviços"),
     {Kind::AnyRow,
      {"TB_POSTOAREAABAST", "TB_POSTOAREADESCARGA", "TB_POSTOAREALAVAGEM", "TB_POSTOAREATROCAOLEO"},
      {},
      {}},
     {}},
    {29,
     "rpt27_inforutilzagua",
     QStringLiteral("Informações Sobre Utilização de Água"),
     anyRow("TB_POSTOBALNCHIDRC"),
     {}},
    {30,
     "rpt28_eflntliqds",
     QStringLiteral("Efluentes Líquidos"),
     anyRow("TB_POSTOEFLNTLIQDO"),
     {}},
    {31, "rpt29_residuos", QStringLiteral("Resíduos Sólidos"), anyRow("TB_POSTORESDU"), {}},
    {32,
     "rpt32_emissatmosféricas",
     QStringLiteral("Emissões Atmosféricas"),
     anyRow("TB_POSTOPREVNEMISSAR"),
     {}},
    {33, "rpt35_ruidos", QStringLiteral("Ruídos"), anyRow("TB_POSTORUIDO"), {}},
    {34,
     "rpt33_prevnacidn",
     QStringLiteral("Prevenção de Acidentes e Atendimentos Emergenciais"),
     anyRow("TB_POSTOPREVNACIDN"),
     {}},
    {35, "rpt34_entrega", QStringLiteral("Declaração de Entrega"), anyRow("TB_POSTOENTRG"), {}},
};

const ReportEntry kProtocol = {
    36, "rpt36_protocolo", QStringLiteral("Protocolo de Envio do Caderno Vorel"), {}, {}};

QString operatorText(Op op) {
    switch (op) {
    case Op::Equal:
        return QStringLiteral(" = ?");
    case Op::NotEqual:
        return QStringLiteral(" <> ?");
    case Op::NotEmpty:
        return QStringLiteral(" <> ''");
    }
    return QStringLiteral(" = ?");
}

bool hasRow(store::Database& db, std::string_view table, const store::RegisterKey& key,
            const std::vector<Condition>& conditions) {
    QVariantList values = {key.nmuncp, key.nseqnc};
    const QString sql = QStringLiteral("SELECT 1 FROM \"%1\" %2 LIMIT 1")
                            .arg(q(table), whereClause(table, conditions, values));
    return db.scalar(sql, values).isValid();
}

} // namespace

const std::vector<ReportEntry>& catalogue() {
    return kCatalogue;
}

const ReportEntry& protocolEntry() {
    return kProtocol;
}

const ReportEntry& entry(std::string_view id) {
    if (id == kProtocol.id)
        return kProtocol;
    for (const ReportEntry& e : kCatalogue) {
        if (e.id == id)
            return e;
    }
    throw std::out_of_range("no report " + std::string(id));
}

QString whereClause(std::string_view table, const std::vector<Condition>& conditions,
                    QVariantList& values) {
    const store::Table& t = store::table(table);
    QStringList parts = {QStringLiteral("\"NMUNCP\" = ?"), QStringLiteral("\"NSEQNC\" = ?")};
    for (const Condition& c : conditions) {
        parts << QStringLiteral("\"%1\"%2").arg(t.column(c.column).qname(), operatorText(c.op));
        if (c.op != Op::NotEmpty)
            values << c.value;
    }
    return QStringLiteral("WHERE ") + parts.join(QStringLiteral(" AND "));
}

bool probe(store::Database& db, const ReportEntry& report, const store::RegisterKey& key) {
    const Probe& p = report.probe;
    switch (p.kind) {
    case Kind::Always:
        return true;
    case Kind::AnyRow:
        for (std::string_view table : p.tables) {
            if (hasRow(db, table, key, p.conditions))
                return true;
        }
        return false;
    case Kind::ColumnNotNull: {
        const std::string_view table = p.tables.front();
        QVariantList values = {key.nmuncp, key.nseqnc};
        const QString sql = QStringLiteral("SELECT \"%1\" FROM \"%2\" %3 LIMIT 1")
                                .arg(store::table(table).column(p.column).qname(), q(table),
                                     whereClause(table, {}, values));
        const QVariant value = db.scalar(sql, values);
        return value.isValid() && !value.isNull();
    }
    case Kind::FirstTankColumn: {
        // Only the first tank of the kind is asked: a later tank's protection alone does not
        // bring the report in.
        const std::string_view table = p.tables.front();
        QVariantList values = {key.nmuncp, key.nseqnc};
        const QString sql =
            QStringLiteral("SELECT \"%1\" FROM \"%2\" %3 ORDER BY \"NTANQU\" LIMIT 1")
                .arg(store::table(table).column(p.column).qname(), q(table),
                     whereClause(table, p.conditions, values));
        const QVariant value = db.scalar(sql, values);
        return value.isValid() && !value.isNull();
    }
    }
    return false;
}

} // namespace printing
