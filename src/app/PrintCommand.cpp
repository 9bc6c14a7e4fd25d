#include "app/PrintCommand.h"

#include "app/CommandLine.h"
#include "app/Identity.h"
#include "printing/Memorial.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/RegisterKey.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextStream>

namespace app {

namespace {

QString failureText(const store::Failure& failure) {
    return failure.fromDatabase() ? store::databaseErrorText(failure) : failure.description();
}

} // namespace

int runPrintCommand(int argc, char* argv[]) {
    // Laying pages out needs fonts, which need a platform; none is needed on screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    identifyApplication();
    QTextStream out(stdout);
    QTextStream err(stderr);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("vor print --database FILE --register CODE --pdf OUT.pdf"));
    parser.addHelpOption();
    parser.addOption(
        {QStringLiteral("database"), QStringLiteral("The database file."), QStringLiteral("FILE")});
    parser.addOption({QStringLiteral("register"),
                      QStringLiteral("The register: NMUNCP as \"000\" and NSEQNC as \"0000\"."),
                      QStringLiteral("CODE")});
    parser.addOption(
        {QStringLiteral("pdf"), QStringLiteral("The PDF file to write."), QStringLiteral("FILE")});
    parser.addPositionalArgument(QStringLiteral("print"), QStringLiteral("The command."));
    processArguments(parser);

    const QString database = parser.value(QStringLiteral("database"));
    const QString code = parser.value(QStringLiteral("register"));
    const QString pdf = parser.value(QStringLiteral("pdf"));
    if (database.isEmpty() || code.isEmpty() || pdf.isEmpty()) {
        err << "vor print: --database FILE, --register CODE and --pdf FILE are required"
            << Qt::endl;
        return 2;
    }
    const std::optional<store::RegisterKey> key = store::RegisterKey::fromCode(code);
    if (!key) {
        err << "vor print: código de VOR inválido: " << code << Qt::endl;
        return 2;
    }
    if (!QFileInfo::exists(database)) {
        err << "vor print: " << database << ": arquivo não encontrado" << Qt::endl;
        return 1;
    }
    try {
        store::Database db(database);
        if (!db.scalar(QStringLiteral("SELECT 1 FROM EMPRS WHERE NMUNCP = ? AND NSEQNC = ?"),
                       {key->nmuncp, key->nseqnc})
                 .isValid()) {
            err << "vor print: VOR " << key->code() << " não está cadastrado" << Qt::endl;
            return 1;
        }
        const printing::Memorial memorial(
            db, *key, {printing::reportKind(db), printing::surveyDate(db, *key), QString()});
        out << memorial.writePdf(pdf) << Qt::endl;
    } catch (const store::Failure& failure) {
        err << "vor print: " << failureText(failure) << Qt::endl;
        return 1;
    }
    return 0;
}

} // namespace app
