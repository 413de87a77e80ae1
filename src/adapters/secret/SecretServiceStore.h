// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/secret/SecretPlugin.h"

#include <chrono>
#include <memory>

namespace zeph {

/// How long a secret service is waited for. A person who reads a prompt has all the time.
struct SecretServiceLimits {
    std::chrono::milliseconds answer{10'000};  ///< for an answer that needs no prompt
    std::chrono::milliseconds silence{60'000}; ///< then nothing is asked for that long
};

/// The secrets in the Secret Service of the session (GNOME Keyring, KWallet, KeePassXC): entries
/// of our own schema with the attributes `service` and `account`. Operations are carried out one
/// after the other on a thread that begins with the first of them; callers wait. A locked
/// collection is unlocked by the service's own prompt; once a person closed it, reading does not
/// bring it up again until `askAgain`, or writing has unlocked the collection. Callable from
/// any thread, but from the main thread only where a wait does no harm.
class SecretServiceStore : public CancellableStore {
public:
    explicit SecretServiceStore(const SecretServiceLimits &limits = {});

    /// Cancels, and ends the thread.
    ~SecretServiceStore() override;

    SecretOutcome add(const QString &service, const QString &account,
                      const QByteArray &data) override;
    SecretAnswer<std::optional<QByteArray>> copy(const QString &service,
                                                 const QString &account) override;
    SecretAnswer<std::vector<SecureItem>> copyAll(const QString &service) override;
    SecretOutcome remove(const QString &service, const QString &account) override;
    void askAgain() override;

    /// A prompt that stands open is ended, too. For the end of the process.
    void cancelAll() override;

private:
    class Worker;
    std::unique_ptr<Worker> m_worker;
};

} // namespace zeph
