// The mail step behind an export, against a real SMTP server on the loopback.
#include "exchange/ExportFailure.h"
#include "exchange/Exporter.h"
#include "exchange/Mail.h"
#include "store/Database.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/ExportRun.h"
#include "ui/MailSettingsDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QProcess>
#include <QSettings>
#include <QTest>

using namespace exchange;

namespace {

const QString kPython = QStringLiteral("/usr/bin/python3");

QString runPython(const QString& script, const QStringList& arguments = {}) {
    QProcess p;
    p.start(kPython, QStringList{QStringLiteral("-c"), script} + arguments);
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput()).trimmed();
}

int freePort() {
    return runPython(QStringLiteral("import socket\ns=socket.socket()\ns.bind(('127.0.0.1',0))\n"
                                    "print(s.getsockname()[1])"))
        .toInt();
}

// aiosmtpd, storing every message it receives in a maildir; stopped with the object.
class SmtpServer {
public:
    explicit SmtpServer(const QString& maildir)
        : m_maildir(maildir)
        , m_port(freePort()) {
        m_process.start(kPython, {QStringLiteral("-m"), QStringLiteral("aiosmtpd"),
                                  QStringLiteral("-n"), QStringLiteral("-l"),
                                  QStringLiteral("127.0.0.1:%1").arg(m_port), QStringLiteral("-c"),
                                  QStringLiteral("aiosmtpd.handlers.Mailbox"), maildir});
        m_process.waitForStarted();
        // Ready once it accepts a connection.
        runPython(QStringLiteral("import socket,sys,time\n"
                                 "for i in range(200):\n"
                                 "  try:\n"
                                 "    socket.create_connection(('127.0.0.1',int(sys.argv[1])),1)"
                                 ".close(); break\n"
                                 "  except OSError: time.sleep(0.05)\n"),
                  {QString::number(m_port)});
    }
    ~SmtpServer() {
        m_process.kill();
        m_process.waitForFinished();
    }
    int port() const { return m_port; }
    bool running() const { return m_process.state() == QProcess::Running; }

    // The messages received, each as subject, body and attachment (bytes as hex).
    QList<QJsonObject> messages() const {
        QList<QJsonObject> result;
        const QDir inbox(m_maildir + QStringLiteral("/new"));
        for (const QString& name : inbox.entryList(QDir::Files)) {
            const QString json = runPython(
                QStringLiteral("import email,email.policy,json,sys\n"
                               "m=email.message_from_binary_file(open(sys.argv[1],'rb'),"
                               "policy=email.policy.default)\n"
                               "parts=[p for p in m.walk() if not p.is_multipart()]\n"
                               "print(json.dumps({'subject':str(m['subject']),'to':str(m['to']),"
                               "'body':parts[0].get_payload(decode=True).hex(),"
                               "'charset':parts[0].get_content_charset(),"
                               "'filename':parts[1].get_filename(),"
                               "'attachment':parts[1].get_payload(decode=True).hex()}))\n"),
                {inbox.filePath(name)});
            result << QJsonDocument::fromJson(json.toUtf8()).object();
        }
        return result;
    }

private:
    QString m_maildir;
    int m_port;
    QProcess m_process;
};

MailSettings settingsFor(int port) {
    MailSettings s;
    s.host = QStringLiteral("127.0.0.1");
    s.port = port;
    s.recipient = QStringLiteral("cadastro@zantor.example");
    s.sender = QStringLiteral("posto@exemplo.com.br");
    return s;
}

QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QVariant csitu(store::Database& db) {
    return db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS WHERE NMUNCP = 100 AND NSEQNC = 3"));
}

void addRegister(store::Database& db, const QVariant& status) {
    db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DRAZAOSOCIL, CCGC, CSITU) VALUES "
                          "(100, 3, ' Comércio São José Ltda ', 45678000195, ?)"),
           {status});
    db.run(QStringLiteral("INSERT INTO TB_POSTOCOMRCSERVC VALUES (100, 3, '2003-03-14', 9, "
                          "'Conveniência')"));
}

} // namespace

class TestMail : public QObject {
    Q_OBJECT

private slots:
    void objectives_data() {
        QTest::addColumn<QVariant>("imovmn");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("label");
        QTest::addColumn<bool>("protocol");
        QTest::newRow("no row") << QVariant() << ""
                                << "Cadastro" << true;
        QTest::newRow("C") << QVariant("C") << ""
                           << "Cadastro" << true;
        QTest::newRow("LF") << QVariant("LF") << "(LF)"
                            << "VOR da Licença de Funcionamento" << false;
        QTest::newRow("LP") << QVariant("LP") << "(LP)"
                            << "VOR da Licença Prévia" << false;
        QTest::newRow("LI") << QVariant("LI") << "(LI)"
                            << "VOR da Licença de Instalação" << false;
        QTest::newRow("LP/LI") << QVariant("LP/LI") << "(LP/LI)"
                               << "VOR da Licença Prévia e de Instalação" << false;
        QTest::newRow("unknown code") << QVariant("X") << ""
                                      << "Cadastro" << false;
        QTest::newRow("null code") << QVariant(QMetaType(QMetaType::QString)) << ""
                                   << "Cadastro" << false;
    }
    void objectives() {
        QFETCH(QVariant, imovmn);
        QFETCH(QString, kind);
        QFETCH(QString, label);
        QFETCH(bool, protocol);
        const MailObjective o = mailObjective(imovmn);
        QCOMPARE(o.kind, kind);
        QCOMPARE(o.label, label);
        QCOMPARE(o.protocolDue, protocol);
    }

    void sendDeliversTheMessageByteForByte_data() {
        QTest::addColumn<int>("before");
        QTest::addColumn<QString>("imovmn"); // empty: no objective row
        QTest::addColumn<QString>("question");
        QTest::addColumn<QString>("subject");
        QTest::addColumn<QString>("body");
        QTest::addColumn<int>("after");
        QTest::addColumn<bool>("protocol");
        QTest::newRow("first send, licence")
            << 2 << "LF"
            << "Exportação Concluída. Enviar por e-mail?"
            << "VOR-Postos (LF)"
            << "Em anexo, o VOR da Licença de Funcionamento de Posto do Empreendimento: Comércio "
               "São José Ltda CNPJ- 00.045.678/0001-95.\r\r"
            << 3 << false;
        QTest::newRow("first send, register")
            << 1 << "C"
            << "Exportação Concluída. Enviar por e-mail?"
            << "VOR-Postos "
            << "Em anexo, o Cadastro de Posto do Empreendimento: Comércio São José Ltda CNPJ- "
               "00.045.678/0001-95.\r\r"
            << 3 << true;
        QTest::newRow("sent before")
            << 3 << "LP/LI"
            << "Exportação Concluída. Reenviar por e-mail?"
            << "VOR-Postos (LP/LI) (Atualização)"
            << "Em anexo, o VOR da Licença Prévia e de Instalação ALTERADO de Posto do "
               "Empreendimento: Comércio São José Ltda CNPJ- 00.045.678/0001-95.\r\r"
            << 4 << false;
        QTest::newRow("sent again, no objective")
            << 4 << ""
            << "Exportação Concluída. Reenviar por e-mail?"
            << "VOR-Postos  (Atualização)"
            << "Em anexo, o Cadastro ALTERADO de Posto do Empreendimento: Comércio São José Ltda "
               "CNPJ- 00.045.678/0001-95.\r\r"
            << 4 << true;
    }
    void sendDeliversTheMessageByteForByte() {
        QFETCH(int, before);
        QFETCH(QString, imovmn);
        QFETCH(QString, question);
        QFETCH(QString, subject);
        QFETCH(QString, body);
        QFETCH(int, after);
        QFETCH(bool, protocol);
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        addRegister(db, before);
        if (!imovmn.isEmpty())
            db.run(QStringLiteral("INSERT INTO TB_VORpMOVMN (IMOVMN) VALUES (?)"), {imovmn});
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        const ExportResult exported = Exporter(db).run({100, 3}, dir);

        SmtpServer server(env.path(QStringLiteral("maildir")));
        QVERIFY(server.running());
        MailStep step(db, {100, 3}, exported.companyName, exported.fileKey, exported.joinedPath);
        QCOMPARE(step.question(), question);
        const MailStep::Outcome outcome = step.send(settingsFor(server.port()));
        QVERIFY2(!outcome.sendError, qPrintable(outcome.sendError.value_or(QString())));
        QCOMPARE(csitu(db).toInt(), after);
        QCOMPARE(outcome.protocol.has_value(), protocol);
        if (protocol) {
            QCOMPARE(outcome.protocol->key, (store::RegisterKey{100, 3}));
            QCOMPARE(outcome.protocol->resent, after == 4);
        }

        const QList<QJsonObject> mails = server.messages();
        QCOMPARE(mails.size(), 1);
        const QJsonObject mail = mails.first();
        QCOMPARE(mail[QStringLiteral("subject")].toString(), subject);
        QCOMPARE(mail[QStringLiteral("to")].toString(), QStringLiteral("cadastro@zantor.example"));
        const QByteArray bodyBytes =
            QByteArray::fromHex(mail[QStringLiteral("body")].toString().toLatin1());
        QCOMPARE(QString::fromUtf8(bodyBytes), body);
        QCOMPARE(mail[QStringLiteral("filename")].toString(),
                 QStringLiteral("REUNIDO_00045678000195.TXT"));
        const QByteArray attachment =
            QByteArray::fromHex(mail[QStringLiteral("attachment")].toString().toLatin1());
        QCOMPARE(attachment, readAll(exported.joinedPath));
        QVERIFY(attachment.contains("Conveni\xeancia"));
    }

    void aRefusedConnectionLeavesTheStatus() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        addRegister(db, 1);
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        testsupport::ScriptedDialogs dialogs;
        dialogs.answer(true);
        bool printed = false;
        ui::ExportRunOptions options;
        options.mail = settingsFor(freePort()); // nobody listens there
        options.printProtocol = [&](const ProtocolRequest&) -> std::optional<QString> {
            printed = true;
            return std::nullopt;
        };
        const ui::ExportRunOutcome outcome = ui::runExportWithQuestions(db, {100, 3}, dir, options);
        QVERIFY(outcome.exported);
        QVERIFY(!outcome.mailed);
        QVERIFY(!printed);
        QCOMPARE(dialogs.shown().size(), 2);
        QCOMPARE(dialogs.shown()[0].text,
                 QStringLiteral("Exportação Concluída. Enviar por e-mail?"));
        QCOMPARE(dialogs.shown()[0].title, QStringLiteral("VOR"));
        QCOMPARE(dialogs.shown()[0].icon, ui::Icon::Question);
        QVERIFY(
            dialogs.last().text.startsWith(QStringLiteral("Um erro ocorreu durante a emissão: ")));
        QVERIFY(dialogs.last().text.size() > 40);
        QCOMPARE(csitu(db).toInt(), 2);
        QVERIFY(QFile::exists(outcome.joinedPath));
    }

    void theWholeRunWithQuestions() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        addRegister(db, 1);
        SmtpServer server(env.path(QStringLiteral("maildir")));
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        QList<int> steps;
        std::optional<ProtocolRequest> printed;
        ui::ExportRunOptions options;
        options.mail = settingsFor(server.port());
        options.progress = [&](int step, int total) {
            QCOMPARE(total, 42);
            steps << step;
        };
        options.printProtocol = [&](const ProtocolRequest& r) -> std::optional<QString> {
            printed = r;
            return QStringLiteral("20504");
        };
        {
            testsupport::ScriptedDialogs dialogs;
            dialogs.answer(false); // no mail: the file stays for a floppy disk
            const ui::ExportRunOutcome outcome =
                ui::runExportWithQuestions(db, {100, 3}, dir, options);
            QVERIFY(outcome.exported && !outcome.mailed);
            QCOMPARE(dialogs.texts(),
                     QStringList{QStringLiteral("Exportação Concluída. Enviar por e-mail?")});
            QCOMPARE(csitu(db).toInt(), 2);
            QCOMPARE(steps.first(), 0);
            QCOMPARE(steps.last(), 42);
        }
        {
            testsupport::ScriptedDialogs dialogs;
            dialogs.answer(true);
            const ui::ExportRunOutcome outcome =
                ui::runExportWithQuestions(db, {100, 3}, dir, options);
            QVERIFY(outcome.mailed);
            QCOMPARE(csitu(db).toInt(), 3);
            QVERIFY(printed && !printed->resent);
            // The protocol's failure is told with its code.
            QCOMPARE(
                dialogs.last().text,
                QStringLiteral("Durante a emissão ocorreu um erro com o seguinte código: 20504"));
        }
        {
            testsupport::ScriptedDialogs dialogs;
            dialogs.answer(true);
            ui::runExportWithQuestions(db, {100, 3}, dir, options);
            QCOMPARE(dialogs.shown().first().text,
                     QStringLiteral("Exportação Concluída. Reenviar por e-mail?"));
            QCOMPARE(csitu(db).toInt(), 4);
            QVERIFY(printed->resent);
        }
        QCOMPARE(server.messages().size(), 2);
    }

    void aFailedExportAsksNothing() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        addRegister(db, 1);
        testsupport::ScriptedDialogs dialogs;
        const ui::ExportRunOutcome outcome =
            ui::runExportWithQuestions(db, {100, 3}, QStringLiteral("/sys"));
        QVERIFY(!outcome.exported);
        QCOMPARE(dialogs.shown().size(), 1);
        QCOMPARE(dialogs.last().title, QStringLiteral("VOR"));
        QCOMPARE(dialogs.last().text, kWriteProtectedText);
        QCOMPARE(dialogs.last().icon, ui::Icon::Critical);
        QCOMPARE(csitu(db).toInt(), 1);
    }

    void settingsKeepEveryFieldThroughTheDialog() {
        testsupport::TestEnvironment env;
        MailSettings s = settingsFor(2525);
        s.security = MailSettings::Security::StartTls;
        s.user = QStringLiteral("posto");
        s.password = QStringLiteral("s3nh@");
        {
            QSettings ini(env.path(QStringLiteral("vor.ini")), QSettings::IniFormat);
            s.save(ini);
        }
        QSettings ini(env.path(QStringLiteral("vor.ini")), QSettings::IniFormat);
        ui::MailSettingsDialog dialog(MailSettings::load(ini));
        dialog.findChild<QLineEdit*>(QStringLiteral("txtServidor"))
            ->setText(QStringLiteral(" smtp.exemplo.com.br "));
        const MailSettings edited = dialog.settings();
        QCOMPARE(edited.host, QStringLiteral("smtp.exemplo.com.br"));
        QCOMPARE(edited.recipient, s.recipient);
        QCOMPARE(edited.port, 2525);
        QCOMPARE(edited.security, MailSettings::Security::StartTls);
        QCOMPARE(edited.user, s.user);
        QCOMPARE(edited.password, s.password);
        QCOMPARE(edited.sender, s.sender);
        QVERIFY(edited.isComplete());
        dialog.findChild<QLineEdit*>(QStringLiteral("txtServidor"))->setText(QStringLiteral(" "));
        QVERIFY(!dialog.settings().isComplete()); // the first send asks for the server
        if (qEnvironmentVariableIsSet("VOR_SCREENSHOTS"))
            dialog.grab().save(qEnvironmentVariable("VOR_SCREENSHOTS") +
                               QStringLiteral("/mail.png"));
    }

    void confirmationOfTheList() {
        testsupport::ScriptedDialogs dialogs;
        dialogs.answer(true);
        QVERIFY(ui::confirmExportTo(QStringLiteral("/media/disquete")));
        QCOMPARE(dialogs.last().title, QStringLiteral("Confirmação"));
        QCOMPARE(dialogs.last().text,
                 QStringLiteral("Continuar a Exportação dos dados do posto selecionado para "
                                "/media/disquete?"));
    }
};

QTEST_MAIN(TestMail)
#include "test_mail.moc"
