#pragma once

#include "exchange/MailPassword.h"

namespace app {

// The desktop's keyring (the Secret Service, or KWallet) through QtKeychain, under the service
// name "vor". Never falls back to a file: a session without a keyring reports it unavailable.
// Each call waits for the keyring, which may ask the user to unlock it.
class SystemKeyring : public exchange::Keyring {
public:
    Entry read(const QString& key) override;
    bool write(const QString& key, const QString& secret) override;
    bool remove(const QString& key) override;
};

} // namespace app
