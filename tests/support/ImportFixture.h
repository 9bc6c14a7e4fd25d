#pragma once

#include "exchange/Importer.h"
#include "store/Database.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <memory>

// A scratch database and a batch directory for the import tests, with the files written in
// the exchange format.
namespace testsupport {

inline QString exchangeDataPath(const QString& name) {
    return qEnvironmentVariable("VOR_SOURCE_DIR") + QStringLiteral("/tests/exchange/data/") + name;
}

// Runs the statements of a fixture file, one per line; comment lines are passed over.
void loadFixture(store::Database& db, const QString& fixture);

// The fields of a line, joined by the separator.
QString line(const QStringList& fields);

// An EMPRS row of 29 fields with the values the driver looks at; the others are Null.
QString emprsRow(const QString& nmuncp, const QString& nseqnc, const QString& company,
                 const QString& ccgc, const QString& acadst = QStringLiteral("14/03/2003"));

class ImportBatch {
public:
    ImportBatch();

    store::Database& db() { return *m_db; }
    const QString& directory() const { return m_dir; }
    QString databasePath() const { return m_db->path(); }

    // Writes `name` in the batch directory: the lines in Windows-1252, each ended by CR LF.
    void write(const QString& name, const QStringList& lines);
    void writeBytes(const QString& name, const QByteArray& bytes);

    // The whole batch; the refusals in the order they came.
    exchange::Importer::Summary run();
    const QStringList& refusals() const { return m_refusals; }

    QVariant value(const QString& sql, const QVariantList& bound = {}) {
        return m_db->scalar(sql, bound);
    }
    int count(const QString& table);

private:
    TestEnvironment m_env;
    QString m_dir;
    std::unique_ptr<store::Database> m_db;
    QStringList m_refusals;
};

} // namespace testsupport
