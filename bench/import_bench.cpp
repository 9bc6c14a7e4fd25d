// The agency's import of a batch of joined files, timed beside a plain bulk insert of the
// same rows into an empty database of the same schema. Usage: import_bench [REGISTERS]
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

// One register with a row in every table the readers know, as the export writes it.
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

// N joined files, each its own register: the template's key fields replaced.
void generate(const QByteArray& model, int registers, const QString& directory) {
    const QByteArray sep("\xAC");
    const QByteArray oldKey = "100" + sep + "3" + sep;
    for (int i = 0; i < registers; ++i) {
        const QString key = cnpj(i + 1);
        const QByteArray newKey =
            QByteArray::number(100 + i % 600) + sep + QByteArray::number(i / 600 + 1) + sep;
        QByteArray bytes = model;
        bytes.replace("\r\n" + oldKey, "\r\n" + newKey);
        bytes.replace(sep + "12345678000195" + sep, sep + key.toLatin1() + sep);
        QFile file(directory + QLatin1Char('/') + exchange::joinedFileName(key));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
}

// Every register row of `from`, inserted into `into` in one transaction.
qint64 bulkInsert(store::Database& from, store::Database& into, qint64* rows) {
    QList<QPair<const store::Table*, QList<QVariantList>>> data;
    for (const store::Table* t : store::registerTables()) {
        QSqlQuery query = from.run(QStringLiteral("SELECT * FROM \"%1\"").arg(t->qname()));
        QList<QVariantList> tableRows;
        while (query.next()) {
            QVariantList row;
            for (std::size_t c = 0; c < t->columns.size(); ++c)
                row << query.value(int(c));
            tableRows << row;
        }
        *rows += tableRows.size();
        data << qMakePair(t, tableRows);
    }
    QElapsedTimer timer;
    timer.start();
    store::Transaction transaction(into);
    for (const auto& [t, tableRows] : data) {
        QStringList marks;
        for (std::size_t c = 0; c < t->columns.size(); ++c)
            marks << QStringLiteral("?");
        QSqlQuery insert(into.handle());
        insert.prepare(QStringLiteral("INSERT INTO \"%1\" VALUES (%2)")
                           .arg(t->qname(), marks.join(QLatin1Char(','))));
        for (const QVariantList& row : tableRows) {
            for (int c = 0; c < row.size(); ++c)
                insert.bindValue(c, row[c]);
            insert.exec();
        }
    }
    transaction.commit();
    return timer.elapsed();
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    const int registers = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 10000;
    QTemporaryDir scratch;
    const QString batch = scratch.filePath(QStringLiteral("lote"));
    QDir().mkpath(batch);

    QElapsedTimer timer;
    timer.start();
    generate(templateFile(scratch.path()), registers, batch);
    std::printf("generated %d joined files in %.1f s\n", registers, timer.elapsed() / 1000.0);

    store::Database agency(scratch.filePath(QStringLiteral("agencia.db")));
    int refusals = 0;
    exchange::Importer::Summary summary;
    timer.restart();
    {
        // The end of the batch (the database back in its own journal mode) is timed too.
        exchange::Importer importer(agency);
        importer.setRefusal([&refusals](const QString&) { ++refusals; });
        summary = importer.run(batch);
    }
    const qint64 importMs = timer.elapsed();

    store::Database baseline(scratch.filePath(QStringLiteral("baseline.db")));
    qint64 rows = 0;
    const qint64 bulkMs = bulkInsert(agency, baseline, &rows);

    std::printf("import:      %d of %d files, %lld rows, %d refusals: %.2f s (%.0f registers/s)\n",
                summary.imported, summary.existing, static_cast<long long>(rows), refusals,
                importMs / 1000.0, importMs > 0 ? summary.imported * 1000.0 / importMs : 0.0);
    std::printf("bulk insert: the same %lld rows in one transaction: %.2f s\n",
                static_cast<long long>(rows), bulkMs / 1000.0);
    std::printf("ratio import / bulk insert: %.1f\n",
                bulkMs > 0 ? double(importMs) / double(bulkMs) : 0.0);
    return summary.imported == registers ? 0 : 1;
}
