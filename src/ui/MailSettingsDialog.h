#pragma once

#include "exchange/Mail.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace ui {

// The agency's mailbox and the SMTP server through which the export mails its file.
class MailSettingsDialog : public QDialog {
public:
    explicit MailSettingsDialog(const exchange::MailSettings& settings, QWidget* parent = nullptr);

    exchange::MailSettings settings() const;

    // Shows the dialog over the program's own settings and saves them on OK.
    static bool edit(QWidget* parent);

private:
    QLineEdit* m_recipient;
    QLineEdit* m_host;
    QSpinBox* m_port;
    QComboBox* m_security;
    QLineEdit* m_user;
    QLineEdit* m_password;
    QLineEdit* m_sender;
};

} // namespace ui
