#pragma once

#include "store/RegisterKey.h"

#include <QDateTime>
#include <QString>
#include <QVariant>
#include <functional>
#include <optional>

class QSettings;

namespace store {
class Database;
}

// The mail of an exported register to the agency.
namespace exchange {

// Where and how mail goes out; kept in the program's settings under "mail/".
struct MailSettings {
    enum class Security { None, StartTls, Tls };

    QString recipient; // the agency's mailbox
    QString host;      // the SMTP server
    int port = 587;
    Security security = Security::StartTls;
    QString user; // empty: no login
    // Never in the settings: the keyring's, or typed in this session (MailPassword.h).
    QString password;
    QString sender; // the From address; empty: the login name
    // A PEM file of the certificate authorities that vouch for the server, for a server whose
    // certificate no public authority signed; empty: the system's authorities.
    QString authorities;

    // A server and the agency's mailbox: enough to try a send.
    bool isComplete() const { return !host.trimmed().isEmpty() && !recipient.trimmed().isEmpty(); }

    // Without the password, which the settings never hold.
    static MailSettings load(QSettings& settings);
    void save(QSettings& settings) const;
    static MailSettings load(); // the program's own settings
    void save() const;
};

// The kind and the label of the memorial in the mail, by the filling objective IMOVMN.
struct MailObjective {
    QString kind;  // "(LF)", ... or empty
    QString label; // "VOR da Licença de Funcionamento", ... or "Cadastro"
    // The protocol page prints for a register without licence objective.
    bool protocolDue = true;
};
MailObjective mailObjective(const QVariant& imovmn);

struct MailMessage {
    QString subject;
    QString body;
    QString attachmentPath;
};

// "12.345.678/0001-95" from "12345678000195".
QString maskedCnpj(const QString& key14);

// Subject and body of the mail; `resend` for a register that was mailed before (CSITU 3 or
// more), which is sent as an update.
MailMessage exportMail(const MailObjective& objective, const QString& companyName,
                       const QString& key14, bool resend, const QString& attachmentPath);

// A login goes only over an encrypted connection (STARTTLS or SSL/TLS), save to a server on
// this machine. Nothing when `settings` may be used, else why not.
std::optional<QString> plainLoginRefusal(const MailSettings& settings);

// Sends by SMTP, checking the server's certificate; nothing on success, else the description
// of the failure. Refuses a login over a plain connection before connecting.
std::optional<QString> sendMail(const MailSettings& settings, const MailMessage& message);
// The words for a failed send, by libcurl's code and its own text (`detail`), which follows
// them in parentheses.
QString mailFailureText(int curlCode, const QString& detail, const MailSettings& settings);

// What the protocol page needs after a successful send.
struct ProtocolRequest {
    store::RegisterKey key;
    QDateTime moment;    // the moment of the send
    bool resent = false; // the send took the register to 4 ("REENVIADO")
};

// Prints the protocol page; nothing on success, else the error's code as text.
using ProtocolPrinter = std::function<std::optional<QString>(const ProtocolRequest&)>;

using MailSender = std::function<std::optional<QString>(const MailSettings&, const MailMessage&)>;

// The mail step behind an export: the question, the message, the send and the move of the
// register's status to 3 ("ENVIADO") or 4 ("REENVIADO").
class MailStep {
public:
    // Reads CSITU and the objective now, as the step does after the export.
    MailStep(store::Database& db, const store::RegisterKey& key, QString companyName,
             QString fileKey, QString joinedPath);

    bool resend() const { return m_resend; }
    // "Exportação Concluída. Enviar por e-mail?" or "... Reenviar por e-mail?"
    QString question() const;
    const MailObjective& objective() const { return m_objective; }
    MailMessage message() const;

    struct Outcome {
        std::optional<QString> sendError;        // the send failed; the status is unchanged
        std::optional<ProtocolRequest> protocol; // the protocol page is due
    };
    // Sends; after a successful send, moves CSITU forward.
    Outcome send(const MailSettings& settings, const MailSender& sender = sendMail);

private:
    store::Database& m_db;
    store::RegisterKey m_key;
    QString m_companyName;
    QString m_fileKey;
    QString m_joinedPath;
    bool m_resend = false;
    MailObjective m_objective;
};

} // namespace exchange
