// SPDX-License-Identifier: MIT
#pragma once

#include "base/TakenOut.h"
#include "base/WorkOwner.h"
#include "services/accounts/CustomAPIConfig.h"
#include "services/accounts/SecretQueue.h"

#include <functional>
#include <map>
#include <vector>

namespace zeph {

class Keychain;
class RunLoop;
class UserDefaults;
struct PendingSecrets;

/// The custom endpoints, which lie in the keyring whole, since their headers may hold keys. A
/// removal is noted in the settings first, so that the keyring loses it in the end whatever comes
/// in between. Main thread only; everything handed in outlives the work of the queue.
class EndpointList {
public:
    /// What the list tells; all of them are set.
    struct Told {
        std::function<void()> willChange;
        std::function<void()> changed; ///< a change is complete
        std::function<void()> cameIn;  ///< the endpoints were read, and there are some
    };

    EndpointList(UserDefaults &defaults, Keychain &keychain, SecretQueue &queue,
                 PendingSecrets &pending, RunLoop &runLoop, Told told);

    const std::vector<CustomAPIConfig> &all() const { return m_configs; }

    /// Until then the list can't be changed.
    bool isLoaded() const { return m_loaded == SecretOutcome::done; }

    /// Reads the endpoints where the settings tell that there are any.
    void loadAtLaunch();

    /// Reads them unless that is done or under way.
    void load() { read(false); }

    /// The same for a person who wants them: a prompt of the keyring that was dismissed comes up
    /// once more.
    void open() { read(true); }

    /// Replaces those with their ids and appends the others.
    void upsert(const std::vector<CustomAPIConfig> &configs, SecretDone done);

    void remove(const QUuid &id, SecretDone done);

    /// Takes the endpoint out of the list, while the keyring keeps it until `settle`.
    bool removeForNow(const QUuid &id);
    bool restore(const QUuid &id);

    /// False when nothing was removed for now under that id.
    bool settle(const QUuid &id, SecretDone done);
    void settleAll();

private:
    using Configs = std::vector<CustomAPIConfig>;

    struct Removal {
        TakenOut<CustomAPIConfig> taken;
        int writes; ///< how many there were before it: none of them has written it
    };

    void read(bool isWanted);
    void take(Configs loaded);
    void edit(const std::function<void(Configs &)> &change, SecretDone done);
    void write(SecretDone done);
    void written(int write);

    UserDefaults &m_defaults;
    Keychain &m_keychain;
    SecretQueue &m_queue;
    PendingSecrets &m_pending;
    RunLoop &m_runLoop;
    Told m_told;
    Configs m_configs;
    std::map<QUuid, Removal> m_removals; ///< that can still be taken back
    bool m_isLoading = false;
    SecretOutcome m_loaded = SecretOutcome::done; ///< what became of the loading
    int m_writes = 0;
    WorkOwner m_owner;
};

} // namespace zeph
