#include "support/ImportFixture.h"

#include "exchange/Cp1252.h"
#include "exchange/Layout.h"

#include <QTest>

namespace testsupport {

namespace {

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Every scratch database starts as a copy of one made once: the schema and the reference rows
// take longer to write than a test takes to run.
QString templateDatabase() {
    static TestEnvironment env;
    static const QString path = [] {
        const QString p = env.newDatabasePath(QStringLiteral("template.db"));
        store::Database db(p);
        return p;
    }();
    return path;
}

} // namespace

void loadFixture(store::Database& db, const QString& fixture) {
    const QString text = QString::fromUtf8(readAll(exchangeDataPath(fixture)));
    QVERIFY2(!text.isEmpty(), qPrintable(fixture));
    for (QString statement : text.split(QLatin1Char('\n'))) {
        if (statement.isEmpty() || statement.startsWith(QStringLiteral("--")))
            continue;
        if (statement.endsWith(QLatin1Char(';')))
            statement.chop(1);
        db.run(statement);
    }
}

QString line(const QStringList& fields) {
    return fields.join(QChar(exchange::kSeparator));
}

QString emprsRow(const QString& nmuncp, const QString& nseqnc, const QString& company,
                 const QString& ccgc, const QString& acadst) {
    QStringList fields(29, QStringLiteral("Null"));
    fields[0] = nmuncp;
    fields[1] = nseqnc;
    fields[2] = QStringLiteral("Fantasia");
    fields[3] = company;
    fields[12] = ccgc;
    fields[18] = acadst;
    fields[28] = QStringLiteral("3");
    return line(fields);
}

ImportBatch::ImportBatch()
    : m_dir(m_env.path(QStringLiteral("lote"))) {
    QDir().mkpath(m_dir);
    const QString path = m_env.newDatabasePath();
    QFile::copy(templateDatabase(), path);
    m_db = std::make_unique<store::Database>(path);
}

void ImportBatch::write(const QString& name, const QStringList& lines) {
    QByteArray bytes;
    for (const QString& l : lines) {
        const exchange::cp1252::EncodeResult encoded = exchange::cp1252::encode(l);
        QVERIFY(encoded.ok());
        bytes += encoded.bytes + "\r\n";
    }
    writeBytes(name, bytes);
}

void ImportBatch::writeBytes(const QString& name, const QByteArray& bytes) {
    QFile file(QDir(m_dir).filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

exchange::Importer::Summary ImportBatch::run() {
    exchange::Importer importer(*m_db);
    importer.setRefusal([this](const QString& message) { m_refusals << message; });
    return importer.run(m_dir);
}

int ImportBatch::count(const QString& table) {
    return m_db->scalar(QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(table)).toInt();
}

} // namespace testsupport
