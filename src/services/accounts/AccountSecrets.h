// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/IntegrationConnection.h"
#include "services/accounts/PendingSecrets.h"
#include "services/accounts/SecretQueue.h"

#include <QHash>
#include <QSet>

#include <functional>
#include <vector>

namespace zeph {

class Keychain;

/// The secrets of the accounts, and the marks in the settings that tell which account was
/// connected, and which with a secret. A mark follows its secret into the keyring and gives way to
/// whatever was decided meanwhile. An erasure or a move that is refused or cut off is noted, and
/// made up for at the next launch. Main thread only; the keychain outlives the work of the queue.
class AccountSecrets {
public:
    AccountSecrets(UserDefaults &defaults, Keychain &keychain, SecretQueue &queue,
                   PendingSecrets &pending);

    /// Keeps the secret and then marks its account as connected: the keychain answers for it until
    /// the process ends, whatever the keyring says.
    void keep(const QString &secret, const QUuid &id, SecretDone done);

    /// Marks the account at once, without a secret, as connected or not.
    void mark(const QUuid &id, bool isConnected);

    /// Takes the mark of an account that stays at once, and erases its secret.
    void clear(const QUuid &id, SecretDone done);

    /// Erases the secret of an account that is gone; its mark is left as it is.
    void erase(const QUuid &id, SecretDone done);

    /// Notes before an account goes that its secret stays until `erase`, so that the account can
    /// come back. At the next launch its secret goes, if the account has not come back by then.
    void noteRemoval(const QUuid &id);

    /// The account came back.
    void forgetRemoval(const QUuid &id);

    /// Does what was noted, and calls `moved` when a secret has come to one of the accounts. A
    /// keyring that refuses is not asked for the rest. Moves to accounts that never came to be
    /// are forgotten.
    void resume(const std::vector<IntegrationConnection> &accounts, std::function<void()> moved);

private:
    struct Move;

    bool takeMoves(const std::vector<Move> &moves);
    void eraseNoted(std::vector<QUuid> ids);

    UserDefaults &m_defaults;
    Keychain &m_keychain;
    SecretQueue &m_queue;
    PendingSecrets &m_pending;
    QHash<QUuid, int> m_decisions; ///< how often it was decided about an account
    QSet<QUuid> m_outdated;        ///< accounts of which the keyring may have what is to go
};

} // namespace zeph
