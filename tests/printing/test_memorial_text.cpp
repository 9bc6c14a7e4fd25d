// The whole text of every report of the memorial, from a register that fills every table a
// report reads, against the text kept in tests/printing/golden: a row, block or value that goes
// missing or changes fails here. A golden changes only on purpose: after a deliberate change of
// a layout, run this test with VOR_UPDATE_GOLDENS=1 to rewrite the goldens, read the difference
// and commit it saying why.
#include "RegisterFixture.h"
#include "printing/Catalogue.h"
#include "printing/Layout.h"
#include "printing/Memorial.h"
#include "printing/ReportHtml.h"
#include "store/Database.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <memory>
#include <set>

namespace {

const store::RegisterKey kKey{100, 7};

QString q(std::string_view name) {
    return QString::fromUtf8(name.data(), qsizetype(name.size()));
}

// The text of a report as a reader goes through it: each paragraph on its line, each row of a
// table on its line with its cells between " | ".
void appendFrame(QTextFrame* frame, QStringList& lines) {
    for (auto it = frame->begin(); !it.atEnd(); ++it) {
        if (QTextFrame* child = it.currentFrame()) {
            auto* table = qobject_cast<QTextTable*>(child);
            if (!table) {
                appendFrame(child, lines);
                continue;
            }
            for (int row = 0; row < table->rows(); ++row) {
                QStringList cells;
                for (int column = 0; column < table->columns(); ++column) {
                    const QTextTableCell cell = table->cellAt(row, column);
                    QTextCursor cursor = cell.firstCursorPosition();
                    cursor.setPosition(cell.lastCursorPosition().position(),
                                       QTextCursor::KeepAnchor);
                    cells << cursor.selectedText().replace(QChar::ParagraphSeparator, u'/');
                }
                // An empty last cell leaves no blank at the end of the line.
                lines << cells.join(QStringLiteral(" | ")).trimmed();
            }
        } else if (const QString text = it.currentBlock().text(); !text.isEmpty()) {
            lines << text;
        }
    }
}

QString readable(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    QStringList lines;
    appendFrame(document.rootFrame(), lines);
    return lines.join(QLatin1Char('\n')).replace(QChar::Nbsp, u' ') + QLatin1Char('\n');
}

// The golden of a report, named by its layout in plain letters.
QString goldenPath(std::string_view id) {
    QString name = q(id).normalized(QString::NormalizationForm_D);
    name.remove(QRegularExpression(QStringLiteral("[^\\x00-\\x7f]")));
    return qEnvironmentVariable("VOR_SOURCE_DIR") + QStringLiteral("/tests/printing/golden/") +
           name + QStringLiteral(".txt");
}

// Fields that the register cannot fill, whatever it holds: the aboveground link has no type of
// line. Each must still name a field of its layout.
const std::set<std::pair<std::string_view, QString>> kNeverFilled = {
    {"rpt09_bombaaereo", QStringLiteral("Tipo da Linha")},
    {"rpt11_bombaaereopropr", QStringLiteral("Tipo da Linha")},
};

// Walks the rows that a layout prints, as the report selects them, and notes the fields that
// show a value in none of them.
class Coverage {
public:
    Coverage(store::Database& db, std::string_view id)
        : m_db(db) {
        for (const printing::Section& section : printing::layout(id).sections)
            list(section);
        for (const printing::Section& section : printing::layout(id).sections)
            walk(section, nullptr);
    }

    // "heading / label" of each field that shows nothing.
    QStringList blanks() const {
        QStringList names;
        for (const auto& [field, name] : m_fields) {
            if (!m_shown.contains(field))
                names << name;
        }
        return names;
    }

    bool hasLabel(const QString& label) const {
        for (const auto& [field, name] : m_fields) {
            if (field->label == label)
                return true;
        }
        return false;
    }

private:
    void list(const printing::Section& section) {
        for (const printing::Field& field : section.fields)
            m_fields.emplace_back(&field, section.heading + QStringLiteral(" / ") + field.label);
        for (const printing::Section& child : section.children)
            list(child);
    }

    void walk(const printing::Section& section, const QVariantHash* parent) {
        std::vector<printing::Condition> conditions = section.conditions;
        if (parent) {
            for (std::string_view column : section.link)
                conditions.push_back(
                    {column, printing::Condition::Op::Equal, parent->value(q(column))});
        }
        QVariantList values = {kKey.nmuncp, kKey.nseqnc};
        QSqlQuery query = m_db.run(
            QStringLiteral("SELECT * FROM \"%1\" %2")
                .arg(q(section.table), printing::whereClause(section.table, conditions, values)),
            values);
        std::vector<QVariantHash> rows;
        while (query.next()) {
            QVariantHash row;
            for (int i = 0; i < query.record().count(); ++i)
                row.insert(query.record().fieldName(i).toUpper(), query.value(i));
            rows.push_back(std::move(row));
        }
        for (const QVariantHash& row : rows) {
            for (const printing::Field& field : section.fields) {
                if (!printing::formatValue(m_db, field.format, row.value(q(field.column)), row)
                         .isEmpty())
                    m_shown.insert(&field);
            }
            for (const printing::Section& child : section.children)
                walk(child, &row);
        }
    }

    store::Database& m_db;
    std::vector<std::pair<const printing::Field*, QString>> m_fields;
    QSet<const printing::Field*> m_shown;
};

std::vector<std::string_view> allReports() {
    std::vector<std::string_view> ids;
    for (const printing::ReportEntry& e : printing::catalogue())
        ids.push_back(e.id);
    ids.push_back(printing::protocolEntry().id);
    return ids;
}

} // namespace

class TestMemorialText : public QObject {
    Q_OBJECT

    std::unique_ptr<testsupport::TestEnvironment> m_env;
    std::unique_ptr<store::Database> m_db;
    std::unique_ptr<printing::Memorial> m_memorial;
    std::unique_ptr<printing::Memorial> m_protocol;

    static std::string_view idOfRow() {
        for (std::string_view id : allReports()) {
            if (QByteArray(id.data(), qsizetype(id.size())) == QTest::currentDataTag())
                return id;
        }
        qFatal("no report %s", QTest::currentDataTag());
    }

    static void reportRows() {
        QTest::addColumn<int>("unused");
        for (std::string_view id : allReports())
            QTest::newRow(QByteArray(id.data(), qsizetype(id.size())).constData()) << 0;
    }

private slots:
    void initTestCase() {
        m_env = std::make_unique<testsupport::TestEnvironment>();
        m_db = std::make_unique<store::Database>(m_env->newDatabasePath());
        testsupport::fillRegister(*m_db, kKey);
        m_memorial = std::make_unique<printing::Memorial>(
            *m_db, kKey,
            printing::RunParameters{
                printing::reportKind(*m_db), printing::surveyDate(*m_db, kKey), {}});
        m_protocol = std::make_unique<printing::Memorial>(printing::Memorial::protocol(
            *m_db, kKey, {QStringLiteral("CADASTRO"), {}, QStringLiteral("02/04/2024 09:05")}));
    }

    void cleanupTestCase() {
        m_protocol.reset();
        m_memorial.reset();
        m_db.reset();
        m_env.reset();
    }

    // Every field of every layout shows a value somewhere in the register of the goldens, so
    // that a value gone blank is a difference in a golden.
    void theRegisterFillsEveryField_data() { reportRows(); }

    void theRegisterFillsEveryField() {
        const std::string_view id = idOfRow();
        const Coverage coverage(*m_db, id);
        QStringList blanks;
        for (const QString& blank : coverage.blanks()) {
            if (!kNeverFilled.contains({id, blank.section(QStringLiteral(" / "), -1)}))
                blanks << blank;
        }
        QVERIFY2(blanks.isEmpty(), qPrintable(blanks.join(QStringLiteral(", "))));
        for (const auto& [report, label] : kNeverFilled) {
            if (report == id)
                QVERIFY2(coverage.hasLabel(label), qPrintable(label));
        }
    }

    void textOfEachReport_data() { reportRows(); }

    void textOfEachReport() {
        const std::string_view id = idOfRow();
        const printing::ReportEntry& entry = printing::entry(id);
        const printing::Memorial& memorial =
            &entry == &printing::protocolEntry() ? *m_protocol : *m_memorial;
        const QString body = memorial.body(id);
        QVERIFY2(!body.isEmpty(), "the report does not print");
        const QString text = QStringLiteral("== %1: %2\n").arg(q(id), entry.title) + readable(body);

        const QString path = goldenPath(id);
        if (qEnvironmentVariableIsSet("VOR_UPDATE_GOLDENS")) {
            QDir().mkpath(QFileInfo(path).path());
            QFile out(path);
            QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
            out.write(text.toUtf8());
            return;
        }
        QFile golden(path);
        QVERIFY2(golden.open(QIODevice::ReadOnly),
                 qPrintable(QStringLiteral("no golden %1").arg(path)));
        const QString expected = QString::fromUtf8(golden.readAll());
        if (text == expected)
            return;
        // The first line that differs, and the whole text beside the test for a closer look.
        const QStringList got = text.split(QLatin1Char('\n'));
        const QStringList want = expected.split(QLatin1Char('\n'));
        qsizetype line = 0;
        while (line < got.size() && line < want.size() && got[line] == want[line])
            ++line;
        const QString printedPath = QDir::current().absoluteFilePath(
            QFileInfo(path).completeBaseName() + QStringLiteral(".printed.txt"));
        QFile printed(printedPath);
        if (printed.open(QIODevice::WriteOnly | QIODevice::Truncate))
            printed.write(text.toUtf8());
        QFAIL(qPrintable(QStringLiteral("line %1 differs from %2 (the printed text is in %3)\n"
                                        "   golden:  %4\n   printed: %5")
                             .arg(line + 1)
                             .arg(path, printedPath, want.value(line, QStringLiteral("(end)")),
                                  got.value(line, QStringLiteral("(end)")))));
    }
};

QTEST_MAIN(TestMemorialText)
#include "test_memorial_text.moc"
