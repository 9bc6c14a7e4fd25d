// Personal data stays with the machine's user: the files that the program's commands write are
// the owner's only, and without a keyring the mail password stays out of every file.
#include "app/SystemKeyring.h"
#include "exchange/MailPassword.h"
#include "store/Database.h"
#include "support/FileMode.h"
#include "support/ProgramRun.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <sys/stat.h>

namespace {

using testsupport::fileMode;
using testsupport::runProgram;

const QString kFile = QStringLiteral("0600");
const QString kFolder = QStringLiteral("0700");

// Every file and folder under `folder` whose mode is not the private one, with its mode.
QStringList notPrivate(const QString& folder) {
    QStringList found;
    const QDir dir(folder);
    for (const QFileInfo& entry :
         dir.entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden)) {
        const QString mode = fileMode(entry.filePath());
        if (mode != (entry.isDir() ? kFolder : kFile))
            found << entry.fileName() + QLatin1Char(' ') + mode;
        if (entry.isDir())
            found << notPrivate(entry.filePath());
    }
    return found;
}

} // namespace

class TestPersonalData : public QObject {
    Q_OBJECT

private slots:
    // As on most desktops: what the program creates must not owe its privacy to a strict umask.
    void initTestCase() { ::umask(022); }

    void everyCommandWritesPrivateFiles() {
        testsupport::TestEnvironment env;
        const QString folder = env.path(QStringLiteral("novo"));
        const QString db = folder + QStringLiteral("/vor/VOR-POSTO.db");

        QCOMPARE(runProgram({QStringLiteral("init"), QStringLiteral("--database"), db}).exitCode,
                 0);
        QCOMPARE(fileMode(db), kFile);
        QCOMPARE(fileMode(folder), kFolder);
        QCOMPARE(fileMode(folder + QStringLiteral("/vor")), kFolder);

        const testsupport::ProgramRun made =
            runProgram({QStringLiteral("demo-register"), QStringLiteral("--database"), db});
        QCOMPARE(made.exitCode, 0);
        const QString code =
            QRegularExpression(QStringLiteral("VOR (\\d{7}) incluído")).match(made.out).captured(1);
        QVERIFY2(!code.isEmpty(), qPrintable(made.out + made.err));

        // The folder of the exchange files is the user's; what the export writes in it is not
        // for other users.
        const QString out = env.path(QStringLiteral("disquete"));
        QVERIFY(QDir().mkpath(out));
        const testsupport::ProgramRun exported =
            runProgram({QStringLiteral("export"), QStringLiteral("--database"), db,
                        QStringLiteral("--register"), code, QStringLiteral("--dir"), out});
        QCOMPARE(exported.exitCode, 0);
        QCOMPARE(fileMode(exported.out.trimmed()), kFile);

        const QString pdf = out + QStringLiteral("/memorial.pdf");
        const testsupport::ProgramRun printed =
            runProgram({QStringLiteral("print"), QStringLiteral("--database"), db,
                        QStringLiteral("--register"), code, QStringLiteral("--pdf"), pdf});
        QCOMPARE(printed.exitCode, 0);
        QCOMPARE(fileMode(pdf), kFile);
        QCOMPARE(notPrivate(out), QStringList());

        const testsupport::ProgramRun imported =
            runProgram({QStringLiteral("import"), QStringLiteral("--database"), db,
                        QStringLiteral("--yes"), out});
        QCOMPARE(imported.exitCode, 0);
        const QString backup =
            QRegularExpression(QStringLiteral("anterior: (\\S+)")).match(imported.out).captured(1);
        QVERIFY2(QFile::exists(backup), qPrintable(imported.out + imported.err));
        QCOMPARE(fileMode(backup), kFile);
        QCOMPARE(fileMode(folder + QStringLiteral("/vor/backups")), kFolder);
        QCOMPARE(notPrivate(folder), QStringList());
        // None of these commands had anything to narrow.
        QVERIFY(!(made.err + exported.err + printed.err + imported.err)
                     .contains(QStringLiteral("permissões")));
    }

    // A database that an earlier version left readable by others is narrowed at the next
    // start, with one line on standard error and no question.
    void anOpenDatabaseIsNarrowedAtStart() {
        testsupport::TestEnvironment env;
        const QString db = env.newDatabasePath();
        { store::Database created(db); }
        QVERIFY(QFile::setPermissions(db, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                              QFile::ReadOther));
        const testsupport::ProgramRun first =
            runProgram({QStringLiteral("summary"), QStringLiteral("--database"), db});
        QCOMPARE(first.exitCode, 0);
        QCOMPARE(first.err, QStringLiteral("vor: permissões de %1 reduzidas de 0644 para 0600: o "
                                           "banco de dados guarda dados pessoais.\n")
                                .arg(db));
        QCOMPARE(fileMode(db), kFile);
        const testsupport::ProgramRun second =
            runProgram({QStringLiteral("summary"), QStringLiteral("--database"), db});
        QCOMPARE(second.err, QString());
    }

    // SQLite gives the write-ahead log and its index the permissions of the database.
    void theJournalsOfADatabaseArePrivate() {
        testsupport::TestEnvironment env;
        const QString path = env.newDatabasePath();
        store::Database db(path);
        db.scalar(QStringLiteral("PRAGMA journal_mode = WAL"));
        db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL) VALUES (100, 1, "
                              "'Posto')"));
        QCOMPARE(fileMode(path + QStringLiteral("-wal")), kFile);
        QCOMPARE(fileMode(path + QStringLiteral("-shm")), kFile);
    }

    // A session without a keyring (no session bus, as in CI) says so at once, and the password
    // then lives in the session's memory only.
    void theSystemKeyringOfASessionWithoutOne() {
        testsupport::TestEnvironment env;
        qputenv("DBUS_SESSION_BUS_ADDRESS",
                "unix:path=" + QFile::encodeName(env.path(QStringLiteral("no-bus"))));
        qunsetenv("DISPLAY");
        // A service of its own: should a keyring answer after all, the program's entry is safe.
        app::SystemKeyring keyring(QStringLiteral("vor-teste"));
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(keyring.read(exchange::kMailPasswordKey).status,
                 exchange::Keyring::Status::Unavailable);
        QVERIFY(!keyring.write(exchange::kMailPasswordKey, QStringLiteral("s3nh@")));
        QVERIFY(clock.elapsed() < 10000);

        const exchange::KeyringOverride inUse(keyring);
        QCOMPARE(exchange::keepMailPassword(QStringLiteral("s3nh@")),
                 exchange::PasswordPlace::Session);
        const exchange::KnownPassword known = exchange::knownMailPassword();
        QVERIFY(!known.keyringAvailable);
        QCOMPARE(known.password, QStringLiteral("s3nh@"));
    }
};

QTEST_GUILESS_MAIN(TestPersonalData)
#include "test_personal_data.moc"
