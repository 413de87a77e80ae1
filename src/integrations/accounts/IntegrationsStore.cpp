// SPDX-License-Identifier: MIT
#include "integrations/accounts/IntegrationsStore.h"

#include "core/NotificationCenter.h"
#include "core/values/Blanks.h"
#include "integrations/accounts/AccountCoding.h"
#include "integrations/accounts/AccountKeys.h"
#include "integrations/accounts/Keychain.h"
#include "integrations/accounts/LegacyAccounts.h"
#include "integrations/accounts/Providers.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto connectionsKey = u"zeph.integrations.connections"_s;
const auto quoteEnabledKey = u"zeph.integrations.quote.enabled"_s;
const auto migratedKey = u"zeph.integrations.v2"_s;
const auto removedCursorKey = u"zeph.integrations.removedCursor"_s;
const auto deprecatedProvider = u"cursor"_s;

std::vector<IntegrationConnection> storedConnections(const UserDefaults &defaults) {
    const auto json = defaults.get<QByteArray>(connectionsKey);
    auto connections = json ? coding::connections(*json) : std::nullopt;
    return std::move(connections).value_or(std::vector<IntegrationConnection>());
}

template <typename Record>
auto hasId(const QUuid &id) {
    return [id](const Record &record) { return record.id == id; };
}

} // namespace

IntegrationsStore::IntegrationsStore(UserDefaults &defaults, Keychain &keychain,
                                     NotificationCenter &notifications, RunLoop &runLoop,
                                     TaskExecutor &executor)
    : m_defaults(defaults),
      m_keychain(keychain),
      m_notifications(notifications),
      m_runLoop(runLoop),
      m_secrets(defaults, keychain, runLoop, executor),
      m_alive(std::make_shared<bool>(true)),
      m_connections(storedConnections(defaults)),
      m_quoteEnabled(defaults.get<bool>(quoteEnabledKey).value_or(true)) {
    loadCustomAPIs();
    migrateLegacyConnectionsIfNeeded();
    m_secrets.resume(m_connections, [this] { tellReadiness(); });
    removeDeprecatedCursorConnectionsIfNeeded();
}

// Accounts

std::vector<IntegrationConnection> IntegrationsStore::connections(const QString &provider) const {
    std::vector<IntegrationConnection> found;
    std::copy_if(m_connections.begin(), m_connections.end(), std::back_inserter(found),
                 [&provider](const auto &connection) { return connection.provider == provider; });
    return found;
}

/// Names are not looked at, only counted: after a deletion a name may come twice.
QString IntegrationsStore::nextDefaultName(const QString &provider) const {
    const auto count = connections(provider).size();
    const QString name = providers::defaultName(provider);
    return count == 0 ? name : name + u' ' + QString::number(count + 1);
}

IntegrationConnection IntegrationsStore::addConnection(const QString &provider,
                                                       const std::optional<QString> &name,
                                                       const std::optional<QString> &extra) {
    const QString given = name.value_or(QString()).trimmed();
    IntegrationConnection added;
    added.id = QUuid::createUuid();
    added.provider = provider;
    added.name = given.isEmpty() ? nextDefaultName(provider) : given;
    added.extra = extra ? std::optional(extra->trimmed()) : std::nullopt;
    objectWillChange.send();
    m_connections.push_back(added);
    saveConnections();
    notifyChanged();
    return added;
}

void IntegrationsStore::updateConnection(const IntegrationConnection &connection) {
    if (replace(connection)) {
        notifyChanged();
    }
}

bool IntegrationsStore::replace(const IntegrationConnection &connection) {
    const auto place = std::find_if(m_connections.begin(), m_connections.end(),
                                    hasId<IntegrationConnection>(connection.id));
    if (place == m_connections.end()) {
        return false;
    }
    objectWillChange.send();
    *place = connection;
    saveConnections();
    return true;
}

void IntegrationsStore::deleteConnection(const QUuid &id) {
    objectWillChange.send();
    m_secrets.erase(id); // noted before the list forgets whose secret it is
    std::erase_if(m_connections, hasId<IntegrationConnection>(id));
    saveConnections();
    notifyChanged();
}

void IntegrationsStore::setSecret(const std::optional<QString> &value, const QUuid &id) {
    objectWillChange.send();
    const QString secret = value.value_or(QString()).trimmed();
    if (secret.isEmpty()) {
        m_secrets.clear(id);
        notifyChanged();
        return;
    }
    const auto place =
        std::find_if(m_connections.begin(), m_connections.end(), hasId<IntegrationConnection>(id));
    if (place != m_connections.end()) {
        IntegrationConnection enabled = *place;
        enabled.enabled = true;
        replace(enabled);
    }
    m_secrets.keep(secret, id, [this] { tellReadiness(); });
}

void IntegrationsStore::markReady(const QUuid &id) {
    m_secrets.markConnected(id);
    notifyChanged();
}

bool IntegrationsStore::hasSecret(const QUuid &id) const {
    return m_defaults.boolean(configuredKey(id));
}

bool IntegrationsStore::isReady(const IntegrationConnection &connection) const {
    const QString &provider = connection.provider;
    const bool needsExtra = providers::isKeyless(provider) || provider == "github"_L1 ||
                            provider == "plausible"_L1 || provider == "trustmrr"_L1;
    const bool hasExtra = !withoutOuterBlanks(connection.extra.value_or(QString())).isEmpty();
    return hasSecret(connection.id) && (hasExtra || !needsExtra);
}

void IntegrationsStore::saveConnections() {
    m_defaults.set(connectionsKey, coding::json(m_connections));
}

// Custom endpoints

void IntegrationsStore::loadCustomAPIs() {
    if (!m_defaults.boolean(endpointsExistKey())) {
        return;
    }
    m_areCustomAPIsLoaded = false;
    auto loaded = std::make_shared<CustomAPIs>(); // tasks are copied, so it is shared by two
    m_secrets.run(
        [&keychain = m_keychain, loaded] {
            const auto text = keychain.get(endpointsAccount());
            *loaded =
                (text ? coding::customAPIs(text->toUtf8()) : std::nullopt).value_or(CustomAPIs());
        },
        [this, loaded] { takeCustomAPIs(std::move(*loaded)); });
}

void IntegrationsStore::takeCustomAPIs(CustomAPIs loaded) {
    bool isEdited = !m_earlyEdits.empty();
    for (const QUuid &id : m_secrets.erasedEndpoints()) {
        isEdited |= std::erase_if(loaded, hasId<CustomAPIConfig>(id)) > 0;
    }
    for (const auto &edit : std::exchange(m_earlyEdits, {})) {
        edit(loaded);
    }
    objectWillChange.send();
    m_customAPIs = std::move(loaded);
    m_areCustomAPIsLoaded = true;
    if (isEdited) {
        saveCustomAPIs();
    } else if (!m_customAPIs.empty()) {
        // All else is being asked for since the launch.
        m_notifications.post(notifications::zephCustomAPIsLoaded);
    }
}

void IntegrationsStore::upsertCustomAPI(const CustomAPIConfig &config) {
    m_secrets.noteEndpointKept(config.id);
    editCustomAPIs([config](CustomAPIs &configs) {
        const auto place =
            std::find_if(configs.begin(), configs.end(), hasId<CustomAPIConfig>(config.id));
        place == configs.end() ? configs.push_back(config) : void(*place = config);
    });
}

void IntegrationsStore::deleteCustomAPI(const QUuid &id) {
    m_secrets.noteEndpointErased(id);
    editCustomAPIs(
        [id](CustomAPIs &configs) { std::erase_if(configs, hasId<CustomAPIConfig>(id)); });
}

void IntegrationsStore::editCustomAPIs(const std::function<void(CustomAPIs &)> &edit) {
    objectWillChange.send();
    edit(m_customAPIs);
    if (m_areCustomAPIsLoaded) {
        saveCustomAPIs();
    } else {
        // What is kept must not be overwritten by the little that is known yet.
        m_earlyEdits.push_back(edit);
        notifyChanged();
    }
}

void IntegrationsStore::saveCustomAPIs() {
    m_secrets.keepEndpoints(QString::fromUtf8(coding::json(m_customAPIs)), m_customAPIs.empty(),
                            notification());
}

// Quote

void IntegrationsStore::setQuoteEnabled(bool enabled) {
    objectWillChange.send();
    m_quoteEnabled = enabled;
    m_defaults.set(quoteEnabledKey, enabled);
    notifyChanged();
}

// Telling

void IntegrationsStore::notifyChanged() {
    m_runLoop.post(notification());
}

/// For when a secret has come to its account: whoever read its readiness before read it too early.
void IntegrationsStore::tellReadiness() {
    objectWillChange.send();
    m_notifications.post(notifications::zephIntegrationsChanged);
}

std::function<void()> IntegrationsStore::notification() {
    return [&center = m_notifications, alive = std::weak_ptr<bool>(m_alive)] {
        if (!alive.expired()) {
            center.post(notifications::zephIntegrationsChanged);
        }
    };
}

// Earlier versions

void IntegrationsStore::migrateLegacyConnectionsIfNeeded() {
    if (m_defaults.boolean(migratedKey)) {
        return;
    }
    if (!m_connections.empty()) {
        m_defaults.set(migratedKey, true);
        return;
    }
    const auto accounts = legacyAccounts(m_defaults);
    // Noted before the list is kept and moved after it, so that no end in between loses a key.
    m_secrets.noteMoves(accounts);
    std::vector<IntegrationConnection> carriedOver;
    for (const LegacyAccount &account : accounts) {
        carriedOver.push_back(account.connection);
        if (account.needsNoSecret) {
            m_secrets.markConnected(account.connection.id);
        }
    }
    objectWillChange.send();
    m_connections = std::move(carriedOver);
    saveConnections();
    m_defaults.set(migratedKey, true);
    notifyChanged();
}

void IntegrationsStore::removeDeprecatedCursorConnectionsIfNeeded() {
    if (m_defaults.boolean(removedCursorKey)) {
        return;
    }
    const auto deprecated = connections(deprecatedProvider);
    for (const IntegrationConnection &connection : deprecated) {
        m_secrets.erase(connection.id);
        m_defaults.remove(configuredKey(connection.id));
    }
    if (!deprecated.empty()) {
        objectWillChange.send();
        std::erase_if(m_connections, [](const auto &connection) {
            return connection.provider == deprecatedProvider;
        });
        saveConnections();
        notifyChanged();
    }
    m_defaults.set(removedCursorKey, true);
}

} // namespace zeph
