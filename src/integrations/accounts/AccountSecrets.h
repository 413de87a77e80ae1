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

class Keychain;
class RunLoop;
class UserDefaults;
struct LegacyAccount;

/// Changes secrets away from the main thread, one after the other, as the keychain may wait for a
/// password. Erasures and moves that the end of the process cuts off are made up for at the next
/// launch. Main thread only. Everything handed in outlives the executor's tasks.
class AccountSecrets {
public:
    AccountSecrets(UserDefaults &defaults, Keychain &keychain, RunLoop &runLoop,
                   TaskExecutor &executor);

    /// Keeps the secret, marks its account as connected, then calls `done` on the main thread.
    void keep(const QString &secret, const QUuid &id, std::function<void()> done);

    /// Erases the secret of an account that stays, and its mark.
    void clear(const QUuid &id);

    /// Erases the secret of an account that is gone; its mark is left as it is.
    void erase(const QUuid &id);

    /// Notes that the secrets of these accounts lie under the names of earlier versions. They are
    /// moved by `resume`, once the accounts are kept for good.
    void noteMoves(const std::vector<LegacyAccount> &accounts);

    /// Does what was noted or what an earlier process could not finish, then calls `done` on the
    /// main thread if a secret has moved to one of `connections`. Moves to accounts that never
    /// came to be are forgotten.
    void resume(const std::vector<IntegrationConnection> &connections, std::function<void()> done);

    /// Runs `work` in its turn away from the main thread, then `onMain` unless this is gone.
    void run(std::function<void()> work, std::function<void()> onMain);

    /// Waits until all is done; false when that takes longer than `patience`.
    bool finish(std::chrono::milliseconds patience) { return m_tasks.waitUntilIdle(patience); }

private:
    std::vector<SecretMove> takeMoves(const std::vector<IntegrationConnection> &connections,
                                      const std::vector<QUuid> &erasures);

    UserDefaults &m_defaults;
    Keychain &m_keychain;
    RunLoop &m_runLoop;
    SerialTasks m_tasks;
    std::shared_ptr<PendingSecrets> m_pending; // shared with the tasks, which may outlive this
    std::shared_ptr<bool> m_alive;             // lets what was posted see that this is gone
};

} // namespace zeph
