// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/secret/SecretHandles.h"
#include "ports/SecureStore.h"

namespace zeph {

class SecretLoop;

/// The operations on the secret service, on the thread of `loop`. Each opens a conversation of its
/// own, so that a service which was started anew is none the worse.
class SecretVault {
public:
    explicit SecretVault(SecretLoop &loop) : m_loop(loop) {}

    SecretOutcome add(const QString &service, const QString &account, const QByteArray &data);
    SecretAnswer<std::optional<QByteArray>> copy(const QString &service, const QString &account);
    SecretAnswer<std::vector<SecureItem>> copyAll(const QString &service);
    SecretOutcome remove(const QString &service, const QString &account);
    void askAgain() { m_wasRefused = false; }

private:
    /// A conversation with the service; its end closes it.
    struct Conversation {
        SecretPtr<GDBusConnection> bus;
        SecretPtr<SecretService> service;
    };

    /// When a locked entry is reason enough for a prompt.
    enum class Asking {
        forOne, ///< unless one is unlocked already, or a person refused before
        forAll, ///< unless a person refused before
        always
    };

    std::optional<Conversation> open();
    SecretAnswer<ObjectList> search(SecretService *service, const QString &name,
                                    const std::optional<QString> &account);
    SecretAnswer<ObjectList> find(SecretService *service, const QString &name,
                                  const std::optional<QString> &account, Asking asking);
    static bool isEnough(const ObjectList &items, Asking asking);
    SecretOutcome unlock(SecretService *service, GList *objects);
    SecretOutcome unlockDefault(SecretService *service, bool &isThere);
    SecretOutcome removeOthers(SecretService *service, const QString &name, const QString &account,
                               const QByteArray &data);
    SecretOutcome remove(SecretItem *item);
    std::optional<QByteArray> read(SecretItem *item);

    SecretLoop &m_loop;
    bool m_wasRefused = false; // a person closed the prompt, so reading asks no more
};

} // namespace zeph
