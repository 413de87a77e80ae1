// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/TakenOut.h"
#include "base/WorkOwner.h"
#include "services/accounts/AccountSecrets.h"
#include "services/accounts/CustomAPIConfig.h"
#include "services/accounts/EndpointList.h"
#include "services/accounts/IntegrationConnection.h"
#include "services/accounts/PendingSecrets.h"
#include "services/accounts/SecretQueue.h"

#include <chrono>
#include <map>
#include <optional>
#include <vector>

namespace zeph {

class Keychain;
class NotificationCenter;
class RunLoop;
class UserDefaults;

/// The user's accounts and custom endpoints, and the switch of the daily quote. What is no secret
/// is written through to the defaults. Secrets go to the keychain in tasks, one after the other,
/// since it may wait for a password; `notifications::zephIntegrationsChanged` is posted when a
/// change is complete, a new secret included, and never within the call. What was refused or cut
/// off loses nothing: a secret stays what it was, and a removal is made up for at the next launch.
/// Main thread only, but for `hasSecret` and `isReady`. Everything handed in outlives the
/// executor's tasks.
class IntegrationsStore {
public:
    /// Reads the settings and carries those of earlier versions over, once. Custom endpoints lie
    /// in the keychain whole and so come in later, told of by `zephCustomAPIsLoaded`, and only the
    /// settings tell whether there are any.
    IntegrationsStore(UserDefaults &defaults, Keychain &keychain, NotificationCenter &notifications,
                      RunLoop &runLoop, TaskExecutor &executor);

    /// Fires before every change of what is told below.
    ChangePublisher objectWillChange;

    const std::vector<IntegrationConnection> &connections() const { return m_connections; }
    const std::vector<CustomAPIConfig> &customAPIs() const { return m_endpoints.all(); }
    bool quoteEnabled() const { return m_quoteEnabled; }

    /// The accounts of one service, in stored order.
    std::vector<IntegrationConnection> connections(const QString &provider) const;

    /// Appends a new account. Without a name it is called after the service and the number of
    /// its accounts.
    IntegrationConnection addConnection(const QString &provider, const std::optional<QString> &name,
                                        const std::optional<QString> &extra);

    /// Replaces the account with that id; one that is not there is not added.
    void updateConnection(const IntegrationConnection &connection);

    /// Removes the account at once, and its secret as soon as the keyring lets it.
    void deleteConnection(const QUuid &id, SecretDone done = {});

    /// Removes an account or an endpoint from its list, and leaves what the keyring has of it until
    /// `settle` or the end of the program. A process that is cut off in between leaves no secret
    /// of it: the next launch erases it. False when there is none with that id.
    bool removeForNow(const QUuid &id);

    /// Brings it back whole, where it stood. False when there is nothing to bring back.
    bool restore(const QUuid &id);

    /// The removal stands: what the keyring has of it is erased.
    void settle(const QUuid &id, SecretDone done = {});

    /// Whether the list of the endpoints is known; until then it can't be changed.
    bool areCustomAPIsLoaded() const { return m_endpoints.isLoaded(); }

    /// Takes over an account from elsewhere, which comes without its secret: in place of the one
    /// with that id, which keeps its secret, or appended, and then ready only where the service
    /// needs no key. Under an id that stands for another service here it gets a fresh one. Returns
    /// what is there now.
    IntegrationConnection takeOver(const IntegrationConnection &account);

    /// Keeps the secret of an account and enables the account, which is ready when the secret is
    /// in place. Nothing, or only white space, erases the secret and leaves the account enabled.
    /// A secret that the keyring does not take works until the program ends.
    void setSecret(const std::optional<QString> &value, const QUuid &id, SecretDone done = {});

    /// Marks an account that needs no secret as connected.
    void markReady(const QUuid &id);

    /// Reads the custom endpoints unless that is done or under way; it may have been refused.
    void loadCustomAPIs() { m_endpoints.load(); }

    /// The same for a person who wants them: a prompt of the keyring that was dismissed comes up
    /// once more.
    void openCustomAPIs() { m_endpoints.open(); }

    /// Replaces the endpoint with that id, or appends it. Until the endpoints are loaded the list
    /// stays as it is, and `done` is told why.
    void upsertCustomAPI(const CustomAPIConfig &config, SecretDone done = {});

    /// The same for several, which reach the keyring at once.
    void upsertCustomAPIs(const std::vector<CustomAPIConfig> &configs, SecretDone done = {});

    /// Removes it from the list; the same holds.
    void deleteCustomAPI(const QUuid &id, SecretDone done = {});

    void setQuoteEnabled(bool enabled);

    /// Whether the account was connected. Any thread; never asks the keychain.
    bool hasSecret(const QUuid &id) const;

    /// Whether the keyring was given a secret for the account; absent for an account that an
    /// earlier version connected. Never asks the keychain.
    std::optional<bool> isSecretKept(const QUuid &id) const;

    /// Whether the keyring may have something of the account or endpoint, one that was removed for
    /// now included. Never asks the keychain.
    bool mayKeepSecret(const QUuid &id) const;

    /// Whether the account has all that its service needs; it may be switched off all the same.
    /// Any thread; never asks the keychain.
    bool isReady(const IntegrationConnection &connection) const;

    /// Waits for the secrets that are on their way; false when that takes longer, and then the
    /// next launch makes up for them. For the end of the process.
    bool finish(std::chrono::milliseconds patience);

private:
    QString nextDefaultName(const QString &provider) const;
    bool replace(const IntegrationConnection &connection);
    void readConnections();
    void saveConnections();
    void notifyChanged();
    void tellReadiness();
    void post(const QString &name);

    void migrateLegacyConnectionsIfNeeded();
    void removeDeprecatedCursorConnectionsIfNeeded();

    UserDefaults &m_defaults;
    Keychain &m_keychain;
    NotificationCenter &m_notifications;
    RunLoop &m_runLoop;
    SecretQueue m_queue;
    PendingSecrets m_pending;
    AccountSecrets m_secrets;
    EndpointList m_endpoints;
    WorkOwner m_owner;
    std::vector<IntegrationConnection> m_connections;
    std::map<QUuid, TakenOut<IntegrationConnection>> m_removed; ///< that can still be taken back
    bool m_quoteEnabled;
    bool m_areConnectionsRead = true;
};

} // namespace zeph
