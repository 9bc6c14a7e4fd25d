#pragma once

#include "exchange/MailPassword.h"

#include <QMap>

namespace testsupport {

// A keyring in memory, installed for its lifetime; `available` false plays a session without
// one (every read, write and removal fails as QtKeychain's do there).
class FakeKeyring : public exchange::Keyring {
public:
    explicit FakeKeyring(bool available = true)
        : m_available(available)
        , m_override(*this) {}

    Entry read(const QString& key) override {
        if (!m_available)
            return {Status::Unavailable, QString(), QStringLiteral("no keyring")};
        if (!m_entries.contains(key))
            return {Status::NotFound, QString(), QString()};
        return {Status::Found, m_entries.value(key), QString()};
    }
    bool write(const QString& key, const QString& secret) override {
        if (m_available)
            m_entries.insert(key, secret);
        return m_available;
    }
    bool remove(const QString& key) override {
        m_entries.remove(key);
        return m_available;
    }

    const QMap<QString, QString>& entries() const { return m_entries; }

private:
    bool m_available;
    QMap<QString, QString> m_entries;
    exchange::KeyringOverride m_override;
};

} // namespace testsupport
