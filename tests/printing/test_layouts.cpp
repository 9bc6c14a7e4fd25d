// Every layout of the memorial against the table catalogue and the code lists. A column that a
// layout names and its table lacks prints a blank, and a code that no screen stores leaves the
// stored code in place of its word: neither shows in a register that has no such row, so the
// layouts are checked as data, all of them.
#include "printing/Catalogue.h"
#include "printing/Layout.h"
#include "store/Database.h"
#include "store/TableCatalogue.h"
#include "support/TestEnvironment.h"

#include <QTest>
#include <memory>
#include <optional>
#include <stdexcept>

namespace {

using printing::Condition;
using printing::Format;
using printing::Section;

QString q(std::string_view name) {
    return QString::fromUtf8(name.data(), qsizetype(name.size()));
}

QStringList numbers(int first, int last) {
    QStringList codes;
    for (int code = first; code <= last; ++code)
        codes << QString::number(code);
    return codes;
}

// The codes that the screens store in a coded column. `family` is "S" or "A" where the two
// kinds of system store different codes in the same column; a dictionary list names the table
// and key column whose rows are the codes.
struct CodeList {
    const char* table; // nullptr: the column means the same in every table
    const char* column;
    const char* family;
    QStringList codes;
    const char* dictionary = nullptr;
    const char* dictionaryKey = nullptr;
};

const std::vector<CodeList>& codeLists() {
    static const std::vector<CodeList> lists = {
        {nullptr, "IPROPR", nullptr, {"P", "D", "O"}},
        {nullptr, "ISITCA", nullptr, {"A", "D"}},
        {nullptr, "ITESTEESTNQ", nullptr, {"R", "NR", "ND"}},
        {"TB_POSTOTANQU", "SSISTMPROTC", nullptr, {"S", "N"}},
        {"TB_POSTOTANQU", "IPROTC", "S", {"A", "C", "O"}},
        // An aboveground tank "Sem proteção" stores S, which its report prints back.
        {"TB_POSTOTANQU", "IPROTC", "A", {"P", "R", "O", "S"}},
        {"TB_POSTOTANQU", "IFREQNMANTN", nullptr, {"D", "S", "Q", "M", "B", "E", "A"}},
        {"TB_POSTOTANQU", "IPOSCA", nullptr, {"H", "V"}},
        {"TB_POSTOTANQU", "NMATRL", nullptr, {}, "DICNRMATRLTANQU", "NMATRL"},
        {"TB_POSTOBOMBATANQU", "ILINHA", nullptr, {"S", "P"}},
        {"TB_POSTOVAZMN", "ILOCAL", "S", {"T", "B", "L", "R", "V", "F", "C", "O"}},
        {"TB_POSTOVAZMN", "ILOCAL", "A", {"T", "B", "L", "R", "F", "C", "O"}},
        {"TB_POSTOMONTRAMBNT", "IEQUPM", nullptr, {"T", "B", "P", "O"}},
        {"TB_POSTO", "IESTBL", nullptr, {"R", "I", "A", "F"}},
        {"TB_POSTO", "ICLASSABNT", nullptr, {"0", "1", "2", "3"}},
        // "N" marks a row that the general characteristics have not completed yet.
        {"TB_POSTO", "ILOCLZATIVD", nullptr, {"U", "R", "E", "C", "N"}},
        {"TB_POSTODISTRFORNC", "IDISTRFORNC", nullptr, {"D", "F"}},
        {"TB_POSTOCOMRCSERVC", "NCOMRCSERVC", nullptr, numbers(1, 17)},
        {"TB_POSTOUSOOCUPCSOLO", "NUSOOCUPCSOLO", nullptr, numbers(1, 47)},
        {"TB_POSTOBALNCHIDRC", "IFONTEABAST", nullptr, {"1P", "2S", "3R", "4O", "5T"}},
        {"TB_POSTOEFLNTLIQDO", "IEFLNTLIQDO", nullptr, {"D", "S", "T"}},
        {"TB_POSTORESDU", "IRESDU", nullptr, {"D", "Q", "L", "C", "E", "S", "F", "O"}},
        {"TB_POSTOPREVNEMISSAR", "IFONTE", nullptr, {"R", "B", "C", "T", "O"}},
        {"TB_POSTORUIDO", "IFONTE", nullptr, {"A", "C", "N", "G", "V", "O"}},
        // A single measure is stored as its own caption, a combination as its digits.
        {"TB_POSTORUIDO",
         "DMEDDACONTR",
         nullptr,
         {"Adequação de Lay-out", "Isolamento Acústico", "Substituição de Equipamento",
          "Base Anti-Vibratória", "12", "123", "1234", "13", "134", "14", "124", "23", "24", "234",
          "9", "0"}},
    };
    return lists;
}

// The list of a column: the one of its table and family before the one of its table, before
// the one of every table.
const CodeList* codeListOf(std::string_view table, std::string_view column, const QString& family) {
    const CodeList* best = nullptr;
    int bestScore = -1;
    for (const CodeList& list : codeLists()) {
        if (list.column != column || (list.table && list.table != table))
            continue;
        if (list.family && QLatin1String(list.family) != family)
            continue;
        const int score = (list.table ? 2 : 0) + (list.family ? 1 : 0);
        if (score > bestScore) {
            best = &list;
            bestScore = score;
        }
    }
    return best;
}

// Walks one layout and says what in it names nothing.
class LayoutCheck {
public:
    LayoutCheck(store::Database& db, std::string_view id)
        : m_db(db)
        , m_id(id) {}

    QStringList run() {
        for (const Section& section : printing::layout(m_id).sections)
            walk(section, nullptr, familyOf(section));
        return m_problems;
    }

    // Whether the layout's sections read the owner table of their equipment.
    bool readsOwners() const { return m_readsOwners; }

private:
    static QString familyOf(const Section& section) {
        for (const Condition& c : section.conditions) {
            if (c.column == "ITANQU" && c.op == Condition::Op::Equal)
                return c.value.toString();
        }
        return {};
    }

    const store::Table* tableOrProblem(std::string_view name) {
        try {
            return &store::table(name);
        } catch (const std::out_of_range&) {
            m_problems << QStringLiteral("no table %1").arg(q(name));
            return nullptr;
        }
    }

    void column(const store::Table& table, std::string_view name, const QString& role) {
        if (table.indexOf(name) < 0)
            m_problems
                << QStringLiteral("%1: %2 has no column %3").arg(role, table.qname(), q(name));
    }

    void walk(const Section& section, const store::Table* parent, const QString& family) {
        const store::Table* table = tableOrProblem(section.table);
        if (!table)
            return;
        if (section.table.ends_with("PROPR"))
            m_readsOwners = true;
        const QString where = section.heading;
        for (const Condition& c : section.conditions)
            column(*table, c.column, where + QStringLiteral(" selection"));
        for (std::string_view c : section.orderBy)
            column(*table, c, where + QStringLiteral(" order"));
        for (std::string_view c : section.link) {
            column(*table, c, where + QStringLiteral(" link"));
            if (parent)
                column(*parent, c, where + QStringLiteral(" link to its parent"));
        }
        if (!section.numberColumn.empty())
            column(*table, section.numberColumn, where + QStringLiteral(" heading"));
        for (const printing::Field& field : section.fields) {
            const QString role = where + QStringLiteral(" / ") + field.label;
            column(*table, field.column, role);
            format(*table, field, family, role);
        }
        for (const Section& child : section.children)
            walk(child, table, family);
    }

    void format(const store::Table& table, const printing::Field& field, const QString& family,
                const QString& role) {
        const Format& f = field.format;
        switch (f.kind) {
        case Format::Kind::Lookup: {
            if (!f.extra.empty())
                column(table, f.extra, role + QStringLiteral(" (own name)"));
            const store::Table* dictionary = tableOrProblem(f.table);
            if (!dictionary)
                return;
            column(*dictionary, f.text, role + QStringLiteral(" (text looked up)"));
            for (const auto& [key, rowColumn] : f.keys) {
                column(*dictionary, key, role + QStringLiteral(" (key looked up)"));
                if (!rowColumn.empty())
                    column(table, rowColumn, role + QStringLiteral(" (key of the row)"));
            }
            return;
        }
        case Format::Kind::Phone:
            if (!f.extra.empty())
                column(table, f.extra, role + QStringLiteral(" (area code)"));
            return;
        case Format::Kind::Map:
            codes(table, field, family, role);
            return;
        default:
            return;
        }
    }

    void codes(const store::Table& table, const printing::Field& field, const QString& family,
               const QString& role) {
        const CodeList* list = codeListOf(table.name, field.column, family);
        if (!list) {
            m_problems << QStringLiteral("%1: no code list for %2.%3")
                              .arg(role, table.qname(), q(field.column));
            return;
        }
        for (const auto& [code, label] : field.format.labels) {
            bool known = list->codes.contains(code);
            if (list->dictionary) {
                known = m_db.scalar(QStringLiteral("SELECT 1 FROM \"%1\" WHERE \"%2\" = ?")
                                        .arg(QLatin1String(list->dictionary),
                                             QLatin1String(list->dictionaryKey)),
                                    {code})
                            .isValid();
            }
            if (!known)
                m_problems << QStringLiteral("%1: \"%2\" (%3) is no code of %4.%5")
                                  .arg(role, code, label, table.qname(), q(field.column));
        }
    }

    store::Database& m_db;
    std::string_view m_id;
    QStringList m_problems;
    bool m_readsOwners = false;
};

std::vector<const printing::ReportEntry*> allReports() {
    std::vector<const printing::ReportEntry*> reports;
    for (const printing::ReportEntry& e : printing::catalogue())
        reports.push_back(&e);
    reports.push_back(&printing::protocolEntry());
    return reports;
}

} // namespace

class TestLayouts : public QObject {
    Q_OBJECT

    std::unique_ptr<testsupport::TestEnvironment> m_env;
    std::unique_ptr<store::Database> m_db;

    const printing::ReportEntry& entryOfRow() {
        return printing::entry(QByteArray(QTest::currentDataTag()).toStdString());
    }

    static void reportRows() {
        QTest::addColumn<int>("unused");
        for (const printing::ReportEntry* e : allReports())
            QTest::newRow(QByteArray(e->id.data(), qsizetype(e->id.size())).constData()) << 0;
    }

private slots:
    void initTestCase() {
        m_env = std::make_unique<testsupport::TestEnvironment>();
        m_db = std::make_unique<store::Database>(m_env->newDatabasePath());
    }

    void cleanupTestCase() {
        m_db.reset();
        m_env.reset();
    }

    void everyColumnAndCodeExists_data() { reportRows(); }

    void everyColumnAndCodeExists() {
        LayoutCheck check(*m_db, entryOfRow().id);
        const QStringList problems = check.run();
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    }

    // The owner table of a piece of equipment has rows for the equipment of others only, and
    // the reports of others' equipment are those that select IPROPR = 'O': those, and only
    // those, print an owner block.
    void ownerBlocksBelongToTheReportsOfOthersEquipment_data() { reportRows(); }

    void ownerBlocksBelongToTheReportsOfOthersEquipment() {
        const printing::ReportEntry& report = entryOfRow();
        bool others = false;
        for (const Condition& c : report.selection) {
            if (c.column == "IPROPR" && c.op == Condition::Op::Equal && c.value == "O")
                others = true;
        }
        LayoutCheck check(*m_db, report.id);
        check.run();
        QCOMPARE(check.readsOwners(), others);
    }

    // The probe of each report asks real tables and columns.
    void probesNameRealColumns_data() { reportRows(); }

    void probesNameRealColumns() {
        const printing::Probe& probe = entryOfRow().probe;
        for (std::string_view name : probe.tables) {
            const store::Table& table = store::table(name);
            for (const Condition& c : probe.conditions)
                QVERIFY2(table.indexOf(c.column) >= 0, qPrintable(q(c.column)));
            if (!probe.column.empty())
                QVERIFY2(table.indexOf(probe.column) >= 0, qPrintable(q(probe.column)));
        }
    }
};

QTEST_GUILESS_MAIN(TestLayouts)
#include "test_layouts.moc"
