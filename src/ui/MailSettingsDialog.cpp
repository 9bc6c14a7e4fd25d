#include "ui/MailSettingsDialog.h"

#include "ui/Dialogs.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace ui {

namespace {

using Security = exchange::MailSettings::Security;

int usualPort(Security security) {
    switch (security) {
    case Security::StartTls:
        return 587;
    case Security::Tls:
        return 465;
    case Security::None:
        break;
    }
    return 25;
}

} // namespace

MailSettingsDialog::MailSettingsDialog(const exchange::MailSettings& settings,
                                       bool keyringAvailable, QWidget* parent)
    : QDialog(parent)
    , m_original(settings)
    , m_recipient(new QLineEdit(settings.recipient, this))
    , m_host(new QLineEdit(settings.host, this))
    , m_port(new QSpinBox(this))
    , m_security(new QComboBox(this))
    , m_user(new QLineEdit(settings.user, this))
    , m_password(new QLineEdit(settings.password, this))
    , m_sender(new QLineEdit(settings.sender, this))
    , m_noKeyring(new QLabel(this))
    , m_shownSecurity(settings.security) {
    setObjectName(QStringLiteral("frmConfigEmail"));
    setWindowTitle(QStringLiteral("Configuração do e-mail"));
    m_recipient->setObjectName(QStringLiteral("txtDestinatario"));
    m_host->setObjectName(QStringLiteral("txtServidor"));
    m_port->setObjectName(QStringLiteral("txtPorta"));
    m_port->setRange(1, 65535);
    m_port->setValue(settings.port);
    m_security->setObjectName(QStringLiteral("cmbSeguranca"));
    m_security->addItem(QStringLiteral("Nenhuma"), int(Security::None));
    m_security->addItem(QStringLiteral("STARTTLS"), int(Security::StartTls));
    m_security->addItem(QStringLiteral("SSL/TLS"), int(Security::Tls));
    m_security->setCurrentIndex(m_security->findData(int(settings.security)));
    m_user->setObjectName(QStringLiteral("txtUsuario"));
    m_password->setObjectName(QStringLiteral("txtSenha"));
    m_password->setEchoMode(QLineEdit::Password);
    m_sender->setObjectName(QStringLiteral("txtRemetente"));
    m_noKeyring->setObjectName(QStringLiteral("lblSemChaveiro"));
    m_noKeyring->setWordWrap(true);
    m_noKeyring->setText(QStringLiteral("Não há chaveiro do sistema nesta sessão: a senha não será "
                                        "gravada. Ela será pedida no envio e guardada só até o "
                                        "programa ser fechado."));
    m_noKeyring->setVisible(!keyringAvailable);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("E-mail do órgão:"), m_recipient);
    form->addRow(QStringLiteral("Servidor SMTP:"), m_host);
    form->addRow(QStringLiteral("Porta:"), m_port);
    form->addRow(QStringLiteral("Segurança:"), m_security);
    form->addRow(QStringLiteral("Usuário:"), m_user);
    form->addRow(QStringLiteral("Senha:"), m_password);
    form->addRow(QString(), m_noKeyring);
    form->addRow(QStringLiteral("Remetente:"), m_sender);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOk"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_security, &QComboBox::currentIndexChanged, this, &MailSettingsDialog::securityChosen);
    setMinimumWidth(440);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

// A port left at the usual one of the former choice follows the new choice; a port typed by
// the user stays.
void MailSettingsDialog::securityChosen() {
    const auto chosen = Security(m_security->currentData().toInt());
    if (m_port->value() == usualPort(m_shownSecurity))
        m_port->setValue(usualPort(chosen));
    m_shownSecurity = chosen;
}

exchange::MailSettings MailSettingsDialog::settings() const {
    exchange::MailSettings s = m_original;
    s.recipient = m_recipient->text().trimmed();
    s.host = m_host->text().trimmed();
    s.port = m_port->value();
    s.security = Security(m_security->currentData().toInt());
    s.user = m_user->text().trimmed();
    s.password = m_password->text();
    s.sender = m_sender->text().trimmed();
    return s;
}

exchange::PasswordPlace MailSettingsDialog::store() const {
    const exchange::MailSettings s = settings();
    s.save();
    return exchange::keepMailPassword(s.password);
}

bool MailSettingsDialog::edit(QWidget* parent) {
    exchange::MailSettings settings = exchange::MailSettings::load();
    const exchange::KnownPassword known = exchange::knownMailPassword();
    settings.password = known.password.value_or(QString());
    MailSettingsDialog dialog(settings, known.keyringAvailable, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    if (dialog.store() == exchange::PasswordPlace::Session && known.keyringAvailable)
        dialogs().message(kTitle,
                          QStringLiteral("A senha não pôde ser gravada no chaveiro do sistema; "
                                         "ela vale só até o programa ser fechado."),
                          Icon::Warning);
    return true;
}

} // namespace ui
