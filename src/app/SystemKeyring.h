#pragma once

#include "exchange/MailPassword.h"

#include <utility>

namespace app {

// The desktop's keyring (the Secret Service, or KWallet) through QtKeychain, under a service
// name, "vor" for the program. Never falls back to a file: a session without a keyring reports
// it unavailable. Each call waits for the keyring, which may ask the user to unlock it.
class SystemKeyring : public exchange::Keyring {
public:
    explicit SystemKeyring(QString service = QStringLiteral("vor"))
        : m_service(std::move(service)) {}

    Entry read(const QString& key) override;
    bool write(const QString& key, const QString& secret) override;
    bool remove(const QString& key) override;

private:
    QString m_service;
};

} // namespace app
