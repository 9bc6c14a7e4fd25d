// The mail step behind an export, against a real SMTP server on the loopback.
#include "exchange/ExportFailure.h"
#include "exchange/Exporter.h"
#include "exchange/Mail.h"
#include "exchange/MailPassword.h"
#include "store/Database.h"
#include "support/FakeKeyring.h"
#include "support/FileMode.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/ExportRun.h"
#include "ui/MailSettingsDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QSettings>
#include <QSpinBox>
#include <QSysInfo>
#include <QTest>
#include <curl/curl.h>

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

// The login that the encrypted test server accepts, and its certificate.
struct TlsLogin {
    QString certificate;
    QString key;
    QString user;
    QString password;
};

// aiosmtpd (tests/exchange/smtp_server.py) on `host`, storing every message it receives in a
// maildir; with a TlsLogin it offers STARTTLS and wants that login. Stopped with the object.
class SmtpServer {
public:
    explicit SmtpServer(const QString& maildir, const std::optional<TlsLogin>& tls = std::nullopt,
                        const QString& host = QStringLiteral("127.0.0.1"))
        : m_maildir(maildir)
        , m_port(freePort()) {
        QStringList arguments{qEnvironmentVariable("VOR_SOURCE_DIR") +
                                  QStringLiteral("/tests/exchange/smtp_server.py"),
                              host, QString::number(m_port), maildir};
        if (tls)
            arguments << tls->certificate << tls->key << tls->user << tls->password;
        m_process.start(kPython, arguments);
        // Ready once it says so.
        while (m_process.waitForReadyRead(10000) && !m_process.readLine().startsWith("ready")) {
        }
    }
    ~SmtpServer() {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(5000)) {
            m_process.kill();
            m_process.waitForFinished();
        }
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

const QString kPassword = QStringLiteral("s3nh@-Zantor-2024");

// A certificate authority made for the test, and a certificate for 127.0.0.1 signed by it.
struct Certificates {
    bool made = false;
    QString authority;
    QString certificate;
    QString key;
    TlsLogin login() const { return {certificate, key, QStringLiteral("posto"), kPassword}; }
};

Certificates makeCertificates(const QString& dir) {
    QDir().mkpath(dir);
    const auto openssl = [&](const QStringList& arguments) {
        QProcess p;
        p.setWorkingDirectory(dir);
        p.start(QStringLiteral("openssl"), arguments);
        return p.waitForFinished(30000) && p.exitStatus() == QProcess::NormalExit &&
               p.exitCode() == 0;
    };
    const QStringList newKey{
        QStringLiteral("-newkey"), QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
        QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes")};
    QFile names(dir + QStringLiteral("/names.cnf"));
    Certificates c;
    c.made = names.open(QIODevice::WriteOnly) &&
             names.write("subjectAltName=IP:127.0.0.1,DNS:localhost\n") > 0;
    names.close();
    c.made = c.made &&
             openssl(QStringList{QStringLiteral("req"), QStringLiteral("-x509")} + newKey +
                     QStringList{QStringLiteral("-keyout"), QStringLiteral("ac.key"),
                                 QStringLiteral("-out"), QStringLiteral("ac.pem"),
                                 QStringLiteral("-days"), QStringLiteral("2"),
                                 QStringLiteral("-subj"), QStringLiteral("/CN=AC de teste")}) &&
             openssl(QStringList{QStringLiteral("req")} + newKey +
                     QStringList{QStringLiteral("-keyout"), QStringLiteral("server.key"),
                                 QStringLiteral("-out"), QStringLiteral("server.csr"),
                                 QStringLiteral("-subj"), QStringLiteral("/CN=127.0.0.1")}) &&
             openssl({QStringLiteral("x509"), QStringLiteral("-req"), QStringLiteral("-in"),
                      QStringLiteral("server.csr"), QStringLiteral("-CA"), QStringLiteral("ac.pem"),
                      QStringLiteral("-CAkey"), QStringLiteral("ac.key"),
                      QStringLiteral("-CAcreateserial"), QStringLiteral("-days"),
                      QStringLiteral("2"), QStringLiteral("-extfile"), QStringLiteral("names.cnf"),
                      QStringLiteral("-out"), QStringLiteral("server.pem")});
    c.authority = dir + QStringLiteral("/ac.pem");
    c.certificate = dir + QStringLiteral("/server.pem");
    c.key = dir + QStringLiteral("/server.key");
    return c;
}

MailSettings settingsFor(int port) {
    MailSettings s;
    s.host = QStringLiteral("127.0.0.1");
    s.port = port;
    s.security = MailSettings::Security::None;
    s.recipient = QStringLiteral("cadastro@zantor.example");
    s.sender = QStringLiteral("posto@exemplo.com.br");
    return s;
}

QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A message with a small attachment in the scratch folder.
MailMessage sampleMessage(const testsupport::TestEnvironment& env) {
    const QString path = env.path(QStringLiteral("REUNIDO_00045678000195.TXT"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write("EMPRS\r\n");
    return {QStringLiteral("VOR-Postos "), QStringLiteral("Em anexo."), path};
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
        // The program's words first, libcurl's after them.
        const QString said = dialogs.last().text;
        QVERIFY2(said.startsWith(QStringLiteral("Um erro ocorreu durante a emissão: não foi "
                                                "possível conectar ao servidor de e-mail "
                                                "127.0.0.1 na porta %1.")
                                     .arg(options.mail->port)),
                 qPrintable(said));
        QVERIFY2(said.endsWith(QLatin1Char(')')) && said.contains(QLatin1String("(Failed")),
                 qPrintable(said));
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
            // The send says so; the protocol's failure is told with its code.
            QCOMPARE(dialogs.texts(),
                     QStringList({QStringLiteral("Exportação Concluída. Enviar por e-mail?"),
                                  QStringLiteral("E-mail enviado com sucesso para %1.")
                                      .arg(options.mail->recipient),
                                  QStringLiteral("Durante a emissão ocorreu um erro com o "
                                                 "seguinte código: 20504")}));
            QCOMPARE(dialogs.shown()[1].icon, ui::Icon::Information);
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
        s.password = kPassword;
        s.authorities = QStringLiteral("/etc/zantor/ac.pem");
        const QString file = env.path(QStringLiteral("vor.ini"));
        {
            QSettings ini(file, QSettings::IniFormat);
            ini.setValue(kPlainPasswordSetting, kPassword); // left by an earlier version
            s.save(ini);
        }
        QVERIFY(!readAll(file).contains(kPassword.toUtf8()));
        QCOMPARE(testsupport::fileMode(file), QStringLiteral("0600"));
        QSettings ini(file, QSettings::IniFormat);
        MailSettings loaded = MailSettings::load(ini);
        QCOMPARE(loaded.password, QString());
        loaded.password = kPassword; // as the keyring gives it
        ui::MailSettingsDialog dialog(loaded, true);
        QVERIFY(dialog.findChild<QLabel*>(QStringLiteral("lblSemChaveiro"))->isHidden());
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
        QCOMPARE(edited.authorities, s.authorities); // not on the screen, kept all the same
        QVERIFY(edited.isComplete());
        dialog.findChild<QLineEdit*>(QStringLiteral("txtServidor"))->setText(QStringLiteral(" "));
        QVERIFY(!dialog.settings().isComplete()); // the first send asks for the server
    }

    // A new machine starts with STARTTLS on 587; the port follows the security chosen while it
    // is the usual one, and a port the user typed stays.
    void newSettingsStartEncrypted() {
        testsupport::TestEnvironment env;
        testsupport::FakeKeyring keyring(false);
        ui::MailSettingsDialog dialog(MailSettings::load(), false);
        auto* security = dialog.findChild<QComboBox*>(QStringLiteral("cmbSeguranca"));
        auto* port = dialog.findChild<QSpinBox*>(QStringLiteral("txtPorta"));
        QCOMPARE(security->currentText(), QStringLiteral("STARTTLS"));
        QCOMPARE(port->value(), 587);
        security->setCurrentIndex(security->findText(QStringLiteral("SSL/TLS")));
        QCOMPARE(port->value(), 465);
        security->setCurrentIndex(security->findText(QStringLiteral("Nenhuma")));
        QCOMPARE(port->value(), 25);
        port->setValue(2525);
        security->setCurrentIndex(security->findText(QStringLiteral("STARTTLS")));
        QCOMPARE(port->value(), 2525);
        // Without a keyring the dialog says where the password goes.
        QVERIFY(!dialog.findChild<QLabel*>(QStringLiteral("lblSemChaveiro"))->isHidden());
        dialog.findChild<QLineEdit*>(QStringLiteral("txtSenha"))->setText(kPassword);
        QCOMPARE(dialog.store(), PasswordPlace::Session);
        QCOMPARE(knownMailPassword().password, kPassword);
        QVERIFY(!readAll(QSettings().fileName()).contains(kPassword.toUtf8()));
        dialog.show();
        testsupport::saveScreenshot(dialog, QStringLiteral("mail"));
    }

    void plainLoginOnlyToThisMachine_data() {
        QTest::addColumn<QString>("host");
        QTest::addColumn<int>("security");
        QTest::addColumn<QString>("user");
        QTest::addColumn<bool>("refused");
        const int none = int(MailSettings::Security::None);
        QTest::newRow("localhost") << "localhost" << none << "posto" << false;
        QTest::newRow("127.0.0.1") << "127.0.0.1" << none << "posto" << false;
        QTest::newRow("127.0.1.1") << "127.0.1.1" << none << "posto" << false;
        QTest::newRow("::1") << "::1" << none << "posto" << false;
        QTest::newRow("v4 mapped loopback") << "::ffff:127.0.0.1" << none << "posto" << false;
        QTest::newRow("a server") << "smtp.exemplo.com.br" << none << "posto" << true;
        QTest::newRow("an address") << "10.0.0.5" << none << "posto" << true;
        QTest::newRow("a name with localhost in it")
            << "localhost.exemplo.com.br" << none << "posto" << true;
        QTest::newRow("no login") << "smtp.exemplo.com.br" << none << "" << false;
        QTest::newRow("STARTTLS") << "smtp.exemplo.com.br" << int(MailSettings::Security::StartTls)
                                  << "posto" << false;
        QTest::newRow("SSL/TLS") << "smtp.exemplo.com.br" << int(MailSettings::Security::Tls)
                                 << "posto" << false;
    }
    void plainLoginOnlyToThisMachine() {
        QFETCH(QString, host);
        QFETCH(int, security);
        QFETCH(QString, user);
        QFETCH(bool, refused);
        MailSettings s = settingsFor(25);
        s.host = host;
        s.security = MailSettings::Security(security);
        s.user = user;
        s.password = kPassword;
        QCOMPARE(plainLoginRefusal(s).has_value(), refused);
    }

    // The machine's own name leads to a server here, but it is not a loopback address as
    // written: the login is refused before a connection, and the same send without a login
    // arrives, so nothing else stood in the way.
    void aPlainLoginElsewhereIsRefusedBeforeConnecting() {
        const QString name = QSysInfo::machineHostName();
        const QString address = runPython(
            QStringLiteral("import socket,sys\nprint(socket.gethostbyname(sys.argv[1]))"), {name});
        if (address.isEmpty() || name.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0)
            QSKIP("this machine's name does not lead to an address of its own");
        testsupport::TestEnvironment env;
        SmtpServer server(env.path(QStringLiteral("maildir")), std::nullopt, address);
        QVERIFY(server.running());
        const MailMessage message = sampleMessage(env);
        MailSettings s = settingsFor(server.port());
        s.host = name;
        s.user = QStringLiteral("posto");
        s.password = kPassword;
        QCOMPARE(sendMail(s, message),
                 QStringLiteral("a conexão com o servidor %1 não é criptografada, e o usuário e a "
                                "senha não são enviados sem criptografia. Escolha STARTTLS ou "
                                "SSL/TLS em \"Segurança\", na configuração do e-mail.")
                     .arg(name));
        QCOMPARE(server.messages().size(), 0);
        s.user.clear();
        s.password.clear();
        QCOMPARE(sendMail(s, message), std::nullopt);
        QCOMPARE(server.messages().size(), 1);
    }

    // The whole path of a password: typed in the dialog, kept in the keyring, never in the
    // settings file, and used by the send over STARTTLS to a server that wants it.
    void aLoginOverStartTlsKeepsThePasswordOutOfTheSettings() {
        testsupport::TestEnvironment env;
        testsupport::FakeKeyring keyring;
        const Certificates certificates = makeCertificates(env.path(QStringLiteral("tls")));
        QVERIFY(certificates.made);
        SmtpServer server(env.path(QStringLiteral("maildir")), certificates.login());
        QVERIFY(server.running());
        {
            MailSettings agencyAuthority;
            agencyAuthority.authorities = certificates.authority;
            agencyAuthority.save();
        }

        ui::MailSettingsDialog dialog(MailSettings::load(), knownMailPassword().keyringAvailable);
        const auto field = [&](const char* name) {
            return dialog.findChild<QLineEdit*>(QLatin1String(name));
        };
        field("txtDestinatario")->setText(QStringLiteral("cadastro@zantor.example"));
        field("txtServidor")->setText(QStringLiteral("127.0.0.1"));
        dialog.findChild<QSpinBox*>(QStringLiteral("txtPorta"))->setValue(server.port());
        field("txtUsuario")->setText(QStringLiteral("posto"));
        field("txtSenha")->setText(kPassword);
        field("txtRemetente")->setText(QStringLiteral("posto@exemplo.com.br"));
        QCOMPARE(dialog.store(), PasswordPlace::Keyring);
        QCOMPARE(keyring.entries().value(kMailPasswordKey), kPassword);
        const QString file = QSettings().fileName();
        QVERIFY(readAll(file).contains("starttls"));
        QVERIFY(!readAll(file).contains(kPassword.toUtf8()));
        QCOMPARE(testsupport::fileMode(file), QStringLiteral("0600"));

        store::Database db(env.newDatabasePath());
        addRegister(db, 1);
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        testsupport::ScriptedDialogs dialogs;
        dialogs.answer(true);
        const ui::ExportRunOutcome outcome = ui::runExportWithQuestions(db, {100, 3}, dir);
        QVERIFY2(outcome.mailed, qPrintable(dialogs.texts().join(QLatin1Char('\n'))));
        // The question and the word of success only: the keyring knew the password.
        QCOMPARE(dialogs.shown().size(), 2);
        QVERIFY(dialogs.last().text.startsWith(QStringLiteral("E-mail enviado com sucesso")));
        QCOMPARE(server.messages().size(), 1);
        QCOMPARE(csitu(db).toInt(), 3);
        QVERIFY(!readAll(file).contains(kPassword.toUtf8()));
    }

    // Each failure a user meets in the program's words, libcurl's own text after them.
    void failuresInPortuguese_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("detail");
        QTest::addColumn<QString>("start");
        QTest::newRow("no such server")
            << int(CURLE_COULDNT_RESOLVE_HOST) << "Could not resolve host: smtp.x"
            << "o servidor de e-mail smtp.exemplo.com.br não foi encontrado.";
        QTest::newRow("no connection") << int(CURLE_COULDNT_CONNECT) << "Failed to connect"
                                       << "não foi possível conectar ao servidor de e-mail "
                                          "smtp.exemplo.com.br na porta 2525.";
        QTest::newRow("timeout") << int(CURLE_OPERATION_TIMEDOUT) << "Operation timed out"
                                 << "o servidor de e-mail smtp.exemplo.com.br não respondeu a "
                                    "tempo.";
        QTest::newRow("login") << int(CURLE_LOGIN_DENIED) << "Login denied"
                               << "o servidor smtp.exemplo.com.br recusou o usuário ou a senha.";
        QTest::newRow("recipient") << int(CURLE_SEND_ERROR) << "RCPT failed: 550"
                                   << "o servidor smtp.exemplo.com.br recusou o destinatário "
                                      "orgao@zantor.gov.br.";
        QTest::newRow("sender") << int(CURLE_SEND_ERROR) << "MAIL failed: 553"
                                << "o servidor smtp.exemplo.com.br recusou o remetente.";
        QTest::newRow("tls") << int(CURLE_SSL_CONNECT_ERROR) << "SSL connect error"
                             << "a conexão segura (TLS) com o servidor smtp.exemplo.com.br "
                                "falhou.";
        QTest::newRow("anything else") << int(CURLE_RECV_ERROR) << "Failure when receiving"
                                       << "o envio pelo servidor smtp.exemplo.com.br falhou.";
    }
    void failuresInPortuguese() {
        QFETCH(int, code);
        QFETCH(QString, detail);
        QFETCH(QString, start);
        MailSettings s;
        s.host = QStringLiteral(" smtp.exemplo.com.br ");
        s.port = 2525;
        s.recipient = QStringLiteral("orgao@zantor.gov.br");
        const QString text = mailFailureText(code, detail, s);
        QVERIFY2(text.startsWith(start), qPrintable(text));
        QVERIFY2(text.endsWith(QStringLiteral("(") + detail + QStringLiteral(")")),
                 qPrintable(text));
    }

    void certificateAndLoginFailuresNameTheServer_data() {
        QTest::addColumn<bool>("authority");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("message");
        QTest::newRow("unknown authority")
            << false << kPassword
            << "o certificado do servidor 127.0.0.1 não pôde ser verificado: ele não é desse "
               "servidor, venceu ou não foi emitido por uma autoridade reconhecida. Nada foi "
               "enviado.";
        QTest::newRow("wrong password") << true << "outra"
                                        << "o servidor 127.0.0.1 recusou o usuário ou a senha.";
        QTest::newRow("all right") << true << kPassword << "";
    }
    void certificateAndLoginFailuresNameTheServer() {
        QFETCH(bool, authority);
        QFETCH(QString, password);
        QFETCH(QString, message);
        testsupport::TestEnvironment env;
        const Certificates certificates = makeCertificates(env.path(QStringLiteral("tls")));
        QVERIFY(certificates.made);
        SmtpServer server(env.path(QStringLiteral("maildir")), certificates.login());
        QVERIFY(server.running());
        MailSettings s = settingsFor(server.port());
        s.security = MailSettings::Security::StartTls;
        s.user = QStringLiteral("posto");
        s.password = password;
        if (authority)
            s.authorities = certificates.authority;
        const std::optional<QString> error = sendMail(s, sampleMessage(env));
        QCOMPARE(error.value_or(QString()).left(message.size()), message);
        QCOMPARE(server.messages().size(), message.isEmpty() ? 1 : 0);
    }

    // Without a keyring the send asks for the password, once a session; a cancel sends nothing.
    void withoutAKeyringThePasswordIsAskedOnceASession() {
        testsupport::TestEnvironment env;
        testsupport::FakeKeyring keyring(false);
        const Certificates certificates = makeCertificates(env.path(QStringLiteral("tls")));
        QVERIFY(certificates.made);
        SmtpServer server(env.path(QStringLiteral("maildir")), certificates.login());
        MailSettings s = settingsFor(server.port());
        s.security = MailSettings::Security::StartTls;
        s.user = QStringLiteral("posto");
        s.authorities = certificates.authority;
        s.save();
        store::Database db(env.newDatabasePath());
        addRegister(db, 1);
        const QString dir = env.path(QStringLiteral("out"));
        QDir().mkpath(dir);
        const QString prompt = QStringLiteral("Senha do usuário posto no servidor 127.0.0.1:");
        {
            testsupport::ScriptedDialogs dialogs;
            dialogs.answer(true);
            dialogs.type(std::nullopt);
            const ui::ExportRunOutcome outcome = ui::runExportWithQuestions(db, {100, 3}, dir);
            QVERIFY(outcome.exported && !outcome.mailed);
            QCOMPARE(dialogs.shown().size(), 2);
            QCOMPARE(dialogs.last().kind, testsupport::ScriptedDialogs::Shown::Kind::Input);
            QCOMPARE(dialogs.last().text, prompt);
            QCOMPARE(csitu(db).toInt(), 2);
        }
        {
            testsupport::ScriptedDialogs dialogs;
            dialogs.answer(true);
            dialogs.type(kPassword);
            QVERIFY(ui::runExportWithQuestions(db, {100, 3}, dir).mailed);
            QCOMPARE(dialogs.shown().at(1).text, prompt);
        }
        {
            // Asked once a session: the next send asks nothing but the question.
            testsupport::ScriptedDialogs dialogs;
            dialogs.answer(true);
            QVERIFY(ui::runExportWithQuestions(db, {100, 3}, dir).mailed);
            QCOMPARE(dialogs.shown().size(), 2);
            QCOMPARE(dialogs.shown().first().kind,
                     testsupport::ScriptedDialogs::Shown::Kind::Question);
        }
        QCOMPARE(server.messages().size(), 2);
        QVERIFY(!readAll(QSettings().fileName()).contains(kPassword.toUtf8()));
    }

    // Earlier versions wrote the password into the settings file: the first start takes it out,
    // into the keyring, or without one into the session's memory.
    void thePlainPasswordOfEarlierVersionsLeavesTheFile_data() {
        QTest::addColumn<bool>("keyringAvailable");
        QTest::addColumn<int>("outcome");
        QTest::newRow("keyring") << true << int(PlainPassword::MovedToKeyring);
        QTest::newRow("no keyring") << false << int(PlainPassword::KeptForSession);
    }
    void thePlainPasswordOfEarlierVersionsLeavesTheFile() {
        QFETCH(bool, keyringAvailable);
        QFETCH(int, outcome);
        testsupport::TestEnvironment env;
        testsupport::FakeKeyring keyring(keyringAvailable);
        {
            QSettings settings;
            settings.setValue(QStringLiteral("mail/host"), QStringLiteral("smtp.exemplo.com.br"));
            settings.setValue(QStringLiteral("mail/user"), QStringLiteral("posto"));
            settings.setValue(kPlainPasswordSetting, kPassword);
        }
        const QString file = QSettings().fileName();
        QVERIFY(readAll(file).contains(kPassword.toUtf8()));
        {
            QSettings settings;
            QCOMPARE(int(movePlainPassword(settings)), outcome);
        }
        QVERIFY(!readAll(file).contains(kPassword.toUtf8()));
        QCOMPARE(MailSettings::load().host, QStringLiteral("smtp.exemplo.com.br"));
        QCOMPARE(knownMailPassword().password, kPassword);
        QCOMPARE(keyring.entries().value(kMailPasswordKey), keyringAvailable ? kPassword : "");
        QSettings settings;
        QCOMPARE(movePlainPassword(settings), PlainPassword::None); // the next start
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
