#include "exchange/Exporter.h"

#include "exchange/ExportFailure.h"
#include "exchange/Record.h"
#include "exchange/Tokeniser.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/PrivateFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace exchange {

namespace {

QString quoted(std::string_view name) {
    return QLatin1Char('"') + QString::fromLatin1(name.data(), qsizetype(name.size())) +
           QLatin1Char('"');
}

// The columns written, in exchange order, and the table's rows of the register in the order of
// its key.
QString selectSql(const TableLayout& layout) {
    const store::Table& t = *layout.table;
    QStringList columns;
    for (int i = 0; i < layout.exportFields; ++i)
        columns << quoted(t.columns[std::size_t(i)].name);
    const QString sql = QStringLiteral("SELECT %1 FROM %2 WHERE NMUNCP = ? AND NSEQNC = ?")
                            .arg(columns.join(QLatin1Char(',')), quoted(t.name));
    QStringList order;
    for (std::string_view k : t.key)
        order << quoted(k);
    order << QStringLiteral("rowid");
    return sql + QStringLiteral(" ORDER BY ") + order.join(QLatin1Char(','));
}

QList<QVariantList> rowsOf(store::Database& db, const TableLayout& layout,
                           const store::RegisterKey& key) {
    QSqlQuery query = db.run(selectSql(layout), {key.nmuncp, key.nseqnc});
    QList<QVariantList> rows;
    while (query.next()) {
        QVariantList row;
        const QSqlRecord record = query.record();
        for (int i = 0; i < record.count(); ++i)
            row << query.value(i);
        rows << row;
    }
    return rows;
}

ExportFailure fileFailure(int error, const QString& path, const QString& detail) {
    if (error == 0) {
        // No number from the system: judge by what is there.
        const QFileInfo directory(QFileInfo(path).absolutePath());
        if (!directory.exists())
            return ExportFailure::fromErrno(ENOENT, path, detail);
        if (!directory.isWritable())
            return ExportFailure::fromErrno(EACCES, path, detail);
    }
    return ExportFailure::fromErrno(error, path, detail);
}

// Removes the files that a failed export leaves behind; a removal that fails changes nothing
// in what the user is told.
void removeAll(const QStringList& paths) {
    for (const QString& path : paths)
        QFile::remove(path);
}

} // namespace

QString filePath(const QString& directory, const QString& name) {
    if (directory.endsWith(QLatin1Char('/')) || directory.endsWith(QLatin1Char('\\')))
        return directory + name;
    return directory + QLatin1Char('/') + name;
}

Exporter::Exporter(store::Database& db)
    : m_db(db) {}

int Exporter::tableSteps() {
    return int(joinedSections().size());
}

void Exporter::writeFile(const QString& path, const QByteArray& bytes) {
    std::unique_ptr<QIODevice> device;
    errno = 0;
    if (m_factory) {
        device = m_factory(path);
    } else {
        store::makePrivateFile(path);
        device = std::make_unique<QFile>(path);
    }
    if (!device->isOpen() &&
        !device->open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        throw fileFailure(errno, path, device->errorString());
    errno = 0;
    if (device->write(bytes) != bytes.size()) {
        const int error = errno;
        const QString detail = device->errorString();
        device->close();
        throw fileFailure(error, path, detail);
    }
    errno = 0;
    device->close();
    if (auto* file = qobject_cast<QFileDevice*>(device.get());
        file && file->error() != QFileDevice::NoError)
        throw fileFailure(errno, path, file->errorString());
}

QVariantList Exporter::registerRow(const store::RegisterKey& key) {
    const QList<QVariantList> rows = rowsOf(m_db, layout("EMPRS"), key);
    if (rows.isEmpty())
        throw ExportFailure(ExportFailure::Reason::NoRegister,
                            QStringLiteral("O posto %1 não está cadastrado.").arg(key.code()));
    return rows.first();
}

QStringList Exporter::dumpTables(const store::RegisterKey& key, const QString& directory) {
    const store::Table& emprs = store::table("EMPRS");
    const QString fkey = fileKey(registerRow(key).value(emprs.indexOf("CCGC")));
    QStringList written;
    try {
        int step = 0;
        for (const TableLayout& l : layouts()) {
            const QList<QVariantList> rows = rowsOf(m_db, l, key);
            if (!rows.isEmpty() || l.table->name == "EMPRS") {
                QByteArray bytes;
                for (const QVariantList& row : rows)
                    bytes += recordBytes(l, row, l.perTableEnd);
                const QString path = filePath(directory, perTableFileName(l.qname(), fkey));
                written << path;
                writeFile(path, bytes);
            }
            if (m_progress)
                m_progress(++step, tableSteps());
        }
    } catch (const UnencodableText& text) {
        removeAll(written);
        throw ExportFailure(ExportFailure::Reason::Unencodable, text.message());
    } catch (const UnreadableRecord& record) {
        removeAll(written);
        throw ExportFailure(ExportFailure::Reason::Unencodable, record.message(key.code()));
    } catch (...) {
        removeAll(written);
        throw;
    }
    return written;
}

void Exporter::join(const QString& directory, const QString& key, const QString& joinedPath) {
    QByteArray joined;
    QStringList joinedFiles;
    for (const TableLayout* l : joinedSections()) {
        const QString path = filePath(directory, perTableFileName(l->qname(), key));
        QFile file(path);
        if (!file.exists() || !file.open(QIODevice::ReadOnly))
            continue;
        joined += sectionHeader(l->qname()).toLatin1();
        joined += recordEndBytes(RecordEnd::CrLf);
        for (const QByteArray& line : splitRawLines(file.readAll())) {
            joined += line;
            joined += recordEndBytes(RecordEnd::CrLf);
        }
        joinedFiles << path;
    }

    const QString partial = joinedPath + QStringLiteral(".part");
    try {
        writeFile(partial, joined);
    } catch (...) {
        QFile::remove(partial);
        throw;
    }
    std::error_code error;
    std::filesystem::rename(std::filesystem::path(partial.toStdString()),
                            std::filesystem::path(joinedPath.toStdString()), error);
    if (error) {
        QFile::remove(partial);
        throw fileFailure(error.value(), joinedPath, QString::fromStdString(error.message()));
    }
    removeAll(joinedFiles);
}

ExportResult Exporter::run(const store::RegisterKey& key, const QString& directory) {
    const store::Table& emprs = store::table("EMPRS");
    const QVariantList row = registerRow(key);

    ExportResult result;
    result.key = key;
    result.fileKey = fileKey(row.value(emprs.indexOf("CCGC")));
    result.companyName = row.value(emprs.indexOf("DRAZAOSOCIL")).toString().trimmed();
    result.joinedPath = filePath(directory, joinedFileName(result.fileKey));

    const QStringList written = dumpTables(key, directory);
    // The file and the status succeed or fail together: the status is written first, the file
    // then moves into place, and only then does the status last. A failure of the last step
    // takes the file away again.
    bool inPlace = false;
    try {
        store::Transaction transaction(m_db);
        // Only forward: a register sent already stays sent.
        m_db.run(QStringLiteral(
                     "UPDATE EMPRS SET CSITU = 2 WHERE NMUNCP = ? AND NSEQNC = ? AND CSITU < 2"),
                 {key.nmuncp, key.nseqnc});
        join(directory, result.fileKey, result.joinedPath);
        inPlace = true;
        transaction.commit();
    } catch (...) {
        removeAll(written);
        if (inPlace)
            QFile::remove(result.joinedPath);
        throw;
    }
    result.csitu = m_db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS WHERE NMUNCP = ? AND "
                                              "NSEQNC = ?"),
                               {key.nmuncp, key.nseqnc});
    return result;
}

} // namespace exchange
