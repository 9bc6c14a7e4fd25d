#include "exchange/Mail.h"

#include "rules/Formats.h"

#include "exchange/MailPassword.h"
#include "store/Database.h"
#include "store/PrivateFiles.h"

#include <QFile>
#include <QSettings>
#include <QUuid>
#include <arpa/inet.h>
#include <curl/curl.h>
#include <memory>
#include <mutex>

namespace exchange {

namespace {

const QString kGroup = QStringLiteral("mail/");

QString securityName(MailSettings::Security security) {
    switch (security) {
    case MailSettings::Security::StartTls:
        return QStringLiteral("starttls");
    case MailSettings::Security::Tls:
        return QStringLiteral("tls");
    case MailSettings::Security::None:
        break;
    }
    return QStringLiteral("none");
}

MailSettings::Security securityFromName(const QString& name) {
    if (name == QLatin1String("starttls"))
        return MailSettings::Security::StartTls;
    if (name == QLatin1String("tls"))
        return MailSettings::Security::Tls;
    return MailSettings::Security::None;
}

// A header value in plain ASCII, or as an encoded word.
QByteArray headerText(const QString& text) {
    bool ascii = true;
    for (QChar c : text)
        ascii = ascii && c.unicode() >= 0x20 && c.unicode() < 0x7F;
    if (ascii)
        return text.toLatin1();
    return "=?UTF-8?B?" + text.toUtf8().toBase64() + "?=";
}

struct CurlDeleter {
    void operator()(CURL* curl) const { curl_easy_cleanup(curl); }
    void operator()(curl_mime* mime) const { curl_mime_free(mime); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

curl_slist* append(curl_slist* list, const QByteArray& line) {
    return curl_slist_append(list, line.constData());
}

// "localhost", or an address of this machine's loopback (127.0.0.0/8, ::1, ::ffff:127.x.x.x),
// as written: no name is looked up.
bool isLoopback(const QString& host) {
    if (host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0)
        return true;
    const QByteArray text = host.toLatin1();
    in_addr v4{};
    if (inet_pton(AF_INET, text.constData(), &v4) == 1)
        return (ntohl(v4.s_addr) >> 24) == 127;
    in6_addr v6{};
    if (inet_pton(AF_INET6, text.constData(), &v6) == 1)
        return IN6_IS_ADDR_LOOPBACK(&v6) || (IN6_IS_ADDR_V4MAPPED(&v6) && v6.s6_addr[12] == 127);
    return false;
}

} // namespace

MailSettings MailSettings::load(QSettings& settings) {
    MailSettings s;
    s.recipient = settings.value(kGroup + QStringLiteral("recipient")).toString();
    s.host = settings.value(kGroup + QStringLiteral("host")).toString();
    s.port = settings.value(kGroup + QStringLiteral("port"), s.port).toInt();
    s.security = securityFromName(
        settings.value(kGroup + QStringLiteral("security"), securityName(s.security)).toString());
    s.user = settings.value(kGroup + QStringLiteral("user")).toString();
    s.sender = settings.value(kGroup + QStringLiteral("sender")).toString();
    s.authorities = settings.value(kGroup + QStringLiteral("authorities")).toString();
    return s;
}

void MailSettings::save(QSettings& settings) const {
    // Made private before the first write: the settings keep the permissions of their file.
    store::makeSettingsPrivate(settings);
    settings.setValue(kGroup + QStringLiteral("recipient"), recipient);
    settings.setValue(kGroup + QStringLiteral("host"), host);
    settings.setValue(kGroup + QStringLiteral("port"), port);
    settings.setValue(kGroup + QStringLiteral("security"), securityName(security));
    settings.setValue(kGroup + QStringLiteral("user"), user);
    settings.setValue(kGroup + QStringLiteral("sender"), sender);
    if (authorities.isEmpty())
        settings.remove(kGroup + QStringLiteral("authorities"));
    else
        settings.setValue(kGroup + QStringLiteral("authorities"), authorities);
    settings.remove(kPlainPasswordSetting);
    settings.sync();
}

MailSettings MailSettings::load() {
    QSettings settings;
    return load(settings);
}

void MailSettings::save() const {
    QSettings settings;
    save(settings);
}

MailObjective mailObjective(const QVariant& imovmn) {
    if (!imovmn.isValid())
        return {QString(), QStringLiteral("Cadastro"), true};
    const QString code = imovmn.isNull() ? QString() : imovmn.toString();
    if (code == QLatin1String("LF"))
        return {QStringLiteral("(LF)"), QStringLiteral("VOR da Licença de Funcionamento"), false};
    if (code == QLatin1String("LP"))
        return {QStringLiteral("(LP)"), QStringLiteral("VOR da Licença Prévia"), false};
    if (code == QLatin1String("LI"))
        return {QStringLiteral("(LI)"), QStringLiteral("VOR da Licença de Instalação"), false};
    if (code == QLatin1String("LP/LI"))
        return {QStringLiteral("(LP/LI)"), QStringLiteral("VOR da Licença Prévia e de Instalação"),
                false};
    return {QString(), QStringLiteral("Cadastro"), code == QLatin1String("C")};
}

QString maskedCnpj(const QString& key14) {
    return rules::cnpjText(key14);
}

MailMessage exportMail(const MailObjective& objective, const QString& companyName,
                       const QString& key14, bool resend, const QString& attachmentPath) {
    MailMessage m;
    m.subject = QStringLiteral("VOR-Postos ") + objective.kind;
    if (resend)
        m.subject += QStringLiteral(" (Atualização)");
    m.body = QStringLiteral("Em anexo, o ") + objective.label +
             (resend ? QStringLiteral(" ALTERADO de Posto do Empreendimento: ")
                     : QStringLiteral(" de Posto do Empreendimento: ")) +
             companyName + QStringLiteral(" CNPJ- ") + maskedCnpj(key14) + QStringLiteral(".\r\r");
    m.attachmentPath = attachmentPath;
    return m;
}

std::optional<QString> plainLoginRefusal(const MailSettings& settings) {
    if (settings.user.isEmpty() || settings.security != MailSettings::Security::None)
        return std::nullopt;
    // Judged by the name as typed, before any lookup: the password must not leave the machine
    // to find out where a name leads.
    const QString host = settings.host.trimmed();
    if (isLoopback(host))
        return std::nullopt;
    return QStringLiteral("a conexão com o servidor %1 não é criptografada, e o usuário e a senha "
                          "não são enviados sem criptografia. Escolha STARTTLS ou SSL/TLS em "
                          "\"Segurança\", na configuração do e-mail.")
        .arg(host);
}

std::optional<QString> sendMail(const MailSettings& settings, const MailMessage& message) {
    if (settings.host.trimmed().isEmpty())
        return QStringLiteral("o servidor de e-mail (SMTP) não está configurado.");
    if (settings.recipient.trimmed().isEmpty())
        return QStringLiteral("a caixa postal do órgão não está configurada.");
    if (const auto refusal = plainLoginRefusal(settings))
        return refusal;
    if (!QFile::exists(message.attachmentPath))
        return QStringLiteral("o arquivo %1 não foi encontrado.").arg(message.attachmentPath);

    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });

    std::unique_ptr<CURL, CurlDeleter> curl(curl_easy_init());
    if (!curl)
        return QStringLiteral("não foi possível iniciar o envio.");
    CURL* c = curl.get();
    char errorBuffer[CURL_ERROR_SIZE] = {};
    curl_easy_setopt(c, CURLOPT_ERRORBUFFER, errorBuffer);

    const QString scheme = settings.security == MailSettings::Security::Tls
                               ? QStringLiteral("smtps")
                               : QStringLiteral("smtp");
    const QByteArray url = QStringLiteral("%1://%2:%3")
                               .arg(scheme, settings.host.trimmed())
                               .arg(settings.port)
                               .toUtf8();
    curl_easy_setopt(c, CURLOPT_URL, url.constData());
    if (settings.security == MailSettings::Security::StartTls)
        curl_easy_setopt(c, CURLOPT_USE_SSL, long(CURLUSESSL_ALL));
    // The server's certificate and name are checked as libcurl does by default; that is never
    // switched off, only the authorities may be the agency's own.
    const QByteArray authorities = QFile::encodeName(settings.authorities);
    if (!settings.authorities.isEmpty())
        curl_easy_setopt(c, CURLOPT_CAINFO, authorities.constData());
    const QByteArray user = settings.user.toUtf8();
    const QByteArray password = settings.password.toUtf8();
    if (!settings.user.isEmpty()) {
        curl_easy_setopt(c, CURLOPT_USERNAME, user.constData());
        curl_easy_setopt(c, CURLOPT_PASSWORD, password.constData());
    }
    curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT, 30L);
    curl_easy_setopt(c, CURLOPT_TIMEOUT, 300L);

    const QString senderAddress = settings.sender.isEmpty() ? settings.user : settings.sender;
    const QByteArray from = ('<' + senderAddress.trimmed() + '>').toUtf8();
    curl_easy_setopt(c, CURLOPT_MAIL_FROM, from.constData());
    std::unique_ptr<curl_slist, CurlDeleter> recipients(
        append(nullptr, ('<' + settings.recipient.trimmed() + '>').toUtf8()));
    curl_easy_setopt(c, CURLOPT_MAIL_RCPT, recipients.get());

    curl_slist* headers = nullptr;
    headers = append(headers, "Subject: " + headerText(message.subject));
    if (!senderAddress.isEmpty())
        headers = append(headers, "From: " + senderAddress.trimmed().toUtf8());
    headers = append(headers, "To: " + settings.recipient.trimmed().toUtf8());
    headers = append(headers,
                     "Date: " + QDateTime::currentDateTime().toString(Qt::RFC2822Date).toLatin1());
    headers = append(headers, "Message-ID: <" +
                                  QUuid::createUuid().toString(QUuid::WithoutBraces).toLatin1() +
                                  "@vor>");
    std::unique_ptr<curl_slist, CurlDeleter> headerList(headers);
    curl_easy_setopt(c, CURLOPT_HTTPHEADER, headerList.get());

    std::unique_ptr<curl_mime, CurlDeleter> mime(curl_mime_init(c));
    const QByteArray body = message.body.toUtf8();
    curl_mimepart* text = curl_mime_addpart(mime.get());
    curl_mime_data(text, body.constData(), size_t(body.size()));
    curl_mime_type(text, "text/plain; charset=UTF-8");
    curl_mime_encoder(text, "quoted-printable");

    const QByteArray attachmentPath = QFile::encodeName(message.attachmentPath);
    const QByteArray attachmentName =
        QFile::encodeName(message.attachmentPath.section(QLatin1Char('/'), -1));
    curl_mimepart* attachment = curl_mime_addpart(mime.get());
    curl_mime_filedata(attachment, attachmentPath.constData());
    curl_mime_filename(attachment, attachmentName.constData());
    curl_mime_type(attachment, "text/plain; charset=windows-1252");
    curl_mime_encoder(attachment, "base64");
    curl_easy_setopt(c, CURLOPT_MIMEPOST, mime.get());

    const CURLcode code = curl_easy_perform(c);
    if (code == CURLE_OK)
        return std::nullopt;
    const QString detail =
        QString::fromUtf8(errorBuffer[0] ? errorBuffer : curl_easy_strerror(code));
    return mailFailureText(int(code), detail, settings);
}

QString mailFailureText(int curlCode, const QString& detail, const MailSettings& settings) {
    const QString host = settings.host.trimmed();
    // The program's own words first; libcurl's, for whoever looks into it, in parentheses.
    auto withDetail = [&detail](const QString& text) {
        return detail.isEmpty() ? text : text + QStringLiteral(" (") + detail + QLatin1Char(')');
    };
    switch (CURLcode(curlCode)) {
    case CURLE_COULDNT_RESOLVE_HOST:
        return withDetail(
            QStringLiteral("o servidor de e-mail %1 não foi encontrado. Confira o nome do "
                           "servidor na configuração do e-mail e a conexão com a internet. Nada "
                           "foi enviado.")
                .arg(host));
    case CURLE_COULDNT_CONNECT:
        return withDetail(QStringLiteral("não foi possível conectar ao servidor de e-mail %1 na "
                                         "porta %2. Confira o servidor e a porta na configuração "
                                         "do e-mail e a conexão com a internet. Nada foi enviado.")
                              .arg(host)
                              .arg(settings.port));
    case CURLE_OPERATION_TIMEDOUT:
        return withDetail(QStringLiteral("o servidor de e-mail %1 não respondeu a tempo. Tente "
                                         "de novo mais tarde. Nada foi enviado.")
                              .arg(host));
    case CURLE_PEER_FAILED_VERIFICATION:
        return withDetail(
            QStringLiteral("o certificado do servidor %1 não pôde ser verificado: ele não é "
                           "desse servidor, venceu ou não foi emitido por uma autoridade "
                           "reconhecida. Nada foi enviado.")
                .arg(host));
    case CURLE_SSL_CACERT_BADFILE:
        return withDetail(QStringLiteral("o arquivo de autoridades certificadoras %1 não pôde ser "
                                         "lido. Nada foi enviado.")
                              .arg(settings.authorities));
    case CURLE_SSL_CONNECT_ERROR:
        return withDetail(QStringLiteral("a conexão segura (TLS) com o servidor %1 falhou. "
                                         "Confira a segurança escolhida na configuração do "
                                         "e-mail. Nada foi enviado.")
                              .arg(host));
    case CURLE_USE_SSL_FAILED:
        return withDetail(QStringLiteral("o servidor %1 não oferece STARTTLS. Escolha SSL/TLS ou "
                                         "outro servidor na configuração do e-mail.")
                              .arg(host));
    case CURLE_LOGIN_DENIED:
        return withDetail(QStringLiteral("o servidor %1 recusou o usuário ou a senha.").arg(host));
    default:
        break;
    }
    // The refusals of the conversation itself come back as a failed send.
    if (detail.startsWith(QLatin1String("RCPT failed")))
        return withDetail(QStringLiteral("o servidor %1 recusou o destinatário %2. Confira a "
                                         "caixa postal do órgão na configuração do e-mail. Nada "
                                         "foi enviado.")
                              .arg(host, settings.recipient.trimmed()));
    if (detail.startsWith(QLatin1String("MAIL failed")))
        return withDetail(QStringLiteral("o servidor %1 recusou o remetente. Confira o usuário e o "
                                         "remetente na configuração do e-mail. Nada foi enviado.")
                              .arg(host));
    return withDetail(
        QStringLiteral("o envio pelo servidor %1 falhou. Nada foi enviado.").arg(host));
}

MailStep::MailStep(store::Database& db, const store::RegisterKey& key, QString companyName,
                   QString fileKey, QString joinedPath)
    : m_db(db)
    , m_key(key)
    , m_companyName(std::move(companyName))
    , m_fileKey(std::move(fileKey))
    , m_joinedPath(std::move(joinedPath)) {
    const QVariant csitu =
        db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS WHERE NMUNCP = ? AND NSEQNC = ?"),
                  {key.nmuncp, key.nseqnc});
    m_resend = !csitu.isNull() && csitu.toInt() >= 3;
    m_objective = mailObjective(db.scalar(QStringLiteral("SELECT IMOVMN FROM TB_VORpMOVMN")));
}

QString MailStep::question() const {
    return m_resend ? QStringLiteral("Exportação Concluída. Reenviar por e-mail?")
                    : QStringLiteral("Exportação Concluída. Enviar por e-mail?");
}

MailMessage MailStep::message() const {
    return exportMail(m_objective, m_companyName, m_fileKey, m_resend, m_joinedPath);
}

MailStep::Outcome MailStep::send(const MailSettings& settings, const MailSender& sender) {
    Outcome outcome;
    outcome.sendError = sender(settings, message());
    if (outcome.sendError)
        return outcome;
    m_db.run(QStringLiteral("UPDATE EMPRS SET CSITU = ? WHERE NMUNCP = ? AND NSEQNC = ?"),
             {m_resend ? 4 : 3, m_key.nmuncp, m_key.nseqnc});
    if (m_objective.protocolDue)
        outcome.protocol = ProtocolRequest{m_key, QDateTime::currentDateTime(), m_resend};
    return outcome;
}

} // namespace exchange
