#pragma once

#include "printing/Catalogue.h"

#include <QString>
#include <string_view>
#include <utility>
#include <vector>

// What each report shows: sections of label and column pairs (a form) or of headed columns (a
// table), with the way each stored value is turned into the words of the screens.
namespace printing {

struct Format {
    enum class Kind {
        Plain,     // as stored
        Date,      // yyyy-MM-dd shown dd/MM/yyyy
        Time,      // HH:mm:ss shown HH:mm
        Decimal,   // decimal comma; `places` digits after it, or as many as needed when -1
        YesNo,     // a flag: 0 "Não", anything else "Sim"
        Ticked,    // a box that stores a letter when ticked: "Sim", else "Não"
        Map,       // a code shown as its label; an unknown code shows as stored
        Lookup,    // the text of another table's row found by key columns
        ZeroBlank, // a number where 0 means "none"
        Cep,       // 00000-000
        Cnpj,      // 00.000.000/0000-00
        CpfCnpj,   // a CPF when it has 11 digits or fewer, else a CNPJ
        Phone,     // (0DD) 0000-0000, the area code from `extra`
        Mask,      // the digits laid into `mask`, '@' for each digit
    };
    Kind kind = Kind::Plain;
    int places = 2;
    std::vector<std::pair<QString, QString>> labels; // Map: code, label
    QString otherwise;                               // Map: label of any other code, if any
    std::string_view table;                          // Lookup
    std::string_view text;                           // Lookup: the column shown
    // Lookup: pairs of (column of `table`, column of the row); empty means the field's own
    // column against the first key column of `table`.
    std::vector<std::pair<std::string_view, std::string_view>> keys;
    std::string_view extra; // Phone: the area code column; Lookup: a text column preferred
    QString mask;
};

struct Field {
    QString label;
    std::string_view column;
    Format format = {};
};

struct Section {
    enum class Kind {
        Form,  // each row as label and value pairs
        Table, // all rows under one heading line that repeats on every page
    };
    Kind kind = Kind::Form;
    QString heading;
    std::string_view table;
    std::vector<Condition> conditions;
    std::vector<std::string_view> orderBy;
    std::vector<Field> fields;
    // A child section's rows are those whose `link` columns equal the parent row's; children
    // print under each row of a form.
    std::vector<std::string_view> link;
    std::vector<Section> children;
    // A form row's heading is `heading` followed by the value of this column, as "Tanque 3".
    std::string_view numberColumn;
};

struct Layout {
    std::vector<Section> sections;
};

// The layout of a report of the catalogue, or of the protocol; throws std::out_of_range for an
// unknown name.
const Layout& layout(std::string_view id);

} // namespace printing
