#include "exchange/CarryOver.h"

#include "exchange/Exporter.h"
#include "exchange/Record.h"
#include "exchange/TableReader.h"
#include "exchange/Tokeniser.h"
#include "store/Database.h"
#include "store/Failure.h"

#include <QFile>
#include <QSqlQuery>

namespace exchange {

namespace {

struct Carried {
    store::RegisterKey key;
    QString fileKey;
};

// Reads one per-table file into `readers`' database, if the dump wrote it, and removes it.
void readFile(Readers& readers, const TableLayout& l, const QString& path,
              const RowContext& context) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    LineReader lines = LineReader::fromDevice(file);
    file.close();
    FieldTokeniser fields;
    TableReader& reader = readers.of(l);
    for (QString line = lines.nextLine(); !line.isNull(); line = lines.nextLine()) {
        fields.reset(line);
        const QString first = fields.next();
        reader.readRow(fields, first, context);
    }
    QFile::remove(path);
}

// The objective of a database without registers, through a file of its own like the rest.
void carryObjective(store::Database& from, Readers& readers, const QString& scratch) {
    const TableLayout& objective = layout("TB_VORpMOVMN");
    QSqlQuery rows = from.run(QStringLiteral("SELECT IMOVMN, ADOCMNINCLR, ADOCMNALTRR FROM "
                                             "TB_VORpMOVMN ORDER BY rowid"));
    QByteArray bytes;
    while (rows.next()) {
        bytes += recordBytes(objective, {rows.value(0), rows.value(1), rows.value(2)},
                             Purpose::DatabaseDump, objective.perTableEnd);
    }
    if (bytes.isEmpty())
        return;
    const QString path =
        filePath(scratch, perTableFileName(objective.qname(), fileKey(QVariant())));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        throw store::Failure::other(75,
                                    QStringLiteral("Não foi possível gravar o arquivo ") + path);
    file.close();
    readFile(readers, objective, path, {});
}

} // namespace

int carryOver(store::Database& from, store::Database& into, const QString& scratch) {
    std::vector<Carried> registers;
    {
        QSqlQuery rows =
            from.run(QStringLiteral("SELECT NMUNCP, NSEQNC, CCGC FROM EMPRS ORDER BY rowid"));
        while (rows.next())
            registers.push_back(
                {{rows.value(0).toInt(), rows.value(1).toInt()}, fileKey(rows.value(2))});
    }

    Exporter exporter(from);
    Readers readers(into, Source::DumpFile);
    for (const Carried& carried : registers) {
        const QStringList written =
            exporter.dumpTables(carried.key, scratch, Purpose::DatabaseDump);
        RowContext context;
        context.nmuncp = carried.key.nmuncp;
        context.nseqnc = carried.key.nseqnc;
        try {
            store::Transaction transaction(into);
            for (const TableLayout& l : layouts()) {
                if (l.dumpFields > 0)
                    readFile(readers, l,
                             filePath(scratch, perTableFileName(l.qname(), carried.fileKey)),
                             context);
            }
            transaction.commit();
        } catch (...) {
            for (const QString& path : written)
                QFile::remove(path);
            throw;
        }
    }
    if (registers.empty()) {
        store::Transaction transaction(into);
        carryObjective(from, readers, scratch);
        transaction.commit();
    }
    return int(registers.size());
}

} // namespace exchange
