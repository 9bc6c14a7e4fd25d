#pragma once

#include <QString>
#include <QVariant>
#include <string_view>
#include <vector>

// The fixed code lists of the questionnaire: the code a column stores and the caption that the
// screens offer, the grids show and the memorial prints for it. Declared once here; combos,
// grid columns and report layouts read them by name. A list's name is the column that stores
// it, qualified where one column has different lists in two families.
namespace store {

struct Code {
    QVariant code; // as stored: text codes as QString, number codes as int
    QString label;
};

using CodeList = std::vector<Code>;

// The list of that name; throws std::out_of_range for an unknown name.
const CodeList& codeList(std::string_view name);
// Whether a list of that name exists.
bool hasCodeList(std::string_view name);
// Every list's name, for the checks that compare them with the dictionaries and layouts.
std::vector<std::string_view> codeListNames();
// The caption of `code` in the list, or an empty text when the code is not in it.
QString labelOf(std::string_view list, const QVariant& code);

} // namespace store
