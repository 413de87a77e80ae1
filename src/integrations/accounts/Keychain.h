// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <atomic>
#include <mutex>
#include <optional>

namespace zeph {

class SecureStore;
class UserDefaults;

/// Secrets as texts by account, over the secure store of the system. What was read once is
/// remembered until the process ends; what is missing is not, so that asking for it reaches the
/// store each time. Entries of an earlier service name are moved over unseen. Callable from any
/// thread; may block as long as the store does. Failures are silent: a secret that can't be read
/// is absent, one that can't be kept lives as long as the process.
class Keychain {
public:
    Keychain(SecureStore &store, UserDefaults &defaults);
    Keychain(const Keychain &) = delete;
    Keychain &operator=(const Keychain &) = delete;

    std::optional<QString> get(const QString &account);

    /// Absent or empty erases the entry.
    void set(const std::optional<QString> &value, const QString &account);

    /// Erases the entry under both service names.
    void erase(const QString &account);

    /// Moves the entries of the earlier service name, once per user. One thread does it, and the
    /// others wait, so that none can write a new secret that the move then overwrites.
    void migrateLegacyServiceIfNeeded();

    /// The process ends: from now on the store may answer nothing to whatever it is asked, and
    /// what follows from its answers must not be written down.
    void close() { m_isClosed = true; }
    bool isClosed() const { return m_isClosed; }

private:
    std::optional<QString> read(const QString &account, const QString &service);
    void write(const QString &text, const QString &account, const QString &service);
    void remove(const QString &account);
    std::optional<QString> cached(const QString &account) const;
    void remember(const QString &account, const std::optional<QString> &value);
    quint64 changes() const;

    SecureStore &m_store;
    UserDefaults &m_defaults;
    std::mutex m_migration;    // taken before `m_lock`, and held while the store is asked
    mutable std::mutex m_lock; // never held while the store is asked
    QHash<QString, QString> m_cache;
    std::atomic<bool> m_isClosed = false;
    quint64 m_changes = 0; // grows with every write, so that a read knows when it is outdated
};

} // namespace zeph
