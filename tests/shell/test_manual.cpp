// Where F1 and "Manual de Preenchimento" find the manual: installed beside the program, or
// compiled into it when the program runs from its build folder.
#include "shell/Manual.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray sourceManual() {
    return contents(qEnvironmentVariable("VOR_SOURCE_DIR") +
                    QStringLiteral("/docs/manual/index.html"));
}

} // namespace

class TestManual : public QObject {
    Q_OBJECT

private slots:
    void anInstalledProgramOpensTheInstalledCopy() {
        testsupport::TestEnvironment env;
        const QString installed = env.path(QStringLiteral("usr/share/doc/vor/manual/index.html"));
        write(installed, "<html>installed</html>");
        QDir().mkpath(env.path(QStringLiteral("usr/bin")));
        QCOMPARE(shell::installedManual(env.path(QStringLiteral("usr/bin"))), installed);
        QCOMPARE(shell::manualFile(env.path(QStringLiteral("usr/bin"))), installed);
        // Nothing is copied when the installed manual serves.
        QVERIFY(!QFile::exists(env.path(QStringLiteral("cache/vor/manual/index.html"))));
    }

    // From the build folder, or where the system left documentation out, the compiled-in copy
    // is written for the viewer into the user's own cache, over a copy of an earlier release.
    void withoutAnInstalledCopyTheCompiledInOneIsWrittenForTheUser() {
        testsupport::TestEnvironment env;
        const QString program = env.path(QStringLiteral("usr/bin"));
        QDir().mkpath(program);
        write(env.path(QStringLiteral("usr/share/doc/vor/index.html")), "<html>elsewhere</html>");
        QCOMPARE(shell::installedManual(program), QString());

        const QString expected = env.path(QStringLiteral("cache/vor/manual/index.html"));
        write(expected, "<html>older release</html>");
        QFile::setPermissions(expected, QFileDevice::ReadOwner);

        QCOMPARE(shell::manualFile(program), expected);
        QVERIFY(!sourceManual().isEmpty());
        QCOMPARE(contents(expected), sourceManual());
        QVERIFY(QFileInfo(expected).isWritable());
    }

    void aCacheThatCannotBeWrittenGivesNoFile() {
        testsupport::TestEnvironment env;
        write(env.path(QStringLiteral("not-a-folder")), "x");
        qputenv("XDG_CACHE_HOME", env.path(QStringLiteral("not-a-folder")).toUtf8());
        QCOMPARE(shell::manualFile(env.path(QStringLiteral("usr/bin"))), QString());
    }
};

QTEST_GUILESS_MAIN(TestManual)
#include "test_manual.moc"
