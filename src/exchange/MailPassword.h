#pragma once

#include <QString>
#include <optional>

class QSettings;

// Where the password of the mail server lives: the desktop's keyring when the session has one,
// else this session's memory only. Never the settings file.
namespace exchange {

// The system's store of secrets, behind an interface: the program puts in the desktop's
// keyring at start, tests put in a double. With none installed there is no keyring.
class Keyring {
public:
    enum class Status { Found, NotFound, Unavailable };
    struct Entry {
        Status status = Status::Unavailable;
        QString secret; // Found: the secret
        QString detail; // Unavailable: why, in the keyring's words
    };

    virtual ~Keyring() = default;
    virtual Entry read(const QString& key) = 0;
    // True when the secret is stored.
    virtual bool write(const QString& key, const QString& secret) = 0;
    // True when no secret is left under `key`.
    virtual bool remove(const QString& key) = 0;
};

// The keyring in use: the one installed, else one that is never available.
Keyring& keyring();

// Installs `replacement` until the guard goes out of scope. The password kept in the session's
// memory is forgotten on both ends, so that nothing passes from one keyring to the next.
class KeyringOverride {
public:
    explicit KeyringOverride(Keyring& replacement);
    ~KeyringOverride();
    KeyringOverride(const KeyringOverride&) = delete;
    KeyringOverride& operator=(const KeyringOverride&) = delete;

private:
    Keyring* m_previous;
};

// The key of the mail password in the keyring (service "vor").
inline const QString kMailPasswordKey = QStringLiteral("mail");

struct KnownPassword {
    std::optional<QString> password; // neither this session nor the keyring knows one
    bool keyringAvailable = false;
};

// The password typed in this session, else the keyring's.
KnownPassword knownMailPassword();

enum class PasswordPlace { Keyring, Session };

// Keeps the password in the keyring; where there is none, or it refuses, in this session's
// memory. An empty password forgets it in both.
PasswordPlace keepMailPassword(const QString& password);

// Keeps the password for this session only (typed when a send asked for it).
void keepMailPasswordForSession(const QString& password);

// Where earlier versions kept the password, in plain text.
inline const QString kPlainPasswordSetting = QStringLiteral("mail/password");

// What became of the password that earlier versions kept in plain text in the settings.
enum class PlainPassword { None, MovedToKeyring, KeptForSession };

// Takes the plain text password out of the settings: into the keyring, or, without one, into
// this session's memory. Either way the settings file no longer holds it.
PlainPassword movePlainPassword(QSettings& settings);

} // namespace exchange
