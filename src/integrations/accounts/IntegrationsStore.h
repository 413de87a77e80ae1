// SPDX-License-Identifier: MIT
#pragma once

#include "core/ChangePublisher.h"
#include "integrations/accounts/AccountSecrets.h"
#include "integrations/accounts/CustomAPIConfig.h"
#include "integrations/accounts/IntegrationConnection.h"

#include <chrono>
#include <functional>
#include <memory>
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
/// change is complete, a new secret included, and never within the call. Main thread only, but for
/// `hasSecret` and `isReady`. Everything handed in outlives the executor's tasks.
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
    const std::vector<CustomAPIConfig> &customAPIs() const { return m_customAPIs; }
    bool quoteEnabled() const { return m_quoteEnabled; }

    /// The accounts of one service, in stored order.
    std::vector<IntegrationConnection> connections(const QString &provider) const;

    /// Appends a new account. Without a name it is called after the service and the number of
    /// its accounts.
    IntegrationConnection addConnection(const QString &provider, const std::optional<QString> &name,
                                        const std::optional<QString> &extra);

    /// Replaces the account with that id; one that is not there is not added.
    void updateConnection(const IntegrationConnection &connection);

    /// Removes the account and its secret.
    void deleteConnection(const QUuid &id);

    /// Keeps the secret of an account and enables the account, which is ready when the secret is
    /// in place. Nothing, or only white space, erases the secret and leaves the account enabled.
    void setSecret(const std::optional<QString> &value, const QUuid &id);

    /// Marks an account that needs no secret as connected.
    void markReady(const QUuid &id);

    /// Replaces the endpoint with that id, or appends it.
    void upsertCustomAPI(const CustomAPIConfig &config);
    void deleteCustomAPI(const QUuid &id);

    void setQuoteEnabled(bool enabled);

    /// Whether the account was connected. Any thread; never asks the keychain.
    bool hasSecret(const QUuid &id) const;

    /// Whether the account has all that its service needs; it may be switched off all the same.
    /// Any thread; never asks the keychain.
    bool isReady(const IntegrationConnection &connection) const;

    /// Waits for the secrets that are on their way; false when that takes longer, and then the
    /// next launch makes up for them. For the end of the process.
    bool finish(std::chrono::milliseconds patience) { return m_secrets.finish(patience); }

private:
    using CustomAPIs = std::vector<CustomAPIConfig>;

    QString nextDefaultName(const QString &provider) const;
    bool replace(const IntegrationConnection &connection);
    void saveConnections();
    void loadCustomAPIs();
    void takeCustomAPIs(CustomAPIs loaded);
    void editCustomAPIs(const std::function<void(CustomAPIs &)> &edit);
    void saveCustomAPIs();
    void notifyChanged();
    void tellReadiness();
    std::function<void()> notification();

    void migrateLegacyConnectionsIfNeeded();
    void removeDeprecatedCursorConnectionsIfNeeded();

    UserDefaults &m_defaults;
    Keychain &m_keychain;
    NotificationCenter &m_notifications;
    RunLoop &m_runLoop;
    AccountSecrets m_secrets;
    std::shared_ptr<bool> m_alive; // lets what was posted see that the store is gone
    std::vector<IntegrationConnection> m_connections;
    CustomAPIs m_customAPIs;
    bool m_quoteEnabled;
    bool m_areCustomAPIsLoaded = true;
    std::vector<std::function<void(CustomAPIs &)>> m_earlyEdits; // made before they were loaded
};

} // namespace zeph
