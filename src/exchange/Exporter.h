#pragma once

#include "exchange/Layout.h"
#include "store/RegisterKey.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>

class QIODevice;

namespace store {
class Database;
}

namespace exchange {

struct ExportResult {
    store::RegisterKey key;
    QString fileKey;     // CCGC in fourteen digits
    QString joinedPath;  // the directory and REUNIDO_<key>.TXT
    QString companyName; // DRAZAOSOCIL, for the mail
    QVariant csitu;      // the status after the export
};

// The export of one register: every table with rows to its per-table file in the target
// directory, then all of them joined into REUNIDO_<key>.TXT and deleted, then the register's
// status moved to "exported" when it was below. The joined file is written under a temporary
// name and renamed into place, so that a failure never leaves half a file under the real name,
// and a failure removes whatever this export had written. File and status succeed or fail
// together: a register reported as not exported has no joined file from this export. Failures are
// thrown: ExportFailure for the files and the register, store::Failure for the database.
class Exporter {
public:
    // Called once per table in the order of the joined file: step 1 to tableSteps().
    using Progress = std::function<void(int step, int steps)>;
    // Opens a file for writing; tests put devices here that fail as a full disk does. The
    // default is a QFile.
    using DeviceFactory = std::function<std::unique_ptr<QIODevice>(const QString& path)>;

    explicit Exporter(store::Database& db);

    void setProgress(Progress progress) { m_progress = std::move(progress); }
    void setDeviceFactory(DeviceFactory factory) { m_factory = std::move(factory); }

    // Number of progress steps of run(): one per table of the joined file.
    static int tableSteps();

    ExportResult run(const store::RegisterKey& key, const QString& directory);

    // The table dump alone: the per-table files of the register in `directory`. The EMPRS file
    // is always written, the others only for tables with rows. Returns the paths written, in
    // order.
    QStringList dumpTables(const store::RegisterKey& key, const QString& directory);

    // The joiner: the per-table files of `key` found in `directory`, in section order, into
    // `joinedPath`; each file is deleted once joined. A missing file gives no section.
    void join(const QString& directory, const QString& key, const QString& joinedPath);

private:
    void writeFile(const QString& path, const QByteArray& bytes);
    QVariantList registerRow(const store::RegisterKey& key);

    store::Database& m_db;
    Progress m_progress;
    DeviceFactory m_factory;
};

// "dir" + "/" + name, with one separator.
QString filePath(const QString& directory, const QString& name);

} // namespace exchange
