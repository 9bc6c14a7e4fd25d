// The export of a register into its joined exchange file.
#include "exchange/ExportFailure.h"
#include "exchange/Exporter.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "support/ImportFixture.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <cerrno>

using namespace exchange;

namespace {

const store::RegisterKey kFull{100, 3};
const store::RegisterKey kNeighbour{100, 4};

QString dataPath(const QString& name) {
    return qEnvironmentVariable("VOR_SOURCE_DIR") + QStringLiteral("/tests/exchange/data/") + name;
}

QByteArray readAll(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

// The statements of a fixture file, one per line; comment lines are passed over.
void load(store::Database& db, const QString& fixture, const QString& onlyPrefix = {}) {
    const QString text = QString::fromUtf8(readAll(dataPath(fixture)));
    QVERIFY(!text.isEmpty());
    for (QString line : text.split(QLatin1Char('\n'))) {
        if (line.isEmpty() || line.startsWith(QStringLiteral("--")))
            continue;
        if (!onlyPrefix.isEmpty() && !line.startsWith(onlyPrefix))
            continue;
        if (line.endsWith(QLatin1Char(';')))
            line.chop(1);
        db.run(line);
    }
}

QStringList entries(const QString& directory) {
    return QDir(directory).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

QVariant csitu(store::Database& db, const store::RegisterKey& key) {
    return db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS WHERE NMUNCP = ? AND NSEQNC = ?"),
                     {key.nmuncp, key.nseqnc});
}

// A file on a disk that fills up after `room` bytes.
class FillingFile : public QFile {
public:
    FillingFile(const QString& path, qint64 room)
        : QFile(path)
        , m_room(room) {}

protected:
    qint64 writeData(const char* data, qint64 length) override {
        if (length > m_room) {
            errno = ENOSPC;
            setErrorString(QStringLiteral("No space left on device"));
            return -1;
        }
        m_room -= length;
        return QFile::writeData(data, length);
    }

private:
    qint64 m_room;
};

} // namespace

class TestExport : public QObject {
    Q_OBJECT

private slots:
    void aRegisterThatFillsEveryTable() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"));
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);

        QList<QPair<int, int>> steps;
        Exporter exporter(db);
        exporter.setProgress([&](int step, int total) { steps << qMakePair(step, total); });
        const ExportResult result = exporter.run(kFull, dir);

        QCOMPARE(result.joinedPath, dir + QStringLiteral("/REUNIDO_12345678000195.TXT"));
        QCOMPARE(result.fileKey, QStringLiteral("12345678000195"));
        QCOMPARE(result.companyName, QStringLiteral("Comércio de Combustíveis Ltda"));
        const QByteArray expected = readAll(dataPath(QStringLiteral("REUNIDO_12345678000195.TXT")));
        QVERIFY(!expected.isEmpty());
        QCOMPARE(readAll(result.joinedPath), expected);
        // The per-table files are gone once joined.
        QCOMPARE(entries(dir), QStringList{QStringLiteral("REUNIDO_12345678000195.TXT")});
        QCOMPARE(csitu(db, kFull).toInt(), 2);
        QCOMPARE(csitu(db, kNeighbour).toInt(), 1);
        QCOMPARE(steps.size(), 41);
        QCOMPARE(steps.last(), qMakePair(41, 41));
    }

    void aRegisterWithItsCompanyAloneGivesTwoLines() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"),
             QStringLiteral("INSERT INTO EMPRS VALUES (100,4,"));
        const QString dir = env.path(QString());
        const ExportResult result = Exporter(db).run(kNeighbour, dir);
        const QByteArray bytes = readAll(result.joinedPath);
        QCOMPARE(bytes, readAll(dataPath(QStringLiteral("REUNIDO_98765432000110.TXT"))));
        QCOMPARE(bytes.count("\r\n"), 2);
    }

    void reExportReplacesTheFileWithoutAsking() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"));
        const QString dir = env.path(QString());
        const QString joined = dir + QStringLiteral("/REUNIDO_12345678000195.TXT");
        {
            QFile old(joined);
            QVERIFY(old.open(QIODevice::WriteOnly));
            old.write(QByteArray(100000, 'x'));
        }
        const QByteArray golden = readAll(dataPath(QStringLiteral("REUNIDO_12345678000195.TXT")));
        Exporter(db).run(kFull, dir);
        QCOMPARE(readAll(joined), golden);
        // Again, now with the status the first export gave the register.
        db.run(QStringLiteral(
            "UPDATE TB_POSTOMOVMN SET QCOMBS = 7 WHERE NMUNCP = 100 AND NSEQNC = 3"));
        Exporter(db).run(kFull, dir);
        QByteArray changed = golden;
        changed.replace("\xacNull\xac"
                        "1\r\n[TB_POSTO]",
                        "\xacNull\xac"
                        "2\r\n[TB_POSTO]");
        changed.replace("\xacNull\xac"
                        "1200,5\xac"
                        "1\r\n",
                        "\xacNull\xac"
                        "7\xac"
                        "1\r\n");
        QVERIFY(changed != golden);
        QCOMPARE(readAll(joined), changed);
    }

    void twoRegistersOfOneCnpjShareTheirFileNames() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, CSITU) VALUES "
                              "(100, 1, 'Primeiro', 45678000195, 1), (200, 2, 'Segundo', "
                              "45678000195, 1)"));
        db.run(QStringLiteral("INSERT INTO TB_POSTOCOMRCSERVC VALUES (100, 1, '2003-03-14', 9, "
                              "'Oficina')"));
        const QString dir = env.path(QString());
        const ExportResult first = Exporter(db).run({100, 1}, dir);
        const ExportResult second = Exporter(db).run({200, 2}, dir);
        QCOMPARE(first.joinedPath, second.joinedPath);
        QVERIFY(first.joinedPath.endsWith(QStringLiteral("/REUNIDO_00045678000195.TXT")));
        const QByteArray bytes = readAll(second.joinedPath);
        QVERIFY(bytes.startsWith("[EMPRS]\r\n200\xac"
                                 "2\xacNull\xacSegundo\xac"));
        // The file's name carries the 14 digits; the EMPRS line, the number as it is.
        QVERIFY(bytes.contains("\xac"
                               "45678000195\xac"));
        QVERIFY(!bytes.contains("00045678000195"));
        QVERIFY(!bytes.contains("TB_POSTOCOMRCSERVC"));
        QCOMPARE(entries(dir).filter(QStringLiteral(".TXT")).size(), 1);
    }

    void statusMovesOnlyForward_data() {
        QTest::addColumn<QVariant>("before");
        QTest::addColumn<QVariant>("after");
        QTest::newRow("em manutenção") << QVariant(0) << QVariant(2);
        QTest::newRow("ok") << QVariant(1) << QVariant(2);
        QTest::newRow("exportado") << QVariant(2) << QVariant(2);
        QTest::newRow("enviado") << QVariant(3) << QVariant(3);
        QTest::newRow("reenviado") << QVariant(4) << QVariant(4);
    }
    void statusMovesOnlyForward() {
        QFETCH(QVariant, before);
        QFETCH(QVariant, after);
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        db.run(
            QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CCGC, CSITU) VALUES (1, 2, 3, ?)"),
            {before});
        const ExportResult result = Exporter(db).run({1, 2}, env.path(QString()));
        QCOMPARE(csitu(db, {1, 2}).toInt(), after.toInt());
        QCOMPARE(result.csitu.toInt(), after.toInt());
        // The file carries the status as it was when written.
        QVERIFY(
            readAll(result.joinedPath).endsWith("\xac" + before.toString().toLatin1() + "\r\n"));
    }

    void failuresOfTheTarget_data() {
        QTest::addColumn<QString>("target");
        QTest::addColumn<int>("reason");
        QTest::addColumn<QString>("message");
        // Not even root may create a file in /sys.
        QTest::newRow("write protected")
            << QStringLiteral("/sys") << int(ExportFailure::Reason::WriteProtected)
            << kWriteProtectedText;
        QTest::newRow("no medium")
            << QStringLiteral("missing/drive") << int(ExportFailure::Reason::MediumMissing)
            << kMediumMissingText;
    }
    void failuresOfTheTarget() {
        QFETCH(QString, target);
        QFETCH(int, reason);
        QFETCH(QString, message);
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"));
        const QString dir = target.startsWith(QLatin1Char('/')) ? target : env.path(target);
        const QStringList before = entries(dir);
        try {
            Exporter(db).run(kFull, dir);
            QFAIL("the export went through");
        } catch (const ExportFailure& failure) {
            QCOMPARE(int(failure.reason()), reason);
            QCOMPARE(failure.message(), message);
        }
        QCOMPARE(entries(dir), before);
        QCOMPARE(csitu(db, kFull).toInt(), 1);
    }

    void aFullDiskLeavesNoHalfFileAndTheOldOneIntact_data() {
        QTest::addColumn<QString>("failingFile");
        QTest::newRow("in the dump") << QStringLiteral("TB_POSTOBACIA_12345678000195.TXT");
        QTest::newRow("in the joined file") << QStringLiteral("REUNIDO_12345678000195.TXT.part");
    }
    void aFullDiskLeavesNoHalfFileAndTheOldOneIntact() {
        QFETCH(QString, failingFile);
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"));
        const QString dir = env.path(QString());
        const QString joined = dir + QStringLiteral("/REUNIDO_12345678000195.TXT");
        {
            QFile old(joined);
            QVERIFY(old.open(QIODevice::WriteOnly));
            old.write("earlier export\r\n");
        }
        Exporter exporter(db);
        exporter.setDeviceFactory([&](const QString& path) -> std::unique_ptr<QIODevice> {
            return std::make_unique<FillingFile>(path, path.endsWith(failingFile) ? 20 : 1 << 20);
        });
        try {
            exporter.run(kFull, dir);
            QFAIL("the export went through");
        } catch (const ExportFailure& failure) {
            QCOMPARE(failure.reason(), ExportFailure::Reason::DiskFull);
            QCOMPARE(failure.message(), kDiskFullText);
        }
        QCOMPARE(entries(dir).filter(QStringLiteral(".TXT")),
                 QStringList{QStringLiteral("REUNIDO_12345678000195.TXT")});
        QCOMPARE(readAll(joined), QByteArray("earlier export\r\n"));
        QCOMPARE(csitu(db, kFull).toInt(), 1);
    }

    // A status that cannot be written fails the export whole: no joined file is left for a
    // register the user is told was not exported.
    void aStatusThatCannotBeWrittenLeavesNoFile() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"));
        db.run(QStringLiteral("CREATE TRIGGER situacao_presa BEFORE UPDATE OF CSITU ON EMPRS "
                              "BEGIN SELECT RAISE(ABORT, 'situação presa'); END"));
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        try {
            Exporter(db).run(kFull, dir);
            QFAIL("the export went through");
        } catch (const store::Failure& failure) {
            QCOMPARE(failure.description(), QStringLiteral("situação presa"));
        }
        QCOMPARE(entries(dir), QStringList());
        QCOMPARE(csitu(db, kFull).toInt(), 1);

        // The status stays with the file when the file fails.
        db.run(QStringLiteral("DROP TRIGGER situacao_presa"));
        Exporter exporter(db);
        exporter.setDeviceFactory([&](const QString& path) -> std::unique_ptr<QIODevice> {
            return std::make_unique<FillingFile>(
                path, path.endsWith(QStringLiteral(".part")) ? 20 : 1 << 20);
        });
        QVERIFY_THROWS_EXCEPTION(ExportFailure, exporter.run(kFull, dir));
        QCOMPARE(entries(dir), QStringList());
        QCOMPARE(csitu(db, kFull).toInt(), 1);
    }

    void aTextTheFileCannotHoldStopsTheExportByName() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"));
        db.run(QStringLiteral("UPDATE SUGESTOES SET SUGESTAO = 'Ótimo 👍'"));
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        try {
            Exporter(db).run(kFull, dir);
            QFAIL("the export went through");
        } catch (const ExportFailure& failure) {
            QCOMPARE(failure.reason(), ExportFailure::Reason::Unencodable);
            QVERIFY(failure.message().contains(QStringLiteral("SUGESTAO")));
            QVERIFY(failure.message().contains(QStringLiteral("👍")));
        }
        QCOMPARE(entries(dir), QStringList());
        QCOMPARE(csitu(db, kFull).toInt(), 1);
    }

    // What the import would refuse or misread is refused here, by table, field and register:
    // a text that carries a line past its limit, a number column holding a text.
    void aValueTheImportCannotReadBackStopsTheExport_data() {
        QTest::addColumn<QString>("change");
        QTest::addColumn<QString>("message");
        QTest::newRow("a text past the line's limit")
            << QStringLiteral("UPDATE SUGESTOES SET SUGESTAO = printf('%.1100c', 'a')")
            << QStringLiteral("O texto do campo SUGESTAO da tabela SUGESTOES do posto 1000003 é "
                              "longo demais para o arquivo de exportação, cujas linhas levam no "
                              "máximo 1000 caracteres. Encurte o texto e exporte novamente.");
        QTest::newRow("a number stored as a text with the separator")
            << QStringLiteral("UPDATE EMPRS SET NLOGRD = '12¬5'")
            << QStringLiteral("O valor \"12 5\" do campo NLOGRD da tabela EMPRS do posto 1000003 "
                              "não é um valor que o arquivo de exportação possa levar. Corrija o "
                              "valor e exporte novamente.");
        QTest::newRow("a date that is none")
            << QStringLiteral("UPDATE TB_POSTOTANQU SET AINSTL = '2003-02-30'")
            << QStringLiteral("O valor \"2003-02-30\" do campo AINSTL da tabela TB_POSTOTANQU do "
                              "posto 1000003 não é um valor que o arquivo de exportação possa "
                              "levar. Corrija o valor e exporte novamente.");
    }
    void aValueTheImportCannotReadBackStopsTheExport() {
        QFETCH(QString, change);
        QFETCH(QString, message);
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"));
        db.run(change);
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        try {
            Exporter(db).run(kFull, dir);
            QFAIL("the export went through");
        } catch (const ExportFailure& failure) {
            QCOMPARE(failure.reason(), ExportFailure::Reason::Unencodable);
            QCOMPARE(failure.message(), message);
        }
        QCOMPARE(entries(dir), QStringList());
        QCOMPARE(csitu(db, kFull).toInt(), 1);
    }

    // A text that ends at the line's limit is written, and read back whole.
    void aTextUpToTheLimitIsWrittenAndReadBack() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        load(db, QStringLiteral("full_register.sql"));
        // Its section would be read as rows of the section before: the import knows no header
        // of it.
        db.run(QStringLiteral("DELETE FROM TB_POSTOGASVAZMN"));
        testsupport::ImportBatch agency;
        const QByteArray joined = readAll(Exporter(db).run(kFull, agency.directory()).joinedPath);
        const qsizetype row = joined.indexOf("[SUGESTOES]\r\n") + 13;
        // NMUNCP, NSEQNC, DRAZAOSOCIL stand before SUGESTAO.
        qsizetype prefix = row;
        for (int i = 0; i < 3; ++i)
            prefix = joined.indexOf('\xAC', prefix) + 1;
        const int room = 1000 - int(prefix - row);

        db.run(QStringLiteral("UPDATE SUGESTOES SET SUGESTAO = printf('%.*c', ?, 'a')"),
               {room + 1});
        QVERIFY_THROWS_EXCEPTION(ExportFailure, Exporter(db).run(kFull, agency.directory()));
        db.run(QStringLiteral("UPDATE SUGESTOES SET SUGESTAO = printf('%.*c', ?, 'a')"), {room});
        Exporter(db).run(kFull, agency.directory());
        agency.run();
        QCOMPARE(agency.refusals(), QStringList());
        QCOMPARE(
            agency.value(QStringLiteral("SELECT length(SUGESTAO) || '/' || COD FROM SUGESTOES"))
                .toString(),
            QStringLiteral("%1/1").arg(room));
    }

    void anUnknownRegisterIsRefused() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        try {
            Exporter(db).run({1, 1}, env.path(QString()));
            QFAIL("the export went through");
        } catch (const ExportFailure& failure) {
            QCOMPARE(failure.reason(), ExportFailure::Reason::NoRegister);
            QCOMPARE(failure.message(), QStringLiteral("O posto 0010001 não está cadastrado."));
        }
    }
};

QTEST_GUILESS_MAIN(TestExport)
#include "test_export.moc"
