// SPDX-License-Identifier: MIT
#pragma once

#include "integrations/accounts/IntegrationConnection.h"
#include "integrations/accounts/PendingSecrets.h"
#include "integrations/accounts/SerialTasks.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace zeph {

class ConnectedMarks;
class Keychain;
class RunLoop;
class UserDefaults;
struct LegacyAccount;

/// Changes secrets away from the main thread, one after the other, as the keychain may wait for a
/// password. What is to be erased or moved, and the end of the process cuts off, is made up for
/// at the next launch. Main thread only. Everything handed in outlives the executor's tasks.
class AccountSecrets {
public:
    AccountSecrets(UserDefaults &defaults, Keychain &keychain, RunLoop &runLoop,
                   TaskExecutor &executor);
    ~AccountSecrets();

    /// Keeps the secret, marks its account as connected, then calls `done` on the main thread.
    void keep(const QString &secret, const QUuid &id, std::function<void()> done);

    /// Marks the account as connected at once, without a secret.
    void markConnected(const QUuid &id);

    /// Takes the mark of an account that stays at once, and erases its secret.
    void clear(const QUuid &id);

    /// Erases the secret of an account that is gone; its mark is left as it is.
    void erase(const QUuid &id);

    /// Notes that the secrets of these accounts lie under the names of earlier versions. They are
    /// moved by `resume`, once the accounts are kept for good.
    void noteMoves(const std::vector<LegacyAccount> &accounts);

    /// Does what was noted or what an earlier process could not finish, then calls `done` on the
    /// main thread if a secret has moved. Moves to accounts that never came to be are forgotten.
    void resume(const std::vector<IntegrationConnection> &connections, std::function<void()> done);

    /// Notes that an endpoint has left the list, before the list without it is kept.
    void noteEndpointErased(const QUuid &id) { m_pending->addEndpoint(id); }
    void noteEndpointKept(const QUuid &id) { m_pending->endpointsErased({id}); }

    /// The endpoints that an earlier process could not take out of the kept list.
    std::vector<QUuid> erasedEndpoints() const { return m_pending->endpoints(); }

    /// Keeps the text of the list of endpoints, then calls `done` on the main thread.
    void keepEndpoints(const QString &text, bool isEmpty, std::function<void()> done);

    /// Runs `work` in its turn away from the main thread, then `onMain` unless this is gone.
    void run(std::function<void()> work, std::function<void()> onMain);

    /// Waits until all is done; false when that takes longer than `patience`. In either case
    /// nothing is written down after that.
    bool finish(std::chrono::milliseconds patience);

private:
    void startErasure(const QUuid &id);
    void move(const std::vector<SecretMove> &moves, std::function<void()> done);
    void drop(const SecretMove &move);

    UserDefaults &m_defaults;
    Keychain &m_keychain;
    RunLoop &m_runLoop;
    SerialTasks m_tasks;
    std::shared_ptr<PendingSecrets> m_pending; // shared with the tasks, which may outlive this
    std::shared_ptr<ConnectedMarks> m_marks;   // the same
    std::shared_ptr<bool> m_alive;             // lets what was posted see that this is gone
};

} // namespace zeph
