#pragma once

#include "store/TableCatalogue.h"

#include <QString>
#include <QVariant>
#include <string_view>
#include <vector>

// How each table stands in the exchange files, beside the table catalogue: which fields the
// writers put on a line and which the readers take back, and the few tables that depart from
// the plain rule. Writers and readers both work from this one list.
namespace exchange {

// The end of a record.
enum class RecordEnd {
    Cr,     // per-table files: one carriage return
    CrCrLf, // the per-table file of SUGESTOES: its rows are followed by an empty line
    CrLf,   // the joined file, section headers included
};

struct TableLayout {
    const store::Table* table = nullptr;
    int exportFields = 0;                // fields the export of a register writes
    int sectionReaderFields = 0;         // fields the reader of a joined-file section takes
    bool sectionHeaderRead = true;       // the readers of the joined file know its header
    bool trailingSeparator = false;      // every line ends in a separator behind its last field
    std::string_view blankKeptColumn;    // a value of exactly one blank is written as one blank
    std::string_view pointDecimalColumn; // written with a decimal point, in the export only
    RecordEnd perTableEnd = RecordEnd::Cr;
    // The column list of the readers' INSERT, in the order in which they pair the file's fields
    // (from the fourth on) with columns; the catalogue's order unless this is filled.
    std::vector<std::string_view> readerInsertColumns;

    QString qname() const { return table->qname(); }
};

// The register tables in the order of the joined file.
const std::vector<TableLayout>& layouts();

// The layout of one table; throws std::out_of_range for a table that has none.
const TableLayout& layout(std::string_view table);

// The sections of the joined file, in their order.
std::vector<const TableLayout*> joinedSections();

// The key of the file names: CCGC in fourteen digits; fourteen zeros for a missing CNPJ.
QString fileKey(const QVariant& ccgc);

// "<TABLE>_<key>.TXT" and "REUNIDO_<key>.TXT".
QString perTableFileName(const QString& table, const QString& key);
QString joinedFileName(const QString& key);

// The separator of fields, "¬" (byte 0xAC).
inline constexpr char16_t kSeparator = 0x00AC;

// The header line of a section of the joined file: "[" + table + "]".
QString sectionHeader(const QString& table);

} // namespace exchange
