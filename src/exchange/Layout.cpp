#include "exchange/Layout.h"

#include <stdexcept>

namespace exchange {

namespace {

TableLayout plain(const store::Table& t) {
    TableLayout l;
    l.table = &t;
    const int n = int(t.columns.size());
    l.exportFields = l.sectionReaderFields = n;
    return l;
}

std::vector<TableLayout> build() {
    std::vector<TableLayout> result;
    for (const store::Table* t : store::registerTables()) {
        TableLayout l = plain(*t);
        if (t->name == "TB_POSTOAREADESCARGA") {
            // SSEMPAVMN is written last and not read back.
            l.sectionReaderFields = l.exportFields - 1;
        } else if (t->name == "TB_POSTOAREATROCAOLEO") {
            l.trailingSeparator = true;
        } else if (t->name == "TB_POSTOBALNCHIDRC") {
            l.blankKeptColumn = "DFONTEABAST";
        } else if (t->name == "TB_POSTOEFLNTLIQDO") {
            l.pointDecimalColumn = "QEFLNTLIQDO";
        } else if (t->name == "TB_POSTOTANQU") {
            l.readerInsertColumns = {
                "ITANQU",      "NTANQU",      "NIDENT",      "AINSTL",      "NMATRL",
                "QCOMPRT",     "ATESTEESTNQ", "SSISTMPROTC", "IPROTC",      "DPROTC",
                "IPROPR",      "IPOSCA",      "NBASE",       "DMATRLOUTRO", "ITESTEESTNQ",
                "IFREQNMANTN", "AMANTNULTMA", "ISITCA",
            };
        } else if (t->name == "TB_POSTOGASVAZMN") {
            l.sectionHeaderRead = false;
        } else if (t->name == "SUGESTOES") {
            l.perTableEnd = RecordEnd::CrCrLf;
        }
        result.push_back(std::move(l));
    }
    return result;
}

} // namespace

const std::vector<TableLayout>& layouts() {
    static const std::vector<TableLayout> all = build();
    return all;
}

const TableLayout& layout(std::string_view table) {
    for (const TableLayout& l : layouts()) {
        if (l.table->name == table)
            return l;
    }
    throw std::out_of_range("no exchange layout for " + std::string(table));
}

std::vector<const TableLayout*> joinedSections() {
    std::vector<const TableLayout*> result;
    for (const TableLayout& l : layouts())
        result.push_back(&l);
    return result;
}

QString fileKey(const QVariant& ccgc) {
    bool ok = false;
    const qlonglong number = ccgc.isNull() ? 0 : ccgc.toLongLong(&ok);
    return QStringLiteral("%1").arg(ok ? number : 0, 14, 10, QLatin1Char('0'));
}

QString perTableFileName(const QString& table, const QString& key) {
    return table + QLatin1Char('_') + key + QStringLiteral(".TXT");
}

QString joinedFileName(const QString& key) {
    return QStringLiteral("REUNIDO_") + key + QStringLiteral(".TXT");
}

QString sectionHeader(const QString& table) {
    return QLatin1Char('[') + table + QLatin1Char(']');
}

} // namespace exchange
