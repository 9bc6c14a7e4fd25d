// The agency's import of a batch of joined files, timed beside a bulk insert of the very rows
// it stored, through SQLite's own interface, into an empty database of the same schema on the
// same file system. Usage: import_bench [REGISTERS] (without it: 2,000 and 10,000)
#include "exchange/Exporter.h"
#include "exchange/Importer.h"
#include "exchange/Layout.h"
#include "store/Database.h"
#include "store/TableCatalogue.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlQuery>
#include <QStringList>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sqlite3.h>
#include <string>
#include <variant>
#include <vector>

namespace {

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString cnpj(int n) {
    QString digits = QStringLiteral("%1").arg(n, 8, 10, QLatin1Char('0')) + QStringLiteral("0001");
    for (int round = 0; round < 2; ++round) {
        int sum = 0;
        int weight = 2;
        for (qsizetype i = digits.size() - 1; i >= 0; --i) {
            sum += digits[i].digitValue() * weight;
            weight = weight == 9 ? 2 : weight + 1;
        }
        const int rest = sum % 11;
        digits += QString::number(rest < 2 ? 0 : 11 - rest);
    }
    return digits;
}

// One register with a row in every table the readers know, several in some, as the export
// writes it.
QByteArray templateFile(const QString& scratch) {
    store::Database station(scratch + QStringLiteral("/posto.db"));
    const QString fixture = QString::fromUtf8(readAll(QStringLiteral(VOR_FIXTURE)));
    for (QString statement : fixture.split(QLatin1Char('\n'))) {
        if (statement.isEmpty() || statement.startsWith(QStringLiteral("--")))
            continue;
        if (statement.endsWith(QLatin1Char(';')))
            statement.chop(1);
        station.run(statement);
    }
    station.run(QStringLiteral("DELETE FROM TB_POSTOGASVAZMN"));
    return readAll(exchange::Exporter(station).run({100, 3}, scratch).joinedPath);
}

enum class Numbering {
    Unique,  // every register its own municipality/number pair
    AllOnes, // every station numbered 1 in one municipality: each after the first is renumbered
};

// N joined files, each its own register: the template's key fields replaced.
void generate(const QByteArray& model, int registers, Numbering numbering,
              const QString& directory) {
    QDir(directory).removeRecursively();
    QDir().mkpath(directory);
    const QByteArray sep("\xAC");
    const QByteArray oldKey = "100" + sep + "3" + sep;
    for (int i = 0; i < registers; ++i) {
        const QString key = cnpj(i + 1);
        const QByteArray newKey =
            numbering == Numbering::AllOnes
                ? "100" + sep + "1" + sep
                : QByteArray::number(100 + i % 600) + sep + QByteArray::number(i / 600 + 1) + sep;
        QByteArray bytes = model;
        bytes.replace("\r\n" + oldKey, "\r\n" + newKey);
        bytes.replace(sep + "12345678000195" + sep, sep + key.toLatin1() + sep);
        QFile file(directory + QLatin1Char('/') + exchange::joinedFileName(key));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
            std::exit(1);
        }
    }
}

// Wall time and the processor time of this process, both in milliseconds. On a machine that
// other work keeps busy, the wall time of both sides grows with the load; the processor time
// much less.
struct Clock {
    QElapsedTimer wall;
    double cpuStart = cpuNow();

    Clock() { wall.start(); }
    static double cpuNow() {
        timespec t{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
        return double(t.tv_sec) * 1000.0 + double(t.tv_nsec) / 1e6;
    }
    struct Span {
        double wallMs;
        double cpuMs;
    };
    Span elapsed() const { return {double(wall.elapsed()), cpuNow() - cpuStart}; }
};

using Value = std::variant<std::monostate, qint64, double, std::string>;

struct TableRows {
    const store::Table* table;
    std::vector<std::vector<Value>> rows;
};

Value nativeValue(const QVariant& v) {
    if (v.isNull())
        return std::monostate{};
    switch (v.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
        return v.toLongLong();
    case QMetaType::Double:
        return v.toDouble();
    default:
        return v.toString().toStdString();
    }
}

[[noreturn]] void fail(const char* what, sqlite3* db) {
    std::fprintf(stderr, "%s: %s\n", what, db ? sqlite3_errmsg(db) : "no database");
    std::exit(1);
}

void exec(sqlite3* db, const char* sql) {
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(sql, db);
}

void bind(sqlite3_stmt* statement, int index, const Value& value) {
    if (const auto* n = std::get_if<qint64>(&value))
        sqlite3_bind_int64(statement, index, *n);
    else if (const auto* d = std::get_if<double>(&value))
        sqlite3_bind_double(statement, index, *d);
    else if (const auto* s = std::get_if<std::string>(&value))
        sqlite3_bind_text(statement, index, s->data(), int(s->size()), SQLITE_STATIC);
    else
        sqlite3_bind_null(statement, index);
}

// Every register row of `from`, inserted into a new database of the same schema at `path`
// through SQLite's own interface: one statement prepared per table, bound, stepped and reset
// per row, one transaction. The floor the import is measured against.
Clock::Span rawInsert(store::Database& from, const QString& path, qint64* rows) {
    std::vector<TableRows> data;
    for (const store::Table* t : store::registerTables()) {
        TableRows table{t, {}};
        QSqlQuery query = from.run(QStringLiteral("SELECT * FROM \"%1\"").arg(t->qname()));
        while (query.next()) {
            std::vector<Value> row;
            for (std::size_t c = 0; c < t->columns.size(); ++c)
                row.push_back(nativeValue(query.value(int(c))));
            table.rows.push_back(std::move(row));
        }
        *rows += qint64(table.rows.size());
        data.push_back(std::move(table));
    }
    // The schema and the reference rows, as every database of the program has them.
    { store::Database schema(path); }

    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) !=
        SQLITE_OK)
        fail("open", db);
    const Clock clock;
    exec(db, "BEGIN");
    for (const TableRows& table : data) {
        QStringList marks;
        for (std::size_t c = 0; c < table.table->columns.size(); ++c)
            marks << QStringLiteral("?");
        const QByteArray sql = QStringLiteral("INSERT INTO \"%1\" VALUES (%2)")
                                   .arg(table.table->qname(), marks.join(QLatin1Char(',')))
                                   .toUtf8();
        sqlite3_stmt* insert = nullptr;
        if (sqlite3_prepare_v2(db, sql.constData(), int(sql.size()), &insert, nullptr) != SQLITE_OK)
            fail("prepare", db);
        for (const std::vector<Value>& row : table.rows) {
            for (std::size_t c = 0; c < row.size(); ++c)
                bind(insert, int(c) + 1, row[c]);
            if (sqlite3_step(insert) != SQLITE_DONE)
                fail("insert", db);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
    }
    exec(db, "COMMIT");
    const Clock::Span elapsed = clock.elapsed();
    sqlite3_close(db);
    return elapsed;
}

struct Result {
    int imported = 0;
    int refusals = 0;
    qint64 rows = 0;
    Clock::Span import{};
    Clock::Span raw{};
};

// The import of the batch in `directory` into a new database, then the floor for its rows.
Result measure(const QString& scratch, const QString& directory, const QString& name) {
    Result result;
    const QString agencyPath = scratch + QLatin1Char('/') + name + QStringLiteral(".db");
    const QString rawPath = scratch + QLatin1Char('/') + name + QStringLiteral("-raw.db");
    store::Database agency(agencyPath);
    const Clock clock;
    {
        // The end of the batch (the database back in its own journal mode) is timed too.
        exchange::Importer importer(agency);
        importer.setRefusal([&result](const QString&) { ++result.refusals; });
        result.imported = importer.run(directory).imported;
    }
    result.import = clock.elapsed();
    result.raw = rawInsert(agency, rawPath, &result.rows);
    return result;
}

double ratio(double a, double b) {
    return b > 0 ? a / b : 0.0;
}

bool report(const char* label, const Result& r, int registers) {
    std::printf("  %s %d of %d files, %lld rows, %d refusals\n", label, r.imported, registers,
                static_cast<long long>(r.rows), r.refusals);
    std::printf("    wall:      import %6.2f s | raw SQLite %5.2f s | ratio %4.1f\n",
                r.import.wallMs / 1000.0, r.raw.wallMs / 1000.0,
                ratio(r.import.wallMs, r.raw.wallMs));
    std::printf("    processor: import %6.2f s | raw SQLite %5.2f s | ratio %4.1f\n",
                r.import.cpuMs / 1000.0, r.raw.cpuMs / 1000.0, ratio(r.import.cpuMs, r.raw.cpuMs));
    return r.imported > 0;
}

bool run(const QByteArray& model, const QString& scratch, int registers) {
    const QString batch = scratch + QStringLiteral("/lote");
    std::printf("%d registers (goal: import within 2.0x of raw SQLite)\n", registers);

    generate(model, registers, Numbering::Unique, batch);
    const Result unique = measure(scratch, batch, QStringLiteral("unique-%1").arg(registers));
    bool ok = report("unique pairs:", unique, registers) && unique.imported == registers;

    // Numbers run out at the code's last one: a batch past it has that many refusals.
    generate(model, registers, Numbering::AllOnes, batch);
    const Result ones = measure(scratch, batch, QStringLiteral("ones-%1").arg(registers));
    ok = report("every station numbered 1:", ones, registers) && ok;

    const double perUnique = ratio(unique.import.cpuMs, unique.imported);
    const double perOnes = ratio(ones.import.cpuMs, ones.imported);
    std::printf("  renumbering: %.2f ms of processor per register against %.2f unique, %+.0f%% "
                "(goal: within 20%%)\n",
                perOnes, perUnique, perUnique > 0 ? (perOnes / perUnique - 1) * 100 : 0.0);
    return ok;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    std::vector<int> sizes = {2000, 10000};
    if (argc > 1) {
        bool numeric = false;
        const int n = QString::fromLocal8Bit(argv[1]).toInt(&numeric);
        if (!numeric || n < 1) {
            std::fprintf(stderr, "usage: import_bench [REGISTERS]\n");
            return 2;
        }
        sizes = {n};
    }
    QTemporaryDir scratch;
    const QByteArray model = templateFile(scratch.path());
    bool ok = true;
    for (int registers : sizes)
        ok = run(model, scratch.path(), registers) && ok;
    return ok ? 0 : 1;
}
