#include "app/CommandLine.h"

#include "app/Identity.h"
#include "app/Paths.h"
#include "app/PrintCommand.h"
#include "app/Screens.h"
#include "app/Startup.h"
#include "app/SystemKeyring.h"
#include "establishment/RegisterRecord.h"
#include "exchange/ExportFailure.h"
#include "exchange/Exporter.h"
#include "exchange/Importer.h"
#include "exchange/MailPassword.h"
#include "rules/Formats.h"
#include "shell/MainWindow.h"
#include "shell/Objective.h"
#include "shell/RegisterListData.h"
#include "shell/StartupChecks.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/PrivateFiles.h"
#include "store/RegisterKey.h"
#include "store/TableCatalogue.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QIcon>
#include <QScreen>
#include <QSettings>
#include <QTextStream>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace app {

namespace {

QTextStream& out() {
    static QTextStream stream(stdout);
    return stream;
}

QTextStream& err() {
    static QTextStream stream(stderr);
    return stream;
}

void describe(QCommandLineParser& parser, const QString& command) {
    parser.setApplicationDescription(
        QStringLiteral("VOR - Caderno Vorel de Empreendimento\n\n"
                       "  vor [--database FILE]            the desktop program\n"
                       "  vor init --database FILE         create the database and exit\n"
                       "  vor summary --database FILE      print what the database holds\n"
                       "  vor export --database FILE --register CODE --dir DIR\n"
                       "                                   write REUNIDO_<CNPJ>.TXT of a register\n"
                       "  vor import --database FILE --yes DIR\n"
                       "                                   wipe the registers, then read every "
                       "joined file of DIR\n"
                       "  vor print --database FILE --register CODE --pdf OUT.pdf\n"
                       "                                   the memorial of a register as PDF\n"
                       "  vor demo-register --database FILE  create a sample register and list "
                       "the registers"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({QStringLiteral("database"),
                      QStringLiteral("The database file (default: $VOR_DATABASE, else "
                                     "$XDG_DATA_HOME/vor/VOR-POSTO.db)."),
                      QStringLiteral("FILE")});
    if (!command.isEmpty())
        parser.addPositionalArgument(QStringLiteral("command"), command);
}

// Opens (and so creates or migrates) the database; a failure is printed, not shown.
std::unique_ptr<store::Database> openForCommand(const QString& path) {
    try {
        return std::make_unique<store::Database>(path);
    } catch (const store::Failure& failure) {
        err() << "vor: " << path << ": "
              << (failure.fromDatabase() ? store::databaseErrorText(failure)
                                         : failure.description())
              << Qt::endl;
        return nullptr;
    }
}

int runInit(const QString& path) {
    auto db = openForCommand(path);
    if (!db)
        return 1;
    out() << path << Qt::endl;
    return 0;
}

int runSummary(const QString& path) {
    auto db = openForCommand(path);
    if (!db)
        return 1;
    try {
        out() << "Banco de dados: " << path << " (esquema " << db->userVersion() << ")" << Qt::endl;
        for (const store::Table& t : store::allTables()) {
            const qlonglong rows =
                db->scalar(QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(t.qname()))
                    .toLongLong();
            out() << QStringLiteral("  %1 %2 linhas, %3 colunas")
                         .arg(t.qname(), -24)
                         .arg(rows, 6)
                         .arg(t.columns.size())
                  << Qt::endl;
        }
    } catch (const store::Failure& failure) {
        err() << "vor: " << store::databaseErrorText(failure) << Qt::endl;
        return 1;
    }
    return 0;
}

// The export of one register without the mail step; the joined file's path on stdout.
int runExport(const QString& path, const QString& code, const QString& directory) {
    const auto key = store::RegisterKey::fromCode(code);
    if (!key) {
        err() << "vor export: --register CODE must be NMUNCP \"000\" followed by NSEQNC \"0000\""
              << Qt::endl;
        return 2;
    }
    auto db = openForCommand(path);
    if (!db)
        return 1;
    try {
        exchange::Exporter exporter(*db);
        out() << exporter.run(*key, directory).joinedPath << Qt::endl;
        return 0;
    } catch (const exchange::ExportFailure& failure) {
        err() << "vor export: " << failure.message() << Qt::endl;
    } catch (const store::Failure& failure) {
        err() << "vor export: " << store::databaseErrorText(failure) << Qt::endl;
    }
    return 1;
}

// The agency's batch without questions: --yes stands for the answer to "Continuar
// Importação?". Refusals go to stderr and do not stop the batch; exit 1 only when the batch
// could not run or was stopped.
int runImport(const QString& path, const QString& directory) {
    if (exchange::Importer::batchFiles(directory).isEmpty()) {
        err() << "vor import: " << directory << ": " << exchange::kChooseDirectoryText << Qt::endl;
        return 1;
    }
    auto db = openForCommand(path);
    if (!db)
        return 1;
    exchange::Importer importer(*db);
    importer.setRefusal([](const QString& message) { err() << message << Qt::endl; });
    try {
        const QStringList files = exchange::Importer::batchFiles(directory);
        const QString backup = importer.backup();
        out() << "Cópia de segurança do banco anterior: " << backup << Qt::endl;
        importer.wipe();
        int imported = 0;
        for (const QString& name : files) {
            if (importer.importFile(directory, name) == exchange::Importer::FileOutcome::Imported)
                ++imported;
        }
        out() << "Total de Arquivos Existentes no Diretório : " << files.size() << Qt::endl;
        out() << "Total de Arquivos Importados : " << imported << Qt::endl;
        out() << exchange::kDoneText << Qt::endl;
        return 0;
    } catch (const exchange::Importer::Stopped& stopped) {
        err() << "vor import: " << stopped.message() << Qt::endl;
    } catch (const store::Failure& failure) {
        err() << "vor import: "
              << (failure.fromDatabase() ? store::databaseErrorText(failure)
                                         : failure.description())
              << Qt::endl;
    }
    return 1;
}

// Creates a sample register through the register form's own checks and writes, then lists the
// registers as the list screen does.
int runDemoRegister(const QString& path) {
    auto db = openForCommand(path);
    if (!db)
        return 1;
    establishment::RegisterFields f;
    f.razaoSocial = QStringLiteral("AUTO POSTO BOA VIAGEM LTDA");
    f.fantasia = QStringLiteral("POSTO BOA VIAGEM");
    f.bandeira = QStringLiteral("BANDEIRA BRANCA");
    f.logradouro = QStringLiteral("AVENIDA RIO BRANCO");
    f.numero = QStringLiteral("1200");
    f.bairro = QStringLiteral("CENTRO");
    f.cep = QStringLiteral("17800000");
    f.municipio = QStringLiteral("ADAMANTINA");
    f.municipioCodigo = 101;
    f.ddd = QStringLiteral("018");
    f.telefone = QStringLiteral("35221234");
    f.cnpj = QStringLiteral("11222333000181");
    f.anp = QStringLiteral("SP1234567");
    f.inicioAtividades = QStringLiteral("15/03/1998");
    f.levantamento = rules::shortDate(QDate::currentDate());
    try {
        const std::optional<QString> code = shell::storedObjectiveCode(*db);
        establishment::CheckContext context;
        context.objective = code ? shell::objectiveFromCode(*code).value_or(0) : 0;
        context.operacao = QStringLiteral("Incluir");
        const establishment::CheckResult checked = establishment::consistirDados(*db, f, context);
        if (checked.refusal) {
            err() << "vor: " << checked.refusal->message << Qt::endl;
            return 1;
        }
        const store::RegisterKey key = establishment::incluirRegistro(*db, f, checked.nmuncp);
        out() << "VOR " << key.code() << " incluído." << Qt::endl;
        out() << "Código   Razão Social                              CNPJ                Data"
                 "        Situação"
              << Qt::endl;
        for (const shell::RegisterRow& row :
             shell::listRegisters(*db, shell::ListOrder::RazaoSocial)) {
            out() << QStringLiteral("%1  %2  %3  %4  %5")
                         .arg(row.code, -7)
                         .arg(row.razaoSocial.left(40), -40)
                         .arg(shell::cnpjText(row.ccgc), -18)
                         .arg(row.acadst.isValid() ? rules::shortDate(row.acadst) : QString(), -10)
                         .arg(shell::statusWord(row.csitu))
                  << Qt::endl;
        }
    } catch (const store::Failure& failure) {
        err() << "vor: "
              << (failure.fromDatabase() ? store::databaseErrorText(failure)
                                         : failure.description())
              << Qt::endl;
        return 1;
    }
    return 0;
}

bool hasDisplay() {
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

int runDesktop(int argc, char* argv[]) {
    if (!hasDisplay()) {
        err() << "vor: no display found (DISPLAY and WAYLAND_DISPLAY are unset); the desktop "
                 "program needs one. Try 'make demo' for the headless demo."
              << Qt::endl;
        return 2;
    }
    QApplication application(argc, argv);
    identifyApplication();
    // Found in the icon theme once installed; from the build folder the window has none.
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral(VOR_APP_ID)));
    QCommandLineParser parser;
    describe(parser, QString());
    processArguments(parser);

    // The mail password lives in the desktop's keyring; earlier versions kept it in the
    // settings file, which is now the owner's only and loses it.
    SystemKeyring systemKeyring;
    const exchange::KeyringOverride keyringInUse(systemKeyring);
    {
        QSettings settings;
        store::makeSettingsPrivate(settings);
        if (exchange::movePlainPassword(settings) == exchange::PlainPassword::KeptForSession)
            err() << "vor: não há chaveiro do sistema nesta sessão; a senha do e-mail saiu do "
                     "arquivo de configuração e vale só até o programa ser fechado."
                  << Qt::endl;
    }

    const QString path = databasePath(parser.value(QStringLiteral("database")));
    reportIncoming(takeIncomingDatabase(path), path);

    std::unique_ptr<store::Database> db;
    const bool opened = ui::runGuarded([&] {
        // No number to note down here: the user needs the newer program, not the support desk.
        try {
            db = std::make_unique<store::Database>(path);
        } catch (const store::NewerSchema& newer) {
            ui::dialogs().message(ui::kTitle, newer.description(), ui::Icon::Critical);
        }
    });
    if (!opened || !db)
        return 1;

    // A failed date check does not skip the screen check: the user learns of both.
    bool canGoOn = shell::checkDateFormat(rules::kShortDateFormat);
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen && !shell::checkScreen(screen->availableSize()))
        canGoOn = false;
    if (!canGoOn)
        return 1;

    // The screens of the questionnaire's chain, each area its own.
    registerScreens();

    shell::MainWindow window(*db);
    window.show();
    return QApplication::exec();
}

} // namespace

void processArguments(QCommandLineParser& parser) {
    if (!parser.parse(QCoreApplication::arguments())) {
        err() << "vor: " << parser.errorText() << Qt::endl;
        std::exit(2);
    }
    parser.process(*QCoreApplication::instance());
}

int runCommandLine(int argc, char* argv[]) {
    // Printing lays out pages and so needs a GUI application of its own.
    if (argc > 1 && std::strcmp(argv[1], "print") == 0)
        return runPrintCommand(argc, argv);
    const bool isCommand = argc > 1 && argv[1][0] != '-';
    const bool wantsVersionOrHelp =
        argc > 1 && (std::strcmp(argv[1], "--version") == 0 || std::strcmp(argv[1], "-v") == 0 ||
                     std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0);
    if (!isCommand && !wantsVersionOrHelp)
        return runDesktop(argc, argv);

    QCoreApplication application(argc, argv);
    identifyApplication();
    QCommandLineParser parser;
    describe(parser, QStringLiteral("init | summary | export | import | demo-register"));
    parser.addOption({QStringLiteral("register"),
                      QStringLiteral("export: the register, NMUNCP \"000\" + NSEQNC \"0000\"."),
                      QStringLiteral("CODE")});
    parser.addOption({QStringLiteral("dir"), QStringLiteral("export: the target directory."),
                      QStringLiteral("DIR")});
    parser.addOption({QStringLiteral("yes"),
                      QStringLiteral("import: go on without asking; the database's registers are "
                                     "replaced by those of the files.")});
    processArguments(parser);

    const QStringList args = parser.positionalArguments();
    const QString command = args.value(0);
    const QString database = parser.value(QStringLiteral("database"));
    if (command == QLatin1String("demo-register")) {
        if (database.isEmpty()) {
            err() << "vor " << command << ": --database FILE is required" << Qt::endl;
            return 2;
        }
        return runDemoRegister(database);
    }
    if (command == QLatin1String("init") || command == QLatin1String("summary")) {
        if (database.isEmpty()) {
            err() << "vor " << command << ": --database FILE is required" << Qt::endl;
            return 2;
        }
        return command == QLatin1String("init") ? runInit(database) : runSummary(database);
    }
    if (command == QLatin1String("export")) {
        const QString code = parser.value(QStringLiteral("register"));
        const QString directory = parser.value(QStringLiteral("dir"));
        if (database.isEmpty() || code.isEmpty() || directory.isEmpty()) {
            err() << "vor export: --database FILE, --register CODE and --dir DIR are required"
                  << Qt::endl;
            return 2;
        }
        return runExport(database, code, directory);
    }
    if (command == QLatin1String("import")) {
        const QString directory = args.value(1);
        if (database.isEmpty() || directory.isEmpty() || args.size() > 2) {
            err() << "vor import: --database FILE and a directory DIR are required" << Qt::endl;
            return 2;
        }
        if (!parser.isSet(QStringLiteral("yes"))) {
            err() << "vor import: the import wipes every register of " << database
                  << " first; add --yes to go on" << Qt::endl;
            return 2;
        }
        return runImport(database, directory);
    }
    err() << "vor: unknown command '" << command << "'" << Qt::endl;
    parser.showHelp(2);
}

} // namespace app
