#include "store/CodeLists.h"

#include <map>
#include <stdexcept>
#include <string>

namespace store {

namespace {

Code text(const char* code, const char* label) {
    return {QString::fromLatin1(code), QString::fromUtf8(label)};
}

Code number(int code, const char* label) {
    return {code, QString::fromUtf8(label)};
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
        // Yes and no as a letter.
        {"SIMNAO", {text("S", "Sim"), text("N", "Não")}},
        // How often a protection is maintained.
        {"IFREQNMANTN",
         {text("D", "Diária"), text("S", "Semanal"), text("Q", "Quinzenal"), text("M", "Mensal"),
          text("B", "Bimestral"), text("E", "Semestral"), text("A", "Anual")}},
        // The corrosion protection of an underground tank, and of an aboveground one.
        {"IPROTC.SUBTR",
         {text("A", "Anodo de Sacrifício"), text("C", "Corrente Impressa"), text("O", "Outros")}},
        {"IPROTC.AEREO",
         {text("P", "Primer"), text("R", "Primer e Resina Epoxi"), text("O", "Outros")}},
        // A distributor or a supplier.
        {"IDISTRFORNC", {text("D", "Distribuidora"), text("F", "Fornecedora")}},
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
