#include "printing/Layout.h"

#include "store/CodeLists.h"

#include <map>
#include <stdexcept>
#include <string>

namespace printing {

namespace {

using Kind = Format::Kind;
using Labels = std::vector<std::pair<QString, QString>>;

// ---- formats -----------------------------------------------------------------------------

Format of(Kind kind) {
    Format f;
    f.kind = kind;
    return f;
}

Format date() {
    return of(Kind::Date);
}
Format time() {
    return of(Kind::Time);
}
Format decimal(int places = 2) {
    Format f = of(Kind::Decimal);
    f.places = places;
    return f;
}
Format yesNo() {
    return of(Kind::YesNo);
}
Format ticked() {
    return of(Kind::Ticked);
}
Format zeroBlank() {
    return of(Kind::ZeroBlank);
}
Format cep() {
    return of(Kind::Cep);
}
Format cnpj() {
    return of(Kind::Cnpj);
}
Format cpfCnpj() {
    return of(Kind::CpfCnpj);
}
Format phone(std::string_view areaCode) {
    Format f = of(Kind::Phone);
    f.extra = areaCode;
    return f;
}
Format mask(const char* pattern) {
    Format f = of(Kind::Mask);
    f.mask = QString::fromLatin1(pattern);
    return f;
}
Format map(Labels labels, QString otherwise = {}) {
    Format f = of(Kind::Map);
    f.labels = std::move(labels);
    f.otherwise = std::move(otherwise);
    return f;
}
// A fixed code list of the screens, with their captions.
Format codes(std::string_view list, QString otherwise = {}) {
    Labels labels;
    for (const store::Code& code : store::codeList(list))
        labels.emplace_back(code.code.toString(), code.label);
    return map(std::move(labels), std::move(otherwise));
}
// A dictionary: the row's column against the dictionary's key column.
Format dictionary(std::string_view table, std::string_view key, std::string_view text) {
    Format f = of(Kind::Lookup);
    f.table = table;
    f.text = text;
    f.keys = {{key, {}}};
    return f;
}
// The municipality's name, unless the row holds a name of its own in `ownName`.
Format municipality(std::string_view ownName = {}) {
    Format f = dictionary("MUNCP", "NMUNCP", "DMUNCP");
    f.extra = ownName;
    return f;
}

// ---- code lists of the screens ---------------------------------------------------------

// The captions of a code list of the screens, which the memorial prints as they are offered.
Labels listed(std::string_view list) {
    Labels labels;
    for (const store::Code& code : store::codeList(list))
        labels.emplace_back(code.code.toString(), code.label);
    return labels;
}

const Labels kOwner = listed("IPROPR");
const Labels kSituation = listed("ISITCA");
const Labels kIntegrityReport = listed("ITESTEESTNQ");

// The zone of the activity; a row that the characteristics screen has not completed yet ("N")
// prints no zone.
Labels zones() {
    Labels labels = listed("ILOCLZATIVD");
    labels.emplace_back(QStringLiteral("N"), QString());
    return labels;
}
// The commerce and services; the last one prints without the screen's prompt to specify it.
Labels commerce() {
    Labels labels = listed("NCOMRCSERVC");
    labels.back().second = QStringLiteral("Outros");
    return labels;
}

// ---- shared field groups ---------------------------------------------------------------

Field f(const char* label, std::string_view column, Format format = {}) {
    return {QString::fromUtf8(label), column, std::move(format)};
}

// The company block of distributors and of the owners of equipment.
std::vector<Field> companyBlock() {
    return {
        f("Razão Social", "DRAZAOSOCIL"), f("Nome para contato", "DCONTT"),
        f("Endereço", "DLOGRD"),          f("Número", "NLOGRD"),
        f("Complemento", "DLOGRDCOMPM"),  f("Bairro", "DBAIRR"),
        f("CEP", "CCEP", cep()),          f("Município", "NMUNCPDISTRFORNC", municipality()),
        f("UF", "DMUNCPDISTRFORNC"),      f("Tel.", "NTELFN", phone("NDDD")),
        f("Fax", "NFAX", phone({})),      f("Correio Eletrônico", "DEMAIL"),
    };
}

Section ownerOf(std::string_view table, std::vector<std::string_view> link) {
    return {Section::Kind::Form,
            QStringLiteral("Proprietário"),
            table,
            {},
            {},
            companyBlock(),
            std::move(link),
            {},
            {}};
}

std::vector<Condition> withSelection(std::string_view id) {
    return entry(id).selection;
}

// ---- fuel systems, told once for both kinds ---------------------------------------------

struct Words {
    const char* tank;   // "Tanque" or "Reservatório"
    const char* tankNo; // grid heading of the tank number
    const char* pump;   // "Bomba" or "Unidade de Abastecimento"
    const char* pumpNo; // grid heading of the pump number
    const char* mouth;  // "Boca de Carregamento" or "Alimentação"
    const char* book;   // label of the stock book
    bool underground;
};

const Words kUnderground = {"Tanque",
                            "Nº Tanque",
                            "Bomba",
                            "Nº Bomba",
                            "Boca de Carregamento",
                            "LMC - Livro de Movimentação de Combustíveis",
                            true};
const Words kAboveground = {"Reservatório",
                            "Nº Reservatório",
                            "Unidade de Abastecimento",
                            "Nº Unid. de Abastecimento",
                            "Alimentação",
                            "LMP - Livro de Movimentação de Produtos",
                            false};

Section compartments(const Words& w) {
    return {Section::Kind::Table,
            QStringLiteral("Compartimentos"),
            "TB_POSTOTANQUCOMPR",
            {},
            {"NCOMPR"},
            {
                f("Compartimento", "NCOMPR"),
                f(w.mouth, "NBOCACARRG", dictionary("DICNRBOCACARRG", "NBOCACARRG", "DBOCACARRG")),
                f("Capacidade m³", "QCAPCD"),
                f("Produto Estocado", "NCOMBS", dictionary("DICNRCOMBS", "NCOMBS", "DCOMBS")),
                f("Respiro - Altura (m)", "QRESPRALTRA"),
                f("Distância do Receptor (m)", "QRESPRDISTCRECPT"),
            },
            {"ITANQU", "NTANQU"},
            {},
            {}};
}

Layout tanks(std::string_view id, const Words& w, bool others) {
    std::vector<Field> fields = {f("Nº", "NTANQU"), f("Identificação", "NIDENT"),
                                 f("Data de Instalação", "AINSTL", date())};
    if (w.underground) {
        fields.push_back(
            f("Tipo de Material", "NMATRL", dictionary("DICNRMATRLTANQU", "NMATRL", "DMATRL")));
    } else {
        fields.push_back(f("Tipo", "IPOSCA", map(listed("IPOSCA"))));
        fields.push_back(f("Material", "NMATRL", map(listed("NMATRL.AEREO"))));
        fields.push_back(f("Material - Outros", "DMATRLOUTRO"));
        fields.push_back(f("Tipo de Base", "NBASE", dictionary("DICNRBASE", "NBASE", "DBASE")));
    }
    fields.push_back(f("Nº de Compartimentos", "QCOMPRT"));
    fields.push_back(f("Laudo de Integridade", "ITESTEESTNQ", map(kIntegrityReport)));
    fields.push_back(f("Data do Último Laudo de Integridade", "ATESTEESTNQ", date()));
    fields.push_back(f("Proprietário", "IPROPR", map(kOwner)));
    fields.push_back(f("Situação", "ISITCA", map(kSituation)));

    std::vector<Section> children = {compartments(w)};
    if (others)
        children.push_back(ownerOf("TB_POSTOTANQUPROPR", {"ITANQU", "NTANQU"}));
    return {{{Section::Kind::Form,
              QString::fromUtf8(w.tank),
              "TB_POSTOTANQU",
              withSelection(id),
              {"NTANQU"},
              std::move(fields),
              {},
              std::move(children),
              "NTANQU"}}};
}

Layout pumps(std::string_view id, const Words& w, bool others) {
    std::vector<Field> fields = {
        f("Nº Bico", "NBOMBA"),
        f(w.underground ? "Ident. Bomba" : "Identificação", "NIDENT"),
        f("Data de Instalação", "AINSTL", date()),
        f("Válvula de Retenção", "NVALVLRETNC",
          dictionary("DICNRVALVLRETNC", "NVALVLRETNC", "DVALVLRETNC")),
        f("Tipo do Filtro", "NFILTRO", dictionary("DICNRFILTRO", "NFILTRO", "DFILTRO")),
        f("Laudo de Integridade", "ITESTEESTNQ", map(kIntegrityReport)),
        f("Data do Laudo de Integridade", "ATESTEESTNQ", date()),
        f("Proprietário", "IPROPR", map(kOwner)),
    };
    std::vector<Section> children = {
        {Section::Kind::Table,
         QStringLiteral("Ligações aos Compartimentos"),
         "TB_POSTOBOMBATANQU",
         {},
         {"NTANQU", "NCOMPR"},
         {
             f(w.tankNo, "NTANQU"),
             f("Nº Compartimento", "NCOMPR"),
             f("Material da Linha", "NMATRL", dictionary("DICNRMATRLTANQU", "NMATRL", "DMATRL")),
             f("Tipo da Linha", "ILINHA", map(listed("ILINHA"))),
         },
         {"ITANQU", "NBOMBA"},
         {},
         {}},
    };
    if (others)
        children.push_back(ownerOf("TB_POSTOBOMBAPROPR", {"ITANQU", "NBOMBA"}));
    return {{{Section::Kind::Form,
              QString::fromUtf8(w.pump),
              "TB_POSTOBOMBA",
              withSelection(id),
              {"NBOMBA"},
              std::move(fields),
              {},
              std::move(children),
              "NBOMBA"}}};
}

Layout stockControl(std::string_view id, const Words& w) {
    return {{{Section::Kind::Form,
              QStringLiteral("Sistema de Controle de Estoque"),
              "TB_POSTOCONTRESTQU",
              withSelection(id),
              {},
              {
                  f("Régua", "ICONTRESTQUREGUA", ticked()),
                  f("Hidráulico", "ICONTRESTQUHIDRL", ticked()),
                  f("Eletrônico", "ICONTRESTQUELETR", ticked()),
                  f("Pneumático", "ICONTRESTQUPNEMT", ticked()),
                  f("Magnético", "ICONTRESTQUMAGNT", ticked()),
                  f("Outros", "ICONTRESTQUOUTRO", ticked()),
                  f("Descrição", "DCONTRESTQU"),
                  f(w.book, "SLMC", yesNo()),
                  f("Atualizado?", "SATULZ", yesNo()),
              },
              {},
              {},
              {}}}};
}

Layout leaks(std::string_view id, const Words& w) {
    const Labels places = listed(w.underground ? "ILOCAL.SUBTR" : "ILOCAL.AEREO");
    return {{{Section::Kind::Table,
              QStringLiteral("Histórico de Vazamento"),
              "TB_POSTOVAZMN",
              withSelection(id),
              {"AVAZMN", "ILOCAL", "NTANQU", "NCOMPR", "NBOMBA"},
              {
                  f("Data do Evento", "AVAZMN", date()),
                  f("Local do Vazamento", "ILOCAL", map(places)),
                  f(w.tankNo, "NTANQU", zeroBlank()),
                  f("Nº Compartimento", "NCOMPR", zeroBlank()),
                  f(w.pumpNo, "NBOMBA", zeroBlank()),
                  f("Outros Equipamentos", "DLOCAL"),
                  f("Produto Vazado", "NCOMBS", dictionary("DICNRCOMBS", "NCOMBS", "DCOMBS")),
                  f("Ação Decorrente", "DACAO"),
                  f("Situação da Ação", "DACAOSITCA"),
              },
              {},
              {},
              {}}}};
}

Layout protection(std::string_view id, const Words& w) {
    const Labels kinds = listed(w.underground ? "IPROTC.SUBTR" : "IPROTC.AEREO");
    return {{{Section::Kind::Table,
              QString::fromUtf8(w.underground ? "Proteção Catódica" : "Proteção Contra Corrosão"),
              "TB_POSTOTANQU",
              withSelection(id),
              {"NTANQU"},
              {
                  f(w.underground ? "Nº do Tanque" : "Nº do Reservatório", "NTANQU"),
                  f("Identificação", "NIDENT"),
                  f("Possui Sistema de Proteção", "SSISTMPROTC", map(listed("SIMNAO"))),
                  f("Tipo de Proteção", "IPROTC", map(kinds)),
                  f("Descrição da Proteção", "DPROTC"),
                  f("Frequência", "IFREQNMANTN", map(listed("IFREQNMANTN"))),
                  f("Data da Última Manutenção", "AMANTNULTMA", date()),
              },
              {},
              {},
              {}}}};
}

Layout monitoring(std::string_view id, const Words& w) {
    const Labels equipment = {{"T", QString::fromUtf8(w.tank)},
                              {"B", QString::fromUtf8(w.pump)},
                              {"P", "Empreendimento"},
                              {"O", "Outros"}};
    return {{{Section::Kind::Table,
              QStringLiteral("Monitoramento Ambiental"),
              "TB_POSTOMONTRAMBNT",
              withSelection(id),
              {"NMONTR", "IEQUPM", "NEQUPM"},
              {
                  f("Tipo de Monitoramento", "NMONTR",
                    dictionary("DICNRMONTRAMBNT", "NMONTR", "DMONTR")),
                  f("Equipamento", "IEQUPM", map(equipment)),
                  f("Nº", "NEQUPM", zeroBlank()),
                  f("Descrição", "DMONTR"),
              },
              {},
              {},
              {}}}};
}

// ---- vehicle gas ------------------------------------------------------------------------

Section batteryLinks(std::string_view table, std::string_view link) {
    return {Section::Kind::Table,
            QStringLiteral("Ligações às Baterias"),
            table,
            {},
            {"NBATRI"},
            {f("Nº da Bateria", "NBATRI"),
             f("Material da Linha", "NMATRL", dictionary("DICNRMATRLTANQU", "NMATRL", "DMATRL"))},
            {link},
            {},
            {}};
}

Layout batteries(std::string_view id, bool others) {
    std::vector<Field> fields = {
        f("Nº Bateria", "NBATRI"),
        f("Data da Instalação", "AINSTL", date()),
        f("Nº de Cilindros", "QCILND"),
        f("Data da Última Manutenção", "AMANTNULTMA", date()),
        f("Proprietário", "IPROPR", map(kOwner)),
        f("Situação", "ISITCA", map(kSituation)),
    };
    if (!others) {
        return {{{Section::Kind::Table,
                  QStringLiteral("Baterias de Armazenagem"),
                  "TB_POSTOGASBATRI",
                  withSelection(id),
                  {"NBATRI"},
                  std::move(fields),
                  {},
                  {},
                  {}}}};
    }
    return {{{Section::Kind::Form,
              QStringLiteral("Bateria"),
              "TB_POSTOGASBATRI",
              withSelection(id),
              {"NBATRI"},
              std::move(fields),
              {},
              {ownerOf("TB_POSTOGASBATRIPROPR", {"NBATRI"})},
              "NBATRI"}}};
}

Layout compressors(std::string_view id, bool others) {
    std::vector<Section> children = {batteryLinks("TB_POSTOGASCOMPRBATRI", "NCOMPR")};
    if (others)
        children.push_back(ownerOf("TB_POSTOGASCOMPRPROPR", {"NCOMPR"}));
    return {{{Section::Kind::Form,
              QStringLiteral("Compressor"),
              "TB_POSTOGASCOMPR",
              withSelection(id),
              {"NCOMPR"},
              {
                  f("Nº Compressor", "NCOMPR"),
                  f("Identificação", "NIDENT"),
                  f("Data da Instalação", "AINSTL", date()),
                  f("Data da Última Manutenção", "AMANTNULTMA", date()),
                  f("Proprietário", "IPROPR", map(kOwner)),
                  f("Situação", "ISITCA", map(kSituation)),
              },
              {},
              std::move(children),
              "NCOMPR"}}};
}

Layout dispensers(std::string_view id, bool others) {
    std::vector<Section> children = {batteryLinks("TB_POSTOGASBOMBABATRI", "NBOMBA")};
    if (others)
        children.push_back(ownerOf("TB_POSTOGASBOMBAPROPR", {"NBOMBA"}));
    return {{{Section::Kind::Form,
              QStringLiteral("Unidade de Abastecimento"),
              "TB_POSTOGASBOMBA",
              withSelection(id),
              {"NBOMBA"},
              {
                  f("Nº Bomba", "NBOMBA"),
                  f("Identificação", "NIDENT"),
                  f("Nº Bicos", "NBICO"),
                  f("Data da Instalação", "AINSTL", date()),
                  f("Data da Última Manutenção", "AMANTNULTMA", date()),
                  f("Proprietário", "IPROPR", map(kOwner)),
                  f("Situação", "ISITCA", map(kSituation)),
              },
              {},
              std::move(children),
              "NBOMBA"}}};
}

// ---- the establishment ------------------------------------------------------------------

Section establishment() {
    return {Section::Kind::Form,
            QStringLiteral("Identificação"),
            "EMPRS",
            {},
            {},
            {
                f("Razão Social", "DRAZAOSOCIL"),
                f("Nome Fantasia", "DFANTS"),
                f("Endereço", "DLOGRD"),
                f("Número", "NLOGRD"),
                f("Complemento", "DLOGRDCOMPM"),
                f("Bairro", "DBAIRR"),
                f("CEP", "CCEP", cep()),
                f("Município", "NMUNCP", municipality()),
                f("Tel.", "NTELFN", phone("NDDD")),
                f("Fax", "NTELEX", phone("NDDD")),
                f("Correio Eletrônico", "DEMAIL"),
                f("CNPJ Nº", "CCGC", cnpj()),
                f("INSC. Estadual", "NINSCRESTDL"),
                f("INSC. Municipal", "NINSCRMUNCP"),
                f("CÓD. Atividade", "CIBGE", mask("@@.@@.@@-@")),
                f("Atividade", "DATIVD"),
                f("Latitude (grau/min/seg)", "QLATTD", mask("@@:@@:@@")),
                f("Longitude (grau/min/seg)", "QLONGT", mask("@@:@@:@@")),
            },
            {},
            {},
            {}};
}

Layout identification() {
    return {{
        establishment(),
        {Section::Kind::Form,
         QStringLiteral("Empreendimento"),
         "TB_POSTO",
         {},
         {},
         {
             f("Tipo de Empreendimento", "IESTBL", map(listed("IESTBL"))),
             f("Bandeira", "DBANDR"),
             f("REG. ANP Atual", "NANP"),
             f("REG. ANP Anterior", "NANPANTRR"),
             f("Data de Início das Atividades no Local", "AINICIATIVD", date()),
             f("Data do Levantamento", "ALEVNT", date()),
         },
         {},
         {},
         {}},
        {Section::Kind::Form,
         QStringLiteral("Responsável"),
         "TB_POSTORESPN",
         {},
         {},
         {
             f("Titular da Razão Social", "DRESPN"),
             f("DOC. Identidade", "NRG"),
             f("Órgão Expedidor", "DRGORGAO"),
             f("UF", "IUF"),
             f("CPF/CNPJ", "CCPF", cpfCnpj()),
             f("Endereço", "DLOGRD"),
             f("Número", "NLOGRD"),
             f("Complemento", "DLOGRDCOMPM"),
             f("Bairro", "DBAIRR"),
             f("CEP", "CCEP", cep()),
             f("Município", "NMUNCPRESPN", municipality("DMUNCPRESPN")),
             f("Tel.", "NTELFN", phone("NDDD")),
             f("Fax", "NFAX", phone("NDDD")),
             f("Correio Eletrônico", "DEMAIL"),
         },
         {},
         {},
         {}},
        {Section::Kind::Form,
         QStringLiteral("Pessoas para Contato"),
         "TB_POSTOCONTT",
         {},
         {},
         {
             f("Em situações rotineiras: Nome", "DNOMEROTNR"),
             f("Cargo", "DCARGOROTNR"),
             f("Tel.", "NTELFNROTNR", phone("NDDDROTNR")),
             f("Fax", "NFAX", phone("NDDDROTNR")),
             f("Correio Eletrônico", "DEMAILROTNR"),
             f("Celular", "NCELLRROTNR", phone({})),
             f("Em situações emergenciais: Nome", "DNOMEEMERG"),
             f("Cargo", "DCARGOEMERG"),
             f("Tel.", "NTELFNEMERG", phone("NDDDEMERG")),
             f("Fax", "NFAXEMERG", phone("NDDDEMERG")),
             f("Correio Eletrônico", "DEMAILEMERG"),
             f("Celular", "NCELLREMERG", phone({})),
             f("Pager Cod.", "NPAGEREMERG"),
             f("Tel. Acionamento", "NTELFNACINM", phone("NDDDACINM")),
         },
         {},
         {},
         {}},
    }};
}

Layout distributors() {
    std::vector<Field> fields = {f("Tipo", "IDISTRFORNC", map(listed("IDISTRFORNC")))};
    for (Field& field : companyBlock())
        fields.push_back(std::move(field));
    fields[3].label = QStringLiteral("Endereço P/ Correspondência");
    return {{{Section::Kind::Form,
              QStringLiteral("Empresa"),
              "TB_POSTODISTRFORNC",
              {},
              {"IDISTRFORNC", "NIDENT"},
              std::move(fields),
              {},
              {},
              {}}}};
}

Layout characteristics() {
    return {{
        {Section::Kind::Form,
         QStringLiteral("Características Gerais"),
         "TB_POSTO",
         {},
         {},
         {
             f("Classificação (NBR 13.786)", "ICLASSABNT", map(listed("ICLASSABNT"))),
             f("Localização da Atividade", "ILOCLZATIVD", map(zones())),
             f("Área Total do Terreno (m²)", "QAREATERRN", decimal()),
             f("Área Construída (m²)", "QAREACONST", decimal()),
             f("Atividade ao Ar Livre (m²)", "QAREAARLIVRE", decimal()),
             f("Funcionários - Administração", "QFUNCNADMNS"),
             f("Funcionários - Operação", "QFUNCNOPERC"),
             f("Horário de Funcionamento - Das", "HINICIFUNCM", time()),
             f("Horário de Funcionamento - às", "HTERMNFUNCM", time()),
             f("Jornada - Horas/Dia", "NHORASJORNDDIA"),
             f("Jornada - Dias/Mês", "NDIASJORNDMES"),
             f("Jornada - Dias/Ano", "NDIASJORNDANO"),
         },
         {},
         {},
         {}},
        {Section::Kind::Table,
         QStringLiteral("Comércio e Serviços Agregados ao Empreendimento"),
         "TB_POSTOCOMRCSERVC",
         {},
         {"NCOMRCSERVC"},
         {
             f("Comércio ou Serviço", "NCOMRCSERVC", map(commerce())),
             f("Especificação", "DCOMRCSERVC"),
         },
         {},
         {},
         {}},
        {Section::Kind::Table,
         QStringLiteral("Características da Região Vizinha ao Empreendimento"),
         "TB_POSTOUSOOCUPCSOLO",
         {},
         {"NUSOOCUPCSOLO"},
         {
             f("Uso e Ocupação do Solo na Vizinhança", "NUSOOCUPCSOLO",
               map(listed("NUSOOCUPCSOLO"))),
         },
         {},
         {},
         {}},
    }};
}

Layout basins() {
    Format tankName = of(Kind::Lookup);
    tankName.table = "TB_POSTOTANQU";
    tankName.text = "NIDENT";
    tankName.keys = {
        {"NMUNCP", "NMUNCP"}, {"NSEQNC", "NSEQNC"}, {"ITANQU", "ITANQU"}, {"NTANQU", "NTANQU"}};
    return {{{Section::Kind::Form,
              QStringLiteral("Bacia"),
              "TB_POSTOBACIA",
              {},
              {"NBACIA"},
              {
                  f("Identificação", "NBACIA"),
                  f("Capacidade de Contenção (m³)", "QCONTN", decimal()),
                  f("Tipo de Revestimento", "IREVST"),
                  f("Sistema de Drenagem", "SDRENG", yesNo()),
                  f("Destino", "DDESTN"),
              },
              {},
              {{Section::Kind::Table,
                QStringLiteral("Reservatórios da Bacia"),
                "TB_POSTOBACIARESRV",
                {},
                {"ITANQU", "NTANQU"},
                {f("Nº Reservatório", "NTANQU"), f("Identificação", "NTANQU", tankName)},
                {"NBACIA"},
                {},
                {}}},
              "NBACIA"}}};
}

Layout movement() {
    return {{{Section::Kind::Table,
              QStringLiteral("Movimentação Mensal Média"),
              "TB_POSTOMOVMN",
              {},
              {"NCOMBS", "NSEQNCCOMBS"},
              {
                  f("Produto", "NCOMBS", dictionary("DICNRCOMBS", "NCOMBS", "DCOMBS")),
                  f("Produto - Outros", "DCOMBS"),
                  f("Quantidade", "QCOMBS", decimal()),
                  f("Unidade", "CUNIDDMEDDA",
                    dictionary("DICNRUNIDDMEDDA", "CUNIDDMEDDA", "CSIGLAUNIDDMEDDA")),
              },
              {},
              {},
              {}}}};
}

std::vector<Field> paving(bool unpaved) {
    std::vector<Field> fields;
    if (unpaved)
        fields.push_back(f("S/Pavimento", "SSEMPAVMN", yesNo()));
    for (Field field : {f("Concreto", "SCONCR", yesNo()), f("Asfalto", "SASFLT", yesNo()),
                        f("Blocrete", "SBLOCR", yesNo()), f("Paralelepípedo", "SPARLL", yesNo()),
                        f("Outros", "SOUTRO", yesNo())})
        fields.push_back(std::move(field));
    return fields;
}

Section area(const char* heading, std::string_view table, std::vector<Field> fields) {
    return {Section::Kind::Form,
            QString::fromUtf8(heading),
            table,
            {},
            {},
            std::move(fields),
            {},
            {},
            {}};
}

Layout serviceAreas() {
    std::vector<Field> operation = paving(true);
    operation.insert(operation.end(),
                     {f("Área de Operação c/ Canaletas de Drenagem", "SDRENG", yesNo()),
                      f("Interligadas ao S.A.O", "SDRENGSAO", yesNo()),
                      f("Demais Áreas c/ Canaletas de Drenagem", "SDRENGDEMAS", yesNo()),
                      f("Interligadas ao S.A.O", "SDRENGDEMASSAO", yesNo())});
    std::vector<Field> washing = paving(true);
    washing.insert(washing.end(), {f("Coleta de Águas Servidas", "SCOLTAAGUASERVD", yesNo()),
                                   f("Caixa de Retenção de Sólidos", "SCAIXARETNCSOLDO", yesNo()),
                                   f("Interligadas ao S.A.O.", "SSAO", yesNo()),
                                   f("S.A.O. Próprio", "SSAOPROPR", yesNo()),
                                   f("S.A.O. da Pista", "SSAOPISTA", yesNo())});
    std::vector<Field> unloading = paving(false);
    unloading.insert(unloading.end(),
                     {f("Área de Descarga c/ Canaletas de Drenagem", "SDRENG", yesNo()),
                      f("Interligadas ao S.A.O.", "SDRENGSAO", yesNo())});
    return {{
        area("Área Operacional", "TB_POSTOAREAABAST", std::move(operation)),
        area("Troca de Óleo", "TB_POSTOAREATROCAOLEO", paving(true)),
        area("Lavagem de Veículos", "TB_POSTOAREALAVAGEM", std::move(washing)),
        area("Área de Descarga", "TB_POSTOAREADESCARGA", std::move(unloading)),
    }};
}

Section listOf(const char* heading, std::string_view table, std::vector<std::string_view> order,
               std::vector<Field> fields) {
    return {Section::Kind::Table,
            QString::fromUtf8(heading),
            table,
            {},
            std::move(order),
            std::move(fields),
            {},
            {},
            {}};
}

Layout water() {
    return {{listOf("Consumo Mensal de Água (m³/mês)", "TB_POSTOBALNCHIDRC",
                    {"IFONTEABAST", "NFONTEABASTIDENT"},
                    {
                        f("Fonte de Abastecimento", "IFONTEABAST", codes("IFONTEABAST")),
                        f("Identificação", "NFONTEABASTIDENT", zeroBlank()),
                        f("Descrição", "DFONTEABAST"),
                        f("Sanitário", "QCONSMSANTR", decimal()),
                        f("Comercial", "QCONSMCOMRC", decimal()),
                    })}};
}

Layout effluents() {
    return {{listOf(
        "Efluentes Líquidos", "TB_POSTOEFLNTLIQDO", {"IEFLNTLIQDO"},
        {
            // A kind the list does not know reads as the last one.
            f("Tipo", "IEFLNTLIQDO", codes("IEFLNTLIQDO", QStringLiteral("Drenagem de Tanque"))),
            f("Quantidade (m³/mês)", "QEFLNTLIQDO", decimal()),
            f("Sistema de Tratamento", "NTRATM", dictionary("DICNRTRATM", "NTRATM", "DTRATM")),
            f("Disposição Final", "NDISPSFINAL",
              dictionary("DICNRDISPSFINAL", "NDISPSFINAL", "DDISPSFINAL")),
        })}};
}

Layout waste() {
    return {{listOf("Resíduos", "TB_POSTORESDU", {"IRESDU"},
                    {
                        f("Tipo", "IRESDU", codes("IRESDU")),
                        f("Descrição", "DRESDU"),
                        f("Quantidade", "QRESDU", decimal()),
                        f("Unidade", "CUNIDDMEDDA",
                          dictionary("DICNRUNIDDMEDDA", "CUNIDDMEDDA", "CSIGLAUNIDDMEDDA")),
                        f("Armazenamento", "CDESTNRESDU",
                          dictionary("DICNRDESTNRESDU", "CDESTNRESDU", "DDESTNRESDU")),
                        f("Disposição Final", "CDESTNRESDU1",
                          dictionary("DICNRDESTNRESDU", "CDESTNRESDU", "DDESTNRESDU")),
                    })}};
}

Layout airEmissions() {
    return {{listOf(
        "Emissões Atmosféricas", "TB_POSTOPREVNEMISSAR", {"IFONTE"},
        {
            f("Fonte de Emissão", "IFONTE", codes("IFONTE.EMISSAR", QStringLiteral("Outros"))),
            f("Descrição", "DFONTEOUTRO"),
            f("Dispositivo de Controle", "DDISPSCONTR"),
        })}};
}

Layout noise() {
    return {{listOf("Ruídos", "TB_POSTORUIDO", {"IFONTE"},
                    {
                        f("Equipamento", "IFONTE", codes("IFONTE.RUIDO", QStringLiteral("Outros"))),
                        f("Descrição", "DFONTEOUTRO"),
                        f("Quantidade", "QFONTE", decimal(-1)),
                        f("Hora de Início de Funcionamento", "HINICIFUNCM", time()),
                        f("Hora de Término de Funcionamento", "HTERMNFUNCM", time()),
                        // A single measure is stored as its caption, which reads as itself.
                        f("Medida de Controle", "DMEDDACONTR", codes("DMEDDACONTR")),
                    })}};
}

Layout accidentPrevention() {
    return {{area("Prevenção de Acidentes e Atendimentos Emergenciais", "TB_POSTOPREVNACIDN",
                  {
                      f("Data da Aprovação pelo Corpo de Bombeiros", "AAPRVC", date()),
                      f("Nº do Auto de Vistoria", "NAUTOVISTR"),
                      f("Validade", "AAUTOVISTR", date()),
                      f("Possui Equipe de Pronto Atendimento à Emergência", "SEQUPEEMERG", yesNo()),
                      f("Equipe Própria", "SEQUPEEMERGPROPR", yesNo()),
                      f("Equipe Terceirizada", "SEQUPEEMERGTERCR", yesNo()),
                      f("Companhia Distribuidora", "SEQUPEEMERGDISTR", yesNo()),
                      f("Empresa", "DRAZAOSOCIL"),
                      f("Contato", "DCONTT"),
                      f("Cargo", "DCARGO"),
                      f("Tel. Com.", "NTELFN", phone("NDDD")),
                      f("Celular", "NCELLR", phone({})),
                      f("Pager Cod.", "NPAGER"),
                      f("Tel. Acionamento", "NTELFNACINM", phone("NDDDACINM")),
                  })}};
}

Layout delivery() {
    return {{area("Declaração de Entrega", "TB_POSTOENTRG",
                  {
                      f("Nome", "DNOME"),
                      f("Cargo", "DCARGO"),
                      f("RG", "NRG"),
                      f("Anexos", "IANEXO", yesNo()),
                      f("Quantidade", "NQUANT"),
                  })}};
}

Layout protocol() {
    Section s = establishment();
    s.heading = QStringLiteral("Empreendimento");
    return {{std::move(s)}};
}

std::map<std::string_view, Layout> makeLayouts() {
    std::map<std::string_view, Layout> all;
    all["rpt01_ident"] = identification();
    all["rpt03_distrfornc"] = distributors();
    all["rpt02_carct"] = characteristics();
    all["rpt04_tanqusubtr"] = tanks("rpt04_tanqusubtr", kUnderground, false);
    all["rpt06_tanqusubtrpropr"] = tanks("rpt06_tanqusubtrpropr", kUnderground, true);
    all["rpt08_bombasubtr"] = pumps("rpt08_bombasubtr", kUnderground, false);
    all["rpt10_bombasubtrpropr"] = pumps("rpt10_bombasubtrpropr", kUnderground, true);
    all["rpt12_contrestqusubtr"] = stockControl("rpt12_contrestqusubtr", kUnderground);
    all["rpt14_histrvazmnsubtr"] = leaks("rpt14_histrvazmnsubtr", kUnderground);
    all["rpt16_protccatdc"] = protection("rpt16_protccatdc", kUnderground);
    all["rpt30_monitambntsubtr"] = monitoring("rpt30_monitambntsubtr", kUnderground);
    all["rpt05_tanquaereo"] = tanks("rpt05_tanquaereo", kAboveground, false);
    all["rpt07_tanquaereopropr"] = tanks("rpt07_tanquaereopropr", kAboveground, true);
    all["rpt09_bombaaereo"] = pumps("rpt09_bombaaereo", kAboveground, false);
    all["rpt11_bombaaereopropr"] = pumps("rpt11_bombaaereopropr", kAboveground, true);
    all["rpt13_contrestquaereo"] = stockControl("rpt13_contrestquaereo", kAboveground);
    all["rpt15_histrvazmnaereo"] = leaks("rpt15_histrvazmnaereo", kAboveground);
    all["rpt17_protccorrs"] = protection("rpt17_protccorrs", kAboveground);
    all["rpt31_monitambntaereo"] = monitoring("rpt31_monitambntaereo", kAboveground);
    all["rpt18_baciacontn"] = basins();
    all["rpt19_batriarmaz"] = batteries("rpt19_batriarmaz", false);
    all["rpt20_batriarmazpropr"] = batteries("rpt20_batriarmazpropr", true);
    all["rpt21_compr"] = compressors("rpt21_compr", false);
    all["rpt22_comprpropr"] = compressors("rpt22_comprpropr", true);
    all["rpt23_uniddabatc"] = dispensers("rpt23_uniddabatc", false);
    all["rpt24_uniddabatcpropr"] = dispensers("rpt24_uniddabatcpropr", true);
    all["rpt25_movmnmensalmedia"] = movement();
    all["rpt26_areasserv"] = serviceAreas();
    all["rpt27_inforutilzagua"] = water();
    all["rpt28_eflntliqds"] = effluents();
    all["rpt29_residuos"] = waste();
    all["rpt32_emissatmosféricas"] = airEmissions();
    all["rpt35_ruidos"] = noise();
    all["rpt33_prevnacidn"] = accidentPrevention();
    all["rpt34_entrega"] = delivery();
    all["rpt36_protocolo"] = protocol();
    return all;
}

} // namespace

const Layout& layout(std::string_view id) {
    static const std::map<std::string_view, Layout> kLayouts = makeLayouts();
    const auto it = kLayouts.find(id);
    if (it == kLayouts.end())
        throw std::out_of_range("no layout " + std::string(id));
    return it->second;
}

} // namespace printing
