#include "ui/MailSettingsDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace ui {

MailSettingsDialog::MailSettingsDialog(const exchange::MailSettings& settings, QWidget* parent)
    : QDialog(parent)
    , m_recipient(new QLineEdit(settings.recipient, this))
    , m_host(new QLineEdit(settings.host, this))
    , m_port(new QSpinBox(this))
    , m_security(new QComboBox(this))
    , m_user(new QLineEdit(settings.user, this))
    , m_password(new QLineEdit(settings.password, this))
    , m_sender(new QLineEdit(settings.sender, this)) {
    setObjectName(QStringLiteral("frmConfigEmail"));
    setWindowTitle(QStringLiteral("Configuração do e-mail"));
    m_recipient->setObjectName(QStringLiteral("txtDestinatario"));
    m_host->setObjectName(QStringLiteral("txtServidor"));
    m_port->setObjectName(QStringLiteral("txtPorta"));
    m_port->setRange(1, 65535);
    m_port->setValue(settings.port);
    m_security->setObjectName(QStringLiteral("cmbSeguranca"));
    m_security->addItem(QStringLiteral("Nenhuma"), int(exchange::MailSettings::Security::None));
    m_security->addItem(QStringLiteral("STARTTLS"),
                        int(exchange::MailSettings::Security::StartTls));
    m_security->addItem(QStringLiteral("SSL/TLS"), int(exchange::MailSettings::Security::Tls));
    m_security->setCurrentIndex(m_security->findData(int(settings.security)));
    m_user->setObjectName(QStringLiteral("txtUsuario"));
    m_password->setObjectName(QStringLiteral("txtSenha"));
    m_password->setEchoMode(QLineEdit::Password);
    m_sender->setObjectName(QStringLiteral("txtRemetente"));

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("E-mail do órgão:"), m_recipient);
    form->addRow(QStringLiteral("Servidor SMTP:"), m_host);
    form->addRow(QStringLiteral("Porta:"), m_port);
    form->addRow(QStringLiteral("Segurança:"), m_security);
    form->addRow(QStringLiteral("Usuário:"), m_user);
    form->addRow(QStringLiteral("Senha:"), m_password);
    form->addRow(QStringLiteral("Remetente:"), m_sender);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOk"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    setMinimumWidth(440);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

exchange::MailSettings MailSettingsDialog::settings() const {
    exchange::MailSettings s;
    s.recipient = m_recipient->text().trimmed();
    s.host = m_host->text().trimmed();
    s.port = m_port->value();
    s.security = exchange::MailSettings::Security(m_security->currentData().toInt());
    s.user = m_user->text().trimmed();
    s.password = m_password->text();
    s.sender = m_sender->text().trimmed();
    return s;
}

bool MailSettingsDialog::edit(QWidget* parent) {
    MailSettingsDialog dialog(exchange::MailSettings::load(), parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    dialog.settings().save();
    return true;
}

} // namespace ui
