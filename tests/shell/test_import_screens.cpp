// The import screens behind lblImprt: the directory, the question, the batch and its counts.
#include "shell/Hooks.h"
#include "shell/ImportScreens.h"
#include "shell/MainWindow.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>
#include <QTimer>

namespace {

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// A joined file of one register with only its company row.
QByteArray registerFile(int nmuncp, const QByteArray& ccgc) {
    QByteArrayList fields(29, "Null");
    fields[0] = QByteArray::number(nmuncp);
    fields[1] = "1";
    fields[3] = "Posto";
    fields[12] = ccgc;
    fields[18] = "14/03/2003";
    return "[EMPRS]\r\n" + fields.join('\xAC') + "\r\n";
}

QString text(QWidget& screen, const char* name) {
    return screen.findChild<QLineEdit*>(QLatin1String(name))->text();
}

} // namespace

class TestImportScreens : public QObject {
    Q_OBJECT

private slots:
    // The access code opens frmImportacao; the main screen hides until it closes.
    void theEntryOpensTheImportScreenInPlaceOfTheMainScreen() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        testsupport::ScriptedDialogs dialogs;
        shell::resetHooks();
        shell::MainWindow window(db);
        window.show();
        dialogs.type(QStringLiteral("4qk"));
        bool seen = false;
        bool mainHidden = false;
        QTimer::singleShot(0, [&] {
            auto* screen = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            seen = screen && screen->objectName() == QLatin1String("frmImportacao");
            mainHidden = !window.isVisible();
            if (screen) {
                QCOMPARE(screen->windowTitle(),
                         QStringLiteral("Cadastro das Empresas Selecionadas"));
                testsupport::saveScreenshot(*screen, QStringLiteral("frmImportacao"));
                screen->findChild<QPushButton*>(QStringLiteral("cmdFechr"))->click();
            }
        });
        window.importar();
        QVERIFY(seen);
        QVERIFY(mainHidden);
        QVERIFY(window.isVisible());
    }

    void theDirectoryScreenListsTheTextFiles() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        const QString empty = env.path(QStringLiteral("vazio"));
        const QString batch = env.path(QStringLiteral("lote"));
        QDir().mkpath(empty);
        QDir().mkpath(batch);
        writeFile(batch + QStringLiteral("/REUNIDO_12345678000195.TXT"), "x");
        writeFile(batch + QStringLiteral("/outro.txt"), "x");
        writeFile(batch + QStringLiteral("/nota.doc"), "x");

        shell::ImportDirectoryDialog chooser(empty);
        QCOMPARE(chooser.windowTitle(), QStringLiteral("Importação dos Dados"));
        QStringList chosen;
        connect(&chooser, &shell::ImportDirectoryDialog::chosen,
                [&](const QString& dir, int files) { chosen << dir << QString::number(files); });
        auto* open = chooser.findChild<QPushButton*>(QStringLiteral("cmdProcr"));
        QCOMPARE(open->text(), QStringLiteral("&Abrir"));
        open->click();
        QCOMPARE(dialogs.texts(), QStringList{QStringLiteral("Selecione um diretório.")});
        QCOMPARE(dialogs.last().title, QStringLiteral("VOR"));
        QVERIFY(chosen.isEmpty());

        chooser.setDirectory(batch);
        auto* files = chooser.findChild<QListWidget*>(QStringLiteral("File1"));
        QCOMPARE(files->count(), 2);
        chooser.show();
        testsupport::saveScreenshot(chooser, QStringLiteral("frmImportacaoDir"));
        open->click();
        QCOMPARE(chosen, QStringList({batch, QStringLiteral("2")}));
        QCOMPARE(chooser.result(), int(QDialog::Accepted));
    }

    void theBatchAsksThenReportsEachRefusalAndTheEnd() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CCGC) VALUES (9, 9, 9)"));
        testsupport::ScriptedDialogs dialogs;
        const QString batch = env.path(QStringLiteral("lote"));
        QDir().mkpath(batch);
        writeFile(batch + QStringLiteral("/REUNIDO_12345678000195.TXT"),
                  registerFile(100, "12345678000195"));
        writeFile(batch + QStringLiteral("/vazio.txt"), QByteArray());

        shell::ImportScreen screen(db);
        screen.show();
        auto* import = screen.findChild<QPushButton*>(QStringLiteral("cmdImprt"));
        import->click();
        QCOMPARE(dialogs.texts(), QStringList{QStringLiteral("Necessita localizar o diretório.")});
        QCOMPARE(dialogs.last().icon, ui::Icon::Critical);

        screen.setBatch(batch, 2);
        QCOMPARE(text(screen, "txtTotalExis"), QStringLiteral("2"));
        dialogs.clear();
        dialogs.answer(false);
        import->click();
        QCOMPARE(dialogs.last().title, QStringLiteral("Importação"));
        QCOMPARE(dialogs.last().text, QStringLiteral("Continuar Importação?"));
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 1);

        dialogs.clear();
        dialogs.answer(true);
        import->click();
        QCOMPARE(dialogs.texts(), QStringList({QStringLiteral("Continuar Importação?"),
                                               QStringLiteral("O Arquivo vazio.txt está vazio."),
                                               QStringLiteral("Importação Concluída")}));
        QCOMPARE(dialogs.shown()[1].icon, ui::Icon::Critical);
        QCOMPARE(dialogs.last().title, QStringLiteral("VOR-POSTO-ZANTOR"));
        QCOMPARE(dialogs.last().icon, ui::Icon::Information);
        QCOMPARE(text(screen, "txtTotalLidos"), QStringLiteral("1"));
        QCOMPARE(db.scalar(QStringLiteral("SELECT NMUNCP FROM EMPRS")).toInt(), 100);
        const QString backup = screen.findChild<QLabel*>(QStringLiteral("lblCopia"))->text();
        QVERIFY2(backup.contains(QStringLiteral("/backups/VOR-POSTO-")), qPrintable(backup));
        testsupport::saveScreenshot(screen, QStringLiteral("frmImportacao-depois"));
        QVERIFY(!QApplication::overrideCursor());
    }

    // Another program writing the database: the batch waits a while, then ends with the error
    // routine's message; the screen stays and nothing of the database is lost.
    void aDatabaseHeldByAnotherProgramEndsTheBatchWithAMessage() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CCGC) VALUES (9, 9, 9)"));
        const QString batch = env.path(QStringLiteral("lote"));
        QDir().mkpath(batch);
        writeFile(batch + QStringLiteral("/REUNIDO_12345678000195.TXT"),
                  registerFile(100, "12345678000195"));
        {
            QSqlDatabase other =
                QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("outro"));
            other.setDatabaseName(db.path());
            QVERIFY(other.open());
            QSqlQuery lock(other);
            QVERIFY(lock.exec(QStringLiteral("BEGIN IMMEDIATE")));
            QVERIFY(lock.exec(QStringLiteral("UPDATE EMPRS SET CSITU = 4")));

            testsupport::ScriptedDialogs dialogs;
            dialogs.answer(true);
            shell::ImportScreen screen(db);
            screen.show();
            screen.setBatch(batch, 1);
            screen.findChild<QPushButton*>(QStringLiteral("cmdImprt"))->click();
            QCOMPARE(dialogs.texts(),
                     QStringList({QStringLiteral("Continuar Importação?"),
                                  QStringLiteral("5-Fonte : SQLite:Ocorreu um erro não previsto "
                                                 "de DAO.")}));
            QVERIFY(screen.isVisible());
            QVERIFY(!QApplication::overrideCursor());
            QVERIFY(lock.exec(QStringLiteral("ROLLBACK")));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("outro"));
        QCOMPARE(db.scalar(QStringLiteral("SELECT group_concat(NMUNCP || '/' || CCGC) FROM EMPRS"))
                     .toString(),
                 QStringLiteral("9/9"));
    }

    void theProgressWindow() {
        shell::ImportProgress bar;
        bar.show();
        bar.setStep(12, 40);
        QCOMPARE(bar.windowTitle(), QStringLiteral("Importando Dados..."));
        QCOMPARE(bar.findChild<QLabel*>(QStringLiteral("Label1"))->text(),
                 QStringLiteral("Aguarde, a operação poderá levar alguns minutos"));
        QCOMPARE(bar.findChild<QProgressBar*>(QStringLiteral("pBar1"))->value(), 12);
        testsupport::saveScreenshot(bar, QStringLiteral("frmImportacaoBar"));
    }
};

QTEST_MAIN(TestImportScreens)
#include "test_import_screens.moc"
