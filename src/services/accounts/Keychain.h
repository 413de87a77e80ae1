// SPDX-License-Identifier: MIT
#pragma once

#include "ports/SecureStore.h"

#include <QHash>
#include <QString>

#include <atomic>
#include <mutex>
#include <optional>

namespace zeph {

class UserDefaults;

/// Secrets as texts by account, over the secure store of the system. What was read once is
/// remembered until the process ends; what is missing is not, so that asking for it reaches the
/// store each time. Entries of an earlier service name are moved over unseen. Callable from any
/// thread; may block as long as the store does.
class Keychain {
public:
    Keychain(SecureStore &store, UserDefaults &defaults);
    Keychain(const Keychain &) = delete;
    Keychain &operator=(const Keychain &) = delete;

    SecretAnswer<std::optional<QString>> get(const QString &account);

    /// Absent or empty erases the entry. What could not be kept is remembered all the same, while
    /// the store still has what it had.
    SecretOutcome set(const std::optional<QString> &value, const QString &account);

    /// Erases the entry under both service names.
    SecretOutcome erase(const QString &account) { return set(std::nullopt, account); }

    /// Moves the entries of the earlier service name, once per user. One thread does it, and the
    /// others wait, so that none can write a new secret that the move then overwrites.
    void migrateLegacyServiceIfNeeded();

    /// A person wants what is kept: the next read may bring up a prompt that was dismissed before.
    void askAgain() { m_store.askAgain(); }

    /// The process ends: a move under way is left to the next launch.
    void close() { m_isClosed = true; }

private:
    void moveOver(const QString &value, const QString &account, quint64 before);
    SecretOutcome keep(const QString &value, const QString &account);
    SecretOutcome remove(const QString &account);
    std::optional<QString> cached(const QString &account) const;
    void remember(const QString &account, const std::optional<QString> &value);
    quint64 changes() const;

    SecureStore &m_store;
    UserDefaults &m_defaults;
    std::mutex m_migration;    // taken before `m_lock`, and held while the store is asked
    std::mutex m_writing;      // likewise; a read never waits for it
    mutable std::mutex m_lock; // never held while the store is asked
    QHash<QString, QString> m_cache;
    std::atomic<bool> m_isClosed = false;
    quint64 m_changes = 0; // grows with every write, so that a read knows when it is outdated
};

} // namespace zeph
