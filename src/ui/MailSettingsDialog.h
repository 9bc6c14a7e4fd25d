#pragma once

#include "exchange/Mail.h"
#include "exchange/MailPassword.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace ui {

// The agency's mailbox and the SMTP server through which the export mails its file.
class MailSettingsDialog : public QDialog {
public:
    // `keyringAvailable`: the session has a keyring for the password; without one the dialog
    // says that the password is kept only until the program closes.
    MailSettingsDialog(const exchange::MailSettings& settings, bool keyringAvailable,
                       QWidget* parent = nullptr);

    exchange::MailSettings settings() const;

    // Saves the settings into the program's own, and the password into the keyring (or, without
    // one, into this session's memory).
    exchange::PasswordPlace store() const;

    // Shows the dialog over the program's own settings and stores them on OK.
    static bool edit(QWidget* parent);

private:
    void securityChosen();

    exchange::MailSettings m_original;
    QLineEdit* m_recipient;
    QLineEdit* m_host;
    QSpinBox* m_port;
    QComboBox* m_security;
    QLineEdit* m_user;
    QLineEdit* m_password;
    QLineEdit* m_sender;
    QLabel* m_noKeyring;
    exchange::MailSettings::Security m_shownSecurity;
};

} // namespace ui
