// SPDX-License-Identifier: MIT
#include "services/accounts/IntegrationsStore.h"

#include "base/Blanks.h"
#include "base/Console.h"
#include "base/DamagedName.h"
#include "base/NotificationCenter.h"
#include "ports/RunLoop.h"
#include "ports/UserDefaults.h"
#include "services/accounts/AccountCoding.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/Keychain.h"
#include "services/accounts/LegacyAccounts.h"
#include "services/accounts/Providers.h"

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

template <typename Record>
auto hasId(const QUuid &id) {
    return [id](const Record &record) { return record.id == id; };
}

/// Keeps the endpoints under the first name that holds nothing else. What is there already is
/// written once more, since the keychain may only remember it.
SecretOutcome keepDamaged(Keychain &keychain, const QString &endpoints) {
    auto outcome = SecretOutcome::done;
    const QString name = unusedDamagedName(endpointsAccount(), [&](const QString &taken) {
        const auto kept = keychain.get(taken);
        outcome = kept.outcome;
        return kept.value && kept.value != endpoints;
    });
    return outcome == SecretOutcome::done ? keychain.set(endpoints, name) : outcome;
}

/// What can't be understood is kept under another name, for whoever can mend it.
SecretOutcome readCustomAPIs(Keychain &keychain, std::vector<CustomAPIConfig> &read) {
    const auto text = keychain.get(endpointsAccount());
    if (!text.value) {
        return text.outcome;
    }
    auto configs = coding::customAPIs(text.value->toUtf8());
    if (configs) {
        read = std::move(*configs);
        return SecretOutcome::done;
    }
    printLine(u"[Zeph] the custom endpoints in the keyring can't be read"_s);
    return keepDamaged(keychain, *text.value);
}

} // namespace

IntegrationsStore::IntegrationsStore(UserDefaults &defaults, Keychain &keychain,
                                     NotificationCenter &notifications, RunLoop &runLoop,
                                     TaskExecutor &executor)
    : m_defaults(defaults),
      m_keychain(keychain),
      m_notifications(notifications),
      m_runLoop(runLoop),
      m_queue(runLoop, executor),
      m_pending(PendingSecrets::read(defaults)),
      m_secrets(defaults, keychain, m_queue, m_pending),
      m_quoteEnabled(defaults.get<bool>(quoteEnabledKey).value_or(true)) {
    readConnections();
    if (defaults.boolean(endpointsExistKey())) {
        m_loaded = SecretOutcome::refused;
        loadCustomAPIs();
    }
    if (m_areConnectionsRead) {
        migrateLegacyConnectionsIfNeeded();
        m_secrets.resume(m_connections, [this] { tellReadiness(); });
        removeDeprecatedCursorConnectionsIfNeeded();
    }
}

/// A list that can't be read shows no account. What is stored is kept under another name, since
/// the next change of the accounts replaces it.
void IntegrationsStore::readConnections() {
    const auto json = m_defaults.get<QByteArray>(connectionsKey);
    auto read = json ? coding::connections(*json) : std::nullopt;
    if (read) {
        m_connections = std::move(*read);
    } else if (m_defaults.contains(connectionsKey)) {
        m_areConnectionsRead = false;
        printLine(u"[Zeph] the stored accounts can't be read; they are kept as "_s +
                  m_defaults.keepDamaged(connectionsKey));
    }
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

void IntegrationsStore::deleteConnection(const QUuid &id, SecretDone done) {
    objectWillChange.send();
    m_secrets.erase(id, std::move(done)); // noted before the list forgets whose secret it is
    std::erase_if(m_connections, hasId<IntegrationConnection>(id));
    saveConnections();
    notifyChanged();
}

void IntegrationsStore::setSecret(const std::optional<QString> &value, const QUuid &id,
                                  SecretDone done) {
    objectWillChange.send();
    const QString secret = value.value_or(QString()).trimmed();
    if (secret.isEmpty()) {
        m_secrets.clear(id, std::move(done));
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
    m_secrets.keep(secret, id, [this, done = std::move(done)](SecretOutcome outcome) {
        tellReadiness();
        if (done) {
            done(outcome);
        }
    });
}

void IntegrationsStore::markReady(const QUuid &id) {
    m_secrets.markConnected(id);
    notifyChanged();
}

bool IntegrationsStore::hasSecret(const QUuid &id) const {
    return m_defaults.boolean(configuredKey(id));
}

bool IntegrationsStore::isReady(const IntegrationConnection &connection) const {
    const bool hasExtra = !withoutOuterBlanks(connection.extra.value_or(QString())).isEmpty();
    return hasSecret(connection.id) && (hasExtra || !providers::needsValue(connection.provider));
}

void IntegrationsStore::saveConnections() {
    m_defaults.set(connectionsKey, coding::json(m_connections));
}

// Custom endpoints

void IntegrationsStore::loadCustomAPIs() {
    if (m_loaded == SecretOutcome::done || std::exchange(m_isLoading, true)) {
        return;
    }
    const auto loaded = std::make_shared<CustomAPIs>();
    m_queue.run([&keychain = m_keychain, loaded] { return readCustomAPIs(keychain, *loaded); },
                [this, loaded](SecretOutcome outcome) {
                    m_isLoading = false;
                    m_loaded = outcome;
                    if (outcome == SecretOutcome::done) {
                        takeCustomAPIs(std::move(*loaded));
                    }
                });
}

void IntegrationsStore::takeCustomAPIs(CustomAPIs loaded) {
    const auto removed = std::erase_if(loaded, [this](const CustomAPIConfig &config) {
        return m_pending.endpoints.count(config.id) > 0;
    });
    objectWillChange.send();
    m_customAPIs = std::move(loaded);
    if (removed > 0) {
        saveCustomAPIs({});
        return;
    }
    m_pending.endpoints.clear();
    m_pending.save(m_defaults);
    if (!m_customAPIs.empty()) {
        post(notifications::zephCustomAPIsLoaded); // all else is being asked for since the launch
    }
}

void IntegrationsStore::upsertCustomAPI(const CustomAPIConfig &config, SecretDone done) {
    const auto edit = [this, &config](CustomAPIs &configs) {
        m_pending.endpoints.erase(config.id);
        const auto place =
            std::find_if(configs.begin(), configs.end(), hasId<CustomAPIConfig>(config.id));
        place == configs.end() ? configs.push_back(config) : void(*place = config);
    };
    editCustomAPIs(edit, std::move(done));
}

void IntegrationsStore::deleteCustomAPI(const QUuid &id, SecretDone done) {
    const auto edit = [this, &id](CustomAPIs &configs) {
        m_pending.endpoints.insert(id);
        std::erase_if(configs, hasId<CustomAPIConfig>(id));
    };
    editCustomAPIs(edit, std::move(done));
}

void IntegrationsStore::editCustomAPIs(const std::function<void(CustomAPIs &)> &edit,
                                       SecretDone done) {
    if (m_loaded != SecretOutcome::done) {
        // What is kept must not be overwritten by a list that lacks it.
        loadCustomAPIs();
        m_runLoop.post(m_owner.whileAlive([done = std::move(done), outcome = m_loaded] {
            if (done) {
                done(outcome);
            }
        }));
        return;
    }
    objectWillChange.send();
    edit(m_customAPIs);
    m_pending.save(m_defaults);
    saveCustomAPIs(std::move(done));
}

void IntegrationsStore::saveCustomAPIs(SecretDone done) {
    if (!m_customAPIs.empty()) {
        m_defaults.set(endpointsExistKey(), true);
    }
    const auto text = QString::fromUtf8(coding::json(m_customAPIs));
    m_queue.run([&keychain = m_keychain, text] { return keychain.set(text, endpointsAccount()); },
                [this, write = ++m_customAPIWrites, done = std::move(done)](SecretOutcome outcome) {
                    if (outcome == SecretOutcome::done && write == m_customAPIWrites) {
                        m_defaults.set(endpointsExistKey(), !m_customAPIs.empty());
                        m_pending.endpoints.clear();
                        m_pending.save(m_defaults);
                    }
                    notifyChanged();
                    if (done) {
                        done(outcome);
                    }
                });
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
    post(notifications::zephIntegrationsChanged);
}

/// For when a secret has come to its account: whoever read its readiness before read it too early.
void IntegrationsStore::tellReadiness() {
    objectWillChange.send();
    notifyChanged();
}

void IntegrationsStore::post(const QString &name) {
    m_runLoop.post(m_owner.whileAlive([this, name] { m_notifications.post(name); }));
}

bool IntegrationsStore::finish(std::chrono::milliseconds patience) {
    const bool isDone = m_queue.finish(patience);
    m_keychain.close();
    return isDone;
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
    std::vector<IntegrationConnection> carriedOver;
    for (const LegacyAccount &account : accounts) {
        carriedOver.push_back(account.connection);
        if (account.hasSecret) {
            m_pending.moves[account.connection.provider] = account.connection.id;
        }
    }
    // Noted before the list is kept and moved after it, so that no end in between loses a key.
    m_pending.save(m_defaults);
    for (const LegacyAccount &account : accounts) {
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
        m_secrets.erase(connection.id, {});
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
