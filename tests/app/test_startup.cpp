#include "app/Paths.h"
#include "app/Startup.h"
#include "rules/Formats.h"
#include "shell/StartupChecks.h"
#include "store/Database.h"
#include "store/TableCatalogue.h"
#include "support/FileMode.h"
#include "support/ImportFixture.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSqlQuery>
#include <QTest>

namespace {

const QString kTitle = QStringLiteral("ATENÇÃO! Impossível continuar...");

void writeFile(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// A suggestion longer than a line of the exchange format carries, with a character that
// Windows-1252 has no byte for.
const QString kOddSuggestion = QString(1500, u'x') + QStringLiteral("\uFFFD");

// Every row of a table, each column quoted as SQLite stores it (Null, '' and 0 apart), in the
// order of its columns.
QStringList rowsOf(store::Database& db, const store::Table& table) {
    QStringList columns;
    for (const store::Column& c : table.columns)
        columns << QStringLiteral("quote(\"%1\")").arg(c.qname());
    QSqlQuery query = db.run(QStringLiteral("SELECT %1 FROM \"%2\" ORDER BY 1")
                                 .arg(columns.join(QStringLiteral(" || '|' || ")), table.qname()));
    QStringList rows;
    while (query.next())
        rows << query.value(0).toString();
    return rows;
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestStartup : public QObject {
    Q_OBJECT

private slots:
    void joinPathAddsOneSeparator_data() {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("joined");
        QTest::newRow("root") << "/"
                              << "/VOR-POSTO.db";
        QTest::newRow("plain folder") << "/opt/vor"
                                      << "/opt/vor/VOR-POSTO.db";
        QTest::newRow("trailing separator") << "/opt/vor/"
                                            << "/opt/vor/VOR-POSTO.db";
    }

    void joinPathAddsOneSeparator() {
        QFETCH(QString, folder);
        QFETCH(QString, joined);
        QCOMPARE(app::joinPath(folder, QStringLiteral("VOR-POSTO.db")), joined);
    }

    void databasePathPrefersArgumentThenEnvironment() {
        testsupport::TestEnvironment env;
        const QString dataHome = qEnvironmentVariable("XDG_DATA_HOME");
        QCOMPARE(app::databasePath(QString()), dataHome + QStringLiteral("/vor/VOR-POSTO.db"));
        qputenv("VOR_DATABASE", "/srv/agencia/vor.db");
        QCOMPARE(app::databasePath(QString()), QStringLiteral("/srv/agencia/vor.db"));
        QCOMPARE(app::databasePath(QStringLiteral("/tmp/x.db")), QStringLiteral("/tmp/x.db"));
        qunsetenv("VOR_DATABASE");
        qunsetenv("XDG_DATA_HOME");
        QVERIFY(app::databasePath(QString()).endsWith(
            QStringLiteral("/.local/share/vor/VOR-POSTO.db")));
    }

    void waitingDatabaseIsMovedWhenNoneIsInUse() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        const QString db = app::databasePath(QString());
        const QString incoming = app::incomingDatabasePath(db);
        QCOMPARE(incoming, qEnvironmentVariable("XDG_DATA_HOME") +
                               QStringLiteral("/vor/incoming/VOR-POSTO.db"));
        writeFile(incoming, "nova versão");

        const app::IncomingResult result = app::takeIncomingDatabase(db);
        app::reportIncoming(result, db);
        QCOMPARE(result.outcome, app::IncomingOutcome::MovedInto);
        QCOMPARE(readFile(db), QByteArray("nova versão"));
        QCOMPARE(testsupport::fileMode(db), QStringLiteral("0600")); // it came as 0644
        QVERIFY(!QFile::exists(incoming));
        QVERIFY(dialogs.shown().isEmpty());
    }

    // A new database waiting while one is in use gets every register of the one in use, and
    // its objective; the old file is kept as a backup.
    void theCarryOverKeepsEveryRegister() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        const QString db = app::databasePath(QString());
        const QString incoming = app::incomingDatabasePath(db);
        {
            store::Database old(db);
            testsupport::loadFixture(old, QStringLiteral("full_register.sql"));
            old.run(QStringLiteral("UPDATE SUGESTOES SET SUGESTAO = ?"), {kOddSuggestion});
            QDir().mkpath(QFileInfo(incoming).absolutePath());
            store::Database fresh(incoming);
        }
        const QByteArray oldBytes = readFile(db);
        QFile::setPermissions(incoming,
                              QFile::permissions(incoming) | QFile::ReadGroup | QFile::ReadOther);

        const app::IncomingResult result = app::takeIncomingDatabase(db);
        app::reportIncoming(result, db);
        QCOMPARE(result.outcome, app::IncomingOutcome::CarriedOver);
        QCOMPARE(result.registers, 2);
        QVERIFY(!QFile::exists(incoming));
        QVERIFY(!QFile::exists(incoming + QStringLiteral(".transferindo")));
        QCOMPARE(QFileInfo(result.backupPath).absolutePath(),
                 QFileInfo(db).absolutePath() + QStringLiteral("/backups"));
        QCOMPARE(readFile(result.backupPath), oldBytes);
        QCOMPARE(testsupport::fileMode(db), QStringLiteral("0600"));
        QCOMPARE(testsupport::fileMode(result.backupPath), QStringLiteral("0600"));
        QCOMPARE(testsupport::fileMode(QFileInfo(result.backupPath).absolutePath()),
                 QStringLiteral("0700"));
        QCOMPARE(testsupport::fileMode(QFileInfo(incoming).absolutePath()), QStringLiteral("0700"));
        QCOMPARE(dialogs.shown().size(), 1);
        QVERIFY(dialogs.last().text.contains(result.backupPath));

        // Every row of every register table, each column as it was stored: an empty text
        // stays empty, ALEVNT and SSEMPAVMN come along, and neither a text past the exchange
        // format's limits nor a byte it leaves undefined stops the carry-over.
        store::Database before(result.backupPath);
        store::Database after(db);
        for (const store::Table* table : store::registerTables())
            QCOMPARE(rowsOf(after, *table), rowsOf(before, *table));
        QCOMPARE(
            after.scalar(QStringLiteral("SELECT ALEVNT FROM TB_POSTO WHERE NSEQNC = 3")).toString(),
            QStringLiteral("2003-02-28"));
        QCOMPARE(after.scalar(QStringLiteral("SELECT SSEMPAVMN FROM TB_POSTOAREADESCARGA")).toInt(),
                 1);
        QCOMPARE(after
                     .scalar(QStringLiteral("SELECT quote(DEMAIL) FROM TB_POSTORESPN WHERE "
                                            "NSEQNC = 3"))
                     .toString(),
                 QStringLiteral("''"));
        QCOMPARE(after.scalar(QStringLiteral("SELECT SUGESTAO FROM SUGESTOES")).toString(),
                 kOddSuggestion);
        QCOMPARE(after
                     .scalar(QStringLiteral("SELECT IMOVMN || ' ' || ADOCMNINCLR FROM "
                                            "TB_VORpMOVMN"))
                     .toString(),
                 QStringLiteral("C 2003-03-14 10:00:00"));
    }

    void aFailedCarryOverLeavesBothFilesAsTheyWere() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        const QString db = app::databasePath(QString());
        const QString incoming = app::incomingDatabasePath(db);
        {
            store::Database old(db);
            old.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CCGC) VALUES (1, 1, 1)"));
        }
        writeFile(incoming, QByteArray(4096, 'x'));
        const QByteArray oldBytes = readFile(db);
        QFile::setPermissions(incoming,
                              QFile::permissions(incoming) | QFile::ReadGroup | QFile::ReadOther);

        const app::IncomingResult result = app::takeIncomingDatabase(db);
        app::reportIncoming(result, db);
        QCOMPARE(result.outcome, app::IncomingOutcome::CarryOverFailed);
        QCOMPARE(readFile(db), oldBytes);
        QCOMPARE(readFile(incoming), QByteArray(4096, 'x'));
        QVERIFY(!QFile::exists(incoming + QStringLiteral(".transferindo")));
        QVERIFY(!QDir(QFileInfo(db).absolutePath() + QStringLiteral("/backups")).exists());
        QCOMPARE(dialogs.last().icon, ui::Icon::Warning);
        QVERIFY(dialogs.last().text.contains(incoming));
    }

    void nothingWaitingMeansNothingHappens() {
        testsupport::TestEnvironment env;
        const QString db = app::databasePath(QString());
        QCOMPARE(app::takeIncomingDatabase(db).outcome, app::IncomingOutcome::Nothing);
        QVERIFY(!QFile::exists(db));
    }

    void dateFormatNeedsFourDigitYears_data() {
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("the program's own") << rules::kShortDateFormat << true;
        QTest::newRow("year first with dashes") << "yyyy-MM-dd" << true;
        QTest::newRow("two-digit year") << "dd/MM/yy" << false;
    }

    void dateFormatNeedsFourDigitYears() {
        QFETCH(QString, format);
        QFETCH(bool, accepted);
        testsupport::ScriptedDialogs dialogs;
        QCOMPARE(shell::checkDateFormat(format, QDate(2026, 3, 5)), accepted);
        if (accepted) {
            QVERIFY(dialogs.shown().isEmpty());
            return;
        }
        QCOMPARE(dialogs.shown().size(), 1);
        QCOMPARE(dialogs.last().title, kTitle);
        QCOMPARE(dialogs.last().icon, ui::Icon::Information);
        QCOMPARE(dialogs.last().text,
                 QStringLiteral("Altere no Windows, o formato atual de data para 4 dígitos!\n"
                                "Em Configurações Regionais escolha \n"
                                "o item Data, e altere o estilo para dd/mm/aaaa "));
    }

    void screenMustNotBeBothShortAndNarrow_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("640x480") << QSize(640, 480) << false;
        QTest::newRow("799x599") << QSize(799, 599) << false;
        QTest::newRow("800x600") << QSize(800, 600) << true;
        QTest::newRow("1024x768") << QSize(1024, 768) << true;
        QTest::newRow("1024x600") << QSize(1024, 600) << true;
        QTest::newRow("narrow but tall") << QSize(700, 600) << true;
        QTest::newRow("wide but short") << QSize(1024, 500) << true;
    }

    void screenMustNotBeBothShortAndNarrow() {
        QFETCH(QSize, size);
        QFETCH(bool, accepted);
        testsupport::ScriptedDialogs dialogs;
        QCOMPARE(shell::checkScreen(size), accepted);
        if (accepted) {
            QVERIFY(dialogs.shown().isEmpty());
            return;
        }
        QCOMPARE(dialogs.last().title, kTitle);
        QCOMPARE(dialogs.last().text,
                 QStringLiteral("Altere no Windows, o tamanho da tela para 800x600 (Fontes "
                                "Pequenas)!"));
    }
};

QTEST_MAIN(TestStartup)
#include "test_startup.moc"
