#include "exchange/MailPassword.h"

#include <QSettings>

namespace exchange {

namespace {

class NoKeyring : public Keyring {
public:
    Entry read(const QString&) override { return {Status::Unavailable, QString(), QString()}; }
    bool write(const QString&, const QString&) override { return false; }
    bool remove(const QString&) override { return true; }
};

NoKeyring noKeyring;
Keyring* installed = &noKeyring;

// Typed in this session, or kept here because no keyring took it.
std::optional<QString> sessionPassword;

} // namespace

Keyring& keyring() {
    return *installed;
}

KeyringOverride::KeyringOverride(Keyring& replacement)
    : m_previous(installed) {
    installed = &replacement;
    sessionPassword.reset();
}

KeyringOverride::~KeyringOverride() {
    installed = m_previous;
    sessionPassword.reset();
}

KnownPassword knownMailPassword() {
    const Keyring::Entry entry = keyring().read(kMailPasswordKey);
    KnownPassword known;
    known.keyringAvailable = entry.status != Keyring::Status::Unavailable;
    if (sessionPassword)
        known.password = sessionPassword;
    else if (entry.status == Keyring::Status::Found)
        known.password = entry.secret;
    return known;
}

PasswordPlace keepMailPassword(const QString& password) {
    if (password.isEmpty()) {
        sessionPassword.reset();
        keyring().remove(kMailPasswordKey);
        return PasswordPlace::Keyring;
    }
    if (keyring().write(kMailPasswordKey, password)) {
        sessionPassword.reset();
        return PasswordPlace::Keyring;
    }
    sessionPassword = password;
    return PasswordPlace::Session;
}

void keepMailPasswordForSession(const QString& password) {
    sessionPassword = password;
}

PlainPassword movePlainPassword(QSettings& settings) {
    if (!settings.contains(kPlainPasswordSetting))
        return PlainPassword::None;
    const QString password = settings.value(kPlainPasswordSetting).toString();
    PlainPassword outcome = PlainPassword::None;
    if (!password.isEmpty())
        outcome = keepMailPassword(password) == PasswordPlace::Keyring
                      ? PlainPassword::MovedToKeyring
                      : PlainPassword::KeptForSession;
    settings.remove(kPlainPasswordSetting);
    settings.sync();
    return outcome;
}

} // namespace exchange
