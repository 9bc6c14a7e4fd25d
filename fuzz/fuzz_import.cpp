// Any bytes as a joined file imported into a database in memory: the import never throws nor
// crashes, and it keeps a file whole or not at all. A file counted as imported leaves one
// register, with a number the code can show, and every row of it under that register; a
// refused one leaves nothing. The database is emptied again for the next input.
#include "Check.h"
#include "exchange/Importer.h"
#include "store/Database.h"
#include "store/RegisterKey.h"
#include "store/TableCatalogue.h"

#include <QCoreApplication>
#include <cstddef>
#include <cstdint>
#include <memory>

using namespace exchange;

namespace {

// The name of the golden files, so that their CNPJ is the file's own.
const QString kName = QStringLiteral("REUNIDO_12345678000195.TXT");

struct Batch {
    store::Database db{store::Database::kInMemory};
    Importer importer{db};
};

Batch* batch = nullptr;

qlonglong count(const QString& sql) {
    return batch->db.scalar(sql).toLongLong();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    // The database driver is a plugin, which only an application loads.
    static QCoreApplication application(*argc, *argv);
    batch = new Batch;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const Importer::FileOutcome outcome = batch->importer.importData(kName, bytes);

    const qlonglong registers = count(QStringLiteral("SELECT COUNT(*) FROM EMPRS"));
    FUZZ_CHECK(registers == (outcome == Importer::FileOutcome::Imported ? 1 : 0));
    FUZZ_CHECK(count(QStringLiteral("SELECT COUNT(*) FROM EMPRS WHERE NSEQNC NOT BETWEEN 0 AND "
                                    "%1")
                         .arg(store::kLastSequence)) == 0);
    for (const store::Table* table : store::registerTables()) {
        const qlonglong rows =
            count(QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(table->qname()));
        if (registers == 0) {
            FUZZ_CHECK(rows == 0);
            continue;
        }
        FUZZ_CHECK(count(QStringLiteral("SELECT COUNT(*) FROM \"%1\" t WHERE NOT EXISTS (SELECT 1 "
                                        "FROM EMPRS e WHERE e.NMUNCP = t.NMUNCP AND e.NSEQNC = "
                                        "t.NSEQNC)")
                             .arg(table->qname())) == 0);
    }
    batch->importer.wipe();
    return 0;
}
