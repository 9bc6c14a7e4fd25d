// The suggestions and agencies panels of the main screen, through their widgets.
#include "shell/AgenciesPanel.h"
#include "shell/ExportPanel.h"
#include "shell/PrintChooser.h"
#include "shell/RegisterChooser.h"
#include "shell/SuggestionsPanel.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

namespace {

void addRegister(store::Database& db, int nmuncp, int nseqnc, const QString& name, int csitu = 1) {
    db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CSITU) VALUES (?, ?, "
                          "?, ?)"),
           {nmuncp, nseqnc, name, csitu});
}

QVariant suggestionOf(store::Database& db, int nmuncp, int nseqnc) {
    return db.scalar(
        QStringLiteral("SELECT SUGESTAO FROM SUGESTOES WHERE NMUNCP = ? AND NSEQNC = ?"),
        {nmuncp, nseqnc});
}

template <class T> T* child(QWidget& parent, const char* name) {
    T* widget = parent.findChild<T*>(QString::fromLatin1(name));
    if (!widget)
        qFatal("no widget %s", name);
    return widget;
}

} // namespace

class TestSidePanels : public QObject {
    Q_OBJECT

private slots:
    void suggestionIsInsertedChangedAndDeleted() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        store::Database db(env.newDatabasePath());
        addRegister(db, 100, 1, QStringLiteral("AUTO POSTO BOA VIAGEM LTDA"));
        shell::SuggestionsPanel panel(db);
        auto* text = child<QPlainTextEdit>(panel, "Text1");
        auto* save = child<QPushButton>(panel, "cmdInsere");
        auto* erase = child<QPushButton>(panel, "cmdExcluir");

        panel.openFor({100, 1});
        QVERIFY(panel.isVisibleTo(nullptr) || !panel.isHidden());
        QVERIFY(text->toPlainText().isEmpty());
        QVERIFY(!erase->isEnabled());

        save->click();
        QCOMPARE(dialogs.last().text, QStringLiteral("O campo não pode estar em branco."));
        QCOMPARE(dialogs.last().icon, ui::Icon::Critical);
        QVERIFY(suggestionOf(db, 100, 1).isNull());

        text->setPlainText(QStringLiteral("Incluir o campo de celular\nno cadastro."));
        save->click();
        QCOMPARE(dialogs.last().text, QStringLiteral("Sua sugestão foi cadastrada com Sucesso."));
        QCOMPARE(dialogs.last().icon, ui::Icon::Information);
        QCOMPARE(suggestionOf(db, 100, 1).toString(),
                 QStringLiteral("Incluir o campo de celular\nno cadastro."));
        QCOMPARE(
            db.scalar(QStringLiteral("SELECT DRAZAOSOCIL || '/' || COD FROM SUGESTOES")).toString(),
            QStringLiteral("AUTO POSTO BOA VIAGEM LTDA/1"));
        QVERIFY(text->toPlainText().isEmpty());

        panel.openFor({100, 1});
        QCOMPARE(text->toPlainText(), QStringLiteral("Incluir o campo de celular\nno cadastro."));
        QVERIFY(erase->isEnabled());
        panel.resize(700, 350);
        testsupport::saveScreenshot(panel, QStringLiteral("sugestoes"));
        text->setPlainText(QStringLiteral("Outra ideia"));
        save->click();
        QCOMPARE(dialogs.last().text, QStringLiteral("Sua sugestão foi alterada com Sucesso."));
        QCOMPARE(suggestionOf(db, 100, 1).toString(), QStringLiteral("Outra ideia"));
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM SUGESTOES")).toInt(), 1);

        panel.openFor({100, 1});
        text->setPlainText(QStringLiteral("   "));
        save->click();
        QCOMPARE(dialogs.last().text, QStringLiteral("O campo não pode estar em branco."));
        QCOMPARE(suggestionOf(db, 100, 1).toString(), QStringLiteral("Outra ideia"));

        erase->click();
        QCOMPARE(dialogs.last().text, QStringLiteral("Sua sugestão foi excluída com Sucesso."));
        QVERIFY(suggestionOf(db, 100, 1).isNull());
    }

    void suggestionsBelongToTheirOwnRegister() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        store::Database db(env.newDatabasePath());
        // Same sequence number in two municipalities, and the same company name twice.
        addRegister(db, 100, 1, QStringLiteral("POSTO IRMÃOS"));
        addRegister(db, 101, 1, QStringLiteral("POSTO IRMÃOS"));
        shell::SuggestionsPanel panel(db);
        auto* text = child<QPlainTextEdit>(panel, "Text1");
        auto* save = child<QPushButton>(panel, "cmdInsere");

        panel.openFor({100, 1});
        text->setPlainText(QStringLiteral("da capital"));
        save->click();
        panel.openFor({101, 1});
        QVERIFY(text->toPlainText().isEmpty()); // not the other register's text
        text->setPlainText(QStringLiteral("do interior"));
        save->click();

        panel.openFor({100, 1});
        text->setPlainText(QStringLiteral("da capital, revista"));
        save->click();
        QCOMPARE(suggestionOf(db, 101, 1).toString(), QStringLiteral("do interior"));

        child<QPushButton>(panel, "cmdExcluir")->click();
        QVERIFY(suggestionOf(db, 100, 1).isNull());
        QCOMPARE(suggestionOf(db, 101, 1).toString(), QStringLiteral("do interior"));
    }

    void suggestionKeepsOutTheSeparatorAndStaysWithinItsLimit() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        store::Database db(env.newDatabasePath());
        shell::SuggestionsPanel panel(db);
        auto* text = child<QPlainTextEdit>(panel, "Text1");
        text->setPlainText(QStringLiteral("a¬b"));
        QCOMPARE(text->toPlainText(), QStringLiteral("ab"));
        text->setPlainText(QString(1200, u'x'));
        QCOMPARE(text->toPlainText().size(), shell::SuggestionsPanel::kMaxLength);
    }

    void chooserListsRegistersOrSaysThereAreNone() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        store::Database db(env.newDatabasePath());
        shell::RegisterChooser chooser(db);
        QVERIFY(!chooser.open(shell::RegisterChooser::Purpose::Suggestions));
        QCOMPARE(dialogs.last().text, QStringLiteral("É necessário cadastrar o VOR"));
        QCOMPARE(dialogs.last().icon, ui::Icon::Warning);

        addRegister(db, 100, 2, QStringLiteral("POSTO B"), 3);
        addRegister(db, 105, 1, QStringLiteral("POSTO A"), 7);
        QVERIFY(chooser.open(shell::RegisterChooser::Purpose::Export));
        QCOMPARE(chooser.title(), QStringLiteral("Disquete"));
        QVERIFY(!child<QLabel>(chooser, "lblSelecioneVOR")->isHidden());
        auto* grid = child<QTableWidget>(chooser, "fgrVOR");
        QCOMPARE(grid->rowCount(), 2);
        QCOMPARE(grid->item(0, 0)->text(), QStringLiteral("POSTO A"));
        QCOMPARE(grid->item(0, 3)->text(), QStringLiteral("7")); // unknown status stays a number
        QCOMPARE(grid->item(1, 3)->text(), QStringLiteral("ENVIADO"));

        QVERIFY(chooser.open(shell::RegisterChooser::Purpose::Suggestions));
        QCOMPARE(chooser.title(), QStringLiteral("Sugestões"));
        QVERIFY(child<QLabel>(chooser, "lblSelecioneVOR")->isHidden());
        QCOMPARE(grid->horizontalHeaderItem(0)->text(), QStringLiteral("Código"));

        store::RegisterKey chosenKey;
        connect(&chooser, &shell::RegisterChooser::chosen, this,
                [&](shell::RegisterChooser::Purpose, store::RegisterKey key, const QString&) {
                    chosenKey = key;
                });
        QVERIFY(!child<QPushButton>(chooser, "Command2")->isEnabled());
        grid->selectRow(1);
        child<QPushButton>(chooser, "Command2")->click();
        QCOMPARE(chosenKey, (store::RegisterKey{105, 1}));
    }

    void exportPanelWritesTheChosenRegisterIntoItsFolder() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        store::Database db(env.newDatabasePath());
        db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, CSITU) "
                              "VALUES (100, 1, 'POSTO A', 11222333000181, 1)"));
        QTemporaryDir target;
        QFile old(QDir(target.path()).filePath(QStringLiteral("ANTIGO.TXT")));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.close();

        shell::ExportPanel panel(db);
        panel.openFor({100, 1});
        panel.setDirectory(target.path());
        auto* files = child<QListWidget>(panel, "File1");
        QCOMPARE(files->count(), 1);

        dialogs.answer(false); // no mail
        // The wait text is gone by the time the question comes up.
        panel.show();
        QStringList waitShown;
        dialogs.watch([&](const testsupport::ScriptedDialogs::Shown& shown) {
            if (child<QLabel>(panel, "lblAvisoExportacao")->isVisible())
                waitShown << shown.text;
        });
        child<QPushButton>(panel, "cmdExportar")->click();
        QCOMPARE(waitShown, QStringList());
        QCOMPARE(dialogs.texts(), QStringList{"Exportação Concluída. Enviar por e-mail?"});
        QVERIFY(QFile::exists(
            QDir(target.path()).filePath(QStringLiteral("REUNIDO_11222333000181.TXT"))));
        QCOMPARE(files->count(), 2); // the folder's list shows the new file
        QCOMPARE(child<QProgressBar>(panel, "pBar1")->value(), 0);
        QVERIFY(child<QLabel>(panel, "lblAvisoExportacao")->isHidden());
        QCOMPARE(db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS")).toInt(), 2);
        QCOMPARE(shell::lastExportDirectory(), target.path());
        panel.resize(640, 420);
        testsupport::saveScreenshot(panel, QStringLiteral("export-panel"));
    }

    void printChooserListsRegistersByName() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        store::Database db(env.newDatabasePath());
        shell::PrintChooser chooser(db);
        QVERIFY(!chooser.load());
        QCOMPARE(dialogs.texts(), QStringList{"É necessário cadastrar o VOR"});

        addRegister(db, 100, 2, QStringLiteral("POSTO B"));
        addRegister(db, 105, 1, QStringLiteral("POSTO A"));
        QVERIFY(chooser.load());
        auto* grid = child<QTableWidget>(chooser, "fgrVORi");
        QCOMPARE(grid->rowCount(), 2);
        QCOMPARE(grid->item(0, 0)->text(), QStringLiteral("POSTO A"));
        QCOMPARE(chooser.selectedKey(), (store::RegisterKey{105, 1}));
        grid->selectRow(1);
        QCOMPARE(chooser.selectedKey(), (store::RegisterKey{100, 2}));
        testsupport::saveScreenshot(chooser, QStringLiteral("print-chooser"));
    }

    void agenciesListHeadOfficeFirstAndLeaveOutInternalUnits() {
        testsupport::TestEnvironment env;
        testsupport::ScriptedDialogs dialogs;
        store::Database db(env.newDatabasePath());
        db.run(QStringLiteral("UPDATE REGNL SET NFAX = NULL, NDDDFAX = NULL WHERE NREGNL = 3"));
        shell::AgenciesPanel panel(db);
        panel.open();
        auto* grid = child<QTableWidget>(panel, "fgr1");
        const int offices = db.scalar(QStringLiteral("SELECT COUNT(*) FROM REGNL")).toInt();
        QCOMPARE(grid->rowCount(), offices - 3); // without 2, 8 and 20
        QCOMPARE(
            grid->item(0, 0)->text(),
            db.scalar(QStringLiteral("SELECT DRESMDREGNL FROM REGNL WHERE NREGNL = 1")).toString());
        QStringList names;
        for (int r = 0; r < grid->rowCount(); ++r)
            names << grid->item(r, 0)->text();
        for (int excluded : {2, 8, 20}) {
            const QString name =
                db.scalar(QStringLiteral("SELECT DRESMDREGNL FROM REGNL WHERE NREGNL = ?"),
                          {excluded})
                    .toString();
            QVERIFY2(!names.contains(name), qPrintable(name));
        }
        QStringList rest = names.mid(1);
        QStringList sorted = rest;
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(rest, sorted);

        const int campinas = int(names.indexOf(QStringLiteral("CAMPINAS")));
        QVERIFY(campinas > 0);
        QCOMPARE(grid->item(campinas, 4)->text(), QStringLiteral("13024-040"));
        QCOMPARE(grid->item(campinas, 5)->text(), QStringLiteral("019"));
        QCOMPARE(grid->item(campinas, 6)->text(), QStringLiteral("3254-1200"));
        QCOMPARE(grid->item(campinas, 7)->text(), QString());
        QCOMPARE(grid->item(campinas, 8)->text(), QString());
        QCOMPARE(grid->horizontalHeaderItem(7)->text(), QStringLiteral("DDD do Fax"));
        panel.resize(900, 500);
        testsupport::saveScreenshot(panel, QStringLiteral("agencias"));
    }
};

QTEST_MAIN(TestSidePanels)
#include "test_side_panels.moc"
