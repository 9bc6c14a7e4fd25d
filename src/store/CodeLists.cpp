#include "store/CodeLists.h"

#include <map>
#include <stdexcept>
#include <string>

namespace store {

namespace {

Code text(const char* code, const char* label) {
    return {QString::fromUtf8(code), QString::fromUtf8(label)};
}

Code number(int code, const char* label) {
    return {code, QString::fromUtf8(label)};
}

// Nothing stored: the unticked state of a box that stores a letter when ticked.
Code none() {
    return {QVariant(), QStringLiteral("Não")};
}

const std::map<std::string_view, CodeList>& lists() {
    static const std::map<std::string_view, CodeList> all = {
        // The owner of a tank, pump, battery, dispenser or compressor.
        {"IPROPR", {text("P", "Proprietário"), text("D", "Distribuidora"), text("O", "Outros")}},
        // Whether a piece of equipment is in use.
        {"ISITCA", {text("A", "Em Uso"), text("D", "Desativado")}},
        // The condition of the last integrity report.
        {"ITESTEESTNQ",
         {text("R", "Realizado"), text("NR", "Não Realizado"), text("ND", "Não Disponível")}},
        // How an aboveground tank lies.
        {"IPOSCA", {text("H", "Horizontal"), text("V", "Vertical")}},
        // The materials of an aboveground tank: a fixed list instead of the dictionary's.
        {"NMATRL.AEREO", {number(10, "Aço"), number(9, "Outros")}},
        // The kind of a pump's line.
        {"ILINHA", {text("S", "Sucção"), text("P", "Pressurizada")}},
        // The kind of establishment of the register.
        {"IESTBL",
         {text("R", "Posto Revendedor"), text("I", "Instalação de Sistema Retalhista"),
          text("A", "Posto de Abastecimento"), text("F", "Posto Flutuante")}},
        // The class of the station under NBR 13.786.
        {"ICLASSABNT",
         {number(0, "Classe 0"), number(1, "Classe 1"), number(2, "Classe 2"),
          number(3, "Classe 3")}},
        // The zone of the activity; the letters of the last two do not follow their captions.
        {"ILOCLZATIVD",
         {text("U", "Zona Urbana"), text("R", "Zona Rural"), text("E", "Zona Fluvial /Lacustre"),
          text("C", "Zona Marítima")}},
        // Yes and no as the database's true and false.
        {"SIMNAO.LOGICO", {number(-1, "Sim"), number(0, "Não")}},
        // Yes and no as a letter.
        {"SIMNAO", {text("S", "Sim"), text("N", "Não")}},
        // How often a protection is maintained.
        {"IFREQNMANTN",
         {text("D", "Diária"), text("S", "Semanal"), text("Q", "Quinzenal"), text("M", "Mensal"),
          text("B", "Bimestral"), text("E", "Semestral"), text("A", "Anual")}},
        // The corrosion protection of an underground tank, and of an aboveground one.
        {"IPROTC.SUBTR",
         {text("A", "Anodo de Sacrifício"), text("C", "Corrente Impressa"), text("O", "Outros")}},
        // "Sem proteção" stores S, which the memorial prints back with this caption.
        {"IPROTC.AEREO",
         {text("S", "Sem proteção"), text("P", "Primer"), text("R", "Primer e Resina Epoxi"),
          text("O", "Outros")}},
        // The commerce and services of the establishment, by the number of their check box.
        {"NCOMRCSERVC",
         {
             number(1, "Lavagem Simples/Completa"),
             number(2, "Lava Rápido"),
             number(3, "Pulverização"),
             number(4, "Lubrificação"),
             number(5, "Borracharia"),
             number(6, "Auto Elétrico"),
             number(7, "Loja de Auto Peças"),
             number(8, "Estacionamento"),
             number(9, "Bar/Lanchonete"),
             number(10, "Garagem"),
             number(11, "Loja de Conveniências"),
             number(12, "Ducha"),
             number(13, "Troca de Óleo"),
             number(14, "Mecânico"),
             number(15, "Restaurante"),
             number(16, "Venda de GLP"),
             number(17, "Outros (Especificar):"),
         }},
        // What lies around the establishment, by the number of its check box.
        {"NUSOOCUPCSOLO",
         {
             number(1, "EDIFÍCIO MULTIFAMILIAR COM ATÉ QUATRO ANDARES, SEM GARAGEM SUBTERRÂNEA "
                       "(NBR 13786)"),
             number(2, "EDIFÍCIO MULTIFAMILIAR COM MAIS DE QUATRO ANDARES, COM GARAGEM SUBTERRÂNEA "
                       "(NBR 13786)"),
             number(3, "EDIFÍCIOS DE ESCRITÓRIO COMERCIAIS COM MAIS DE QUATRO ANDARES (NBR 13786)"),
             number(4, "FAVELA EM COTA IGUAL OU INFERIOR (NBR 13786)"),
             number(5, "ESCOLA"),
             number(6, "CRECHE"),
             number(7, "HOSPITAL (NBR 13786)"),
             number(8, "TEMPLO RELIGIOSO (NBR 13786)"),
             number(9, "CASA DE ESPETÁCULOS (NBR 13786)"),
             number(10, "EDIFÍCIOS TOMBADOS PELO PATRIMÔNIO HISTÓRICO"),
             number(11, "ATIVIDADE INDUSTRIAL DE RISCO (NB-16) (NBR 13786)"),
             number(12, "GARAGEM SUBTERRÂNEA (NBR 13786)"),
             number(13, "TÚNEL (NBR 13786)"),
             number(14, "FERROVIA/METRÔ DE SUPERFÍCIE"),
             number(15, "METRÔ (NBR 13786)"),
             number(16, "RODOVIA"),
             number(17, "GALERIA DE DRENAGEM DE ÁGUAS PLUVIAIS(NBR 13786)"),
             number(18, "REDE DE ÁGUA PARA ABASTECIMENTO (NBR 13786)"),
             number(19, "REDE DE ESGOTO (NBR 13786)"),
             number(20, "FOSSA (NBR 13786)"),
             number(21, "REDE DE GÁS (NBR 13786)"),
             number(22, "REDE ELÉTRICA (NBR 13786)"),
             number(23, "AEROPORTO"),
             number(24, "ÁREA MILITAR"),
             number(25, "CEMITÉRIO"),
             number(26, "PARQUE, ÁREA VERDE"),
             number(27, "PARQUE INFANTIL"),
             number(28, "ÁREA DE DESPORTO"),
             number(29, "ÁREA AGRÍCOLA"),
             number(30, "ÁREA PECUÁRIA"),
             number(31, "HORTAS"),
             number(32, "MINERAÇÃO"),
             number(33, "MATA NATURAL"),
             number(34, "ÁREA DE PROTEÇÃO AMBIENTAL"),
             number(35, "ÁREA DE PROTEÇÃO DE MANANCIAIS"),
             number(36, "CORPOS D` ÁGUA DESTINADOS AO ABASTECIMENTO PÚBLICO (NBR 13786)"),
             number(37,
                    "CORPOS D` ÁGUA DESTINADOS À PROTEÇÃO DAS COMUNIDADES AQUÁTICAS (NBR 13786)"),
             number(38, "CORPOS D` ÁGUA DESTINADOS À RECREAÇÃO DE CONTATO PRIMÁRIO (NBR 13786)"),
             number(39, "CORPOS D` ÁGUA DESTINADOS À IRRIGAÇÃO (NBR 13786)"),
             number(40, "CORPOS D` ÁGUA DESTINADOS À CRIAÇÃO DE ESPÉCIES PARA A ALIMENTAÇÃO HUMANA "
                        "(NBR 13786)"),
             number(41, "UTILIZAÇÃO DE ÁGUA SUBTERRÂNEA PARA ABASTECIMENTO PÚBLICO (NBR 13786)"),
             number(42, "UTILIZAÇÃO DE ÁGUA SUBTERRÂNEA PARA ABASTECIMENTO DOMÉSTICO (NBR 13786)"),
             number(43, "UTILIZAÇÃO DE ÁGUA SUBTERRÂNEA PARA USO INDUSTRIAL"),
             number(44, "ÁREA INUNDÁVEL, VÁRZEA"),
             number(45, "LAGOA, REPRESA, OCEANO, OUTROS CORPOS D` ÁGUA"),
             number(46, "GASODUTO"),
             number(47, "OLEODUTO"),
         }},
        // Where a leak was found, underground and aboveground.
        {"ILOCAL.SUBTR",
         {text("T", "Tanque"), text("B", "Bomba"), text("L", "Linha"), text("R", "Respiro"),
          text("V", "Válvula Extratora"), text("F", "Filtro"), text("C", "Boca de carregamento"),
          text("O", "Outros Equipamentos")}},
        {"ILOCAL.AEREO",
         {text("T", "Reservatório"), text("B", "Unidade de Abastecimento"), text("L", "Linha"),
          text("R", "Respiro"), text("F", "Filtro"), text("C", "Boca de carregamento"),
          text("O", "Outros Equipamentos")}},
        // What was done about a leak and how far it went: the caption is what is stored.
        {"DACAO",
         {text("Substituição", "Substituição"), text("Desativação", "Desativação"),
          text("Impermeabilização", "Impermeabilização"), text("Reparo", "Reparo")}},
        {"DACAOSITCA",
         {text("Finalizada", "Finalizada"), text("Em Andamento", "Em Andamento"),
          text("Suspensa", "Suspensa"), text("Abandonada", "Abandonada")}},
        // The lining of a containment basin; "Outros" stores the text typed for it instead.
        {"IREVST",
         {text("Concreto", "Concreto"), text("Manta", "Manta"),
          text("Solo Natural", "Solo Natural"), text("Outros", "Outros")}},
        // Yes and no as the numbers that a basin's drainage and a stock book's update store.
        {"SDRENG", {number(-1, "Sim"), number(0, "Não")}},
        {"SATULZ", {number(1, "Sim"), number(0, "Não")}},
        // The ways of stock control: the letter when ticked, Null when not.
        {"ICONTRESTQUREGUA", {text("R", "Régua"), none()}},
        {"ICONTRESTQUHIDRL", {text("H", "Hidráulico"), none()}},
        {"ICONTRESTQUELETR", {text("E", "Eletrônico"), none()}},
        {"ICONTRESTQUPNEMT", {text("P", "Pneumático"), none()}},
        {"ICONTRESTQUMAGNT", {text("M", "Magnético"), none()}},
        {"ICONTRESTQUOUTRO", {text("O", "Outros"), none()}},
        // A distributor or a supplier.
        {"IDISTRFORNC", {text("D", "Distribuidora"), text("F", "Fornecedora")}},
        // The sources of water; the last is the total row that the program keeps, never typed.
        {"IFONTEABAST",
         {text("1P", "Poços"), text("2S", "Superficial"), text("3R", "Rede"), text("4O", "Outros"),
          text("5T", "Total (m³/mês)")}},
        // The kinds of liquid effluent.
        {"IEFLNTLIQDO",
         {text("D", "Esgoto Doméstico"), text("S", "Efluentes de Serviço"),
          text("T", "Drenagem de Tanque")}},
        // The kinds of solid waste.
        {"IRESDU",
         {text("D", "Doméstico"), text("Q", "Óleo Queimado"), text("L", "Limpeza de Tanque"),
          text("C", "Caixa de Retenção de Sólidos"), text("E", "Embalagens"), text("S", "Estopa"),
          text("F", "Filtros"), text("O", "Outros")}},
        // The units of a quantity of waste: numbers of the unit dictionary, not consecutive.
        {"CUNIDDMEDDA.RESDU",
         {number(2408, "kg/mês"), number(2404, "kg/ano"), number(2310, "L/mês"),
          number(2311, "L/ano")}},
        // The sources of atmospheric emission.
        {"IFONTE.EMISSAR",
         {text("R", "Respiro"), text("B", "Bico de Abastecimento"),
          text("C", "Braço de Carregamento"), text("T", "Tubo de Descarga"), text("O", "Outros")}},
        // The noisy equipment.
        {"IFONTE.RUIDO",
         {text("A", "Aspirador"), text("C", "Compressor para Serviço"),
          text("N", "Compressor para GNV"), text("G", "Gerador"),
          text("V", "Ventilador para secagem de veículos"), text("O", "Outros")}},
        // The noise control measures: 1 lay-out, 2 acoustic insulation, 3 new equipment, 4
        // anti-vibration base; a combination is its digits in rising order, while a single
        // measure has always been stored as its caption.
        {"DMEDDACONTR",
         {text("Adequação de Lay-out", "Adequação de Lay-out"),
          text("Isolamento Acústico", "Isolamento Acústico"),
          text("Substituição de Equipamento", "Substituição de Equipamento"),
          text("Base Anti-Vibratória", "Base Anti-Vibratória"),
          text("12", "Adequação de Lay-out e Isolamento Acústico"),
          text("123", "Adequação de Lay-out, Isolamento Acústico e Substituição de Equipamento"),
          text("1234", "Adequação de Lay-out, Isolamento Acústico, Substituição de Equipamento e "
                       "Base Anti-Vibratória"),
          text("13", "Adequação de Lay-out e Substituição de Equipamento"),
          text("134", "Adequação de Lay-out, Substituição de Equipamento e Base Anti-Vibratória"),
          text("14", "Adequação de Lay-out e Base Anti-Vibratória"),
          text("124", "Adequação de Lay-out, Isolamento Acústico e Base Anti-Vibratória"),
          text("23", "Isolamento Acústico e Substituição de Equipamento"),
          text("24", "Isolamento Acústico e Base Anti-Vibratória"),
          text("234", "Isolamento Acústico, Substituição de Equipamento e Base Anti-Vibratória"),
          text("9", "Outras"), text("0", "Nenhuma")}},
        // Yes and no as the true and false of a stored boolean.
        {"SEQUPEEMERG", {number(-1, "Sim"), number(0, "Não")}},
    };
    return all;
}

} // namespace

const CodeList& codeList(std::string_view name) {
    const auto it = lists().find(name);
    if (it == lists().end())
        throw std::out_of_range("no code list " + std::string(name));
    return it->second;
}

bool hasCodeList(std::string_view name) {
    return lists().count(name) > 0;
}

std::vector<std::string_view> codeListNames() {
    std::vector<std::string_view> names;
    for (const auto& entry : lists())
        names.push_back(entry.first);
    return names;
}

QString labelOf(std::string_view list, const QVariant& code) {
    for (const Code& c : codeList(list)) {
        if (c.code.toString() == code.toString())
            return c.label;
    }
    return {};
}

} // namespace store
