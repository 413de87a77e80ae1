// SPDX-License-Identifier: MIT
#include "services/accounts/IntegrationsStore.h"

#include "base/Blanks.h"
#include "base/Console.h"
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
      m_endpoints(defaults, keychain, m_queue, m_pending, runLoop,
                  {[this] { objectWillChange.send(); }, [this] { notifyChanged(); },
                   // all else is being asked for since the launch
                   [this] { post(notifications::zephCustomAPIsLoaded); }}),
      m_quoteEnabled(defaults.get<bool>(quoteEnabledKey).value_or(true)) {
    readConnections();
    m_endpoints.loadAtLaunch();
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
    const auto place = placeOf(m_connections, connection.id);
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
    m_removed.erase(id);
    m_secrets.erase(id, std::move(done)); // noted before the list forgets whose secret it is
    std::erase_if(m_connections, [&id](const auto &account) { return account.id == id; });
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
    const auto place = placeOf(m_connections, id);
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
    m_secrets.mark(id, true);
    notifyChanged();
}

bool IntegrationsStore::hasSecret(const QUuid &id) const {
    return m_defaults.boolean(configuredKey(id));
}

std::optional<bool> IntegrationsStore::isSecretKept(const QUuid &id) const {
    return m_defaults.get<bool>(secretKeptKey(id));
}

bool IntegrationsStore::mayKeepSecret(const QUuid &id) const {
    const bool isAccount =
        m_removed.count(id) > 0 || placeOf(m_connections, id) != m_connections.end();
    const bool isMoving = std::any_of(m_pending.moves.begin(), m_pending.moves.end(),
                                      [&id](const auto &move) { return move.second == id; });
    return !isAccount || isMoving || m_pending.erasures.count(id) > 0 ||
           (hasSecret(id) && isSecretKept(id).value_or(true));
}

bool IntegrationsStore::isReady(const IntegrationConnection &connection) const {
    const bool hasExtra = !withoutOuterBlanks(connection.extra.value_or(QString())).isEmpty();
    return hasSecret(connection.id) && (hasExtra || !providers::needsValue(connection.provider));
}

void IntegrationsStore::saveConnections() {
    m_defaults.set(connectionsKey, coding::json(m_connections));
}

// Custom endpoints

void IntegrationsStore::upsertCustomAPI(const CustomAPIConfig &config, SecretDone done) {
    m_endpoints.upsert({config}, std::move(done));
}

void IntegrationsStore::upsertCustomAPIs(const std::vector<CustomAPIConfig> &configs,
                                         SecretDone done) {
    m_endpoints.upsert(configs, std::move(done));
}

void IntegrationsStore::deleteCustomAPI(const QUuid &id, SecretDone done) {
    m_endpoints.remove(id, std::move(done));
}

// Removals that can be taken back

bool IntegrationsStore::removeForNow(const QUuid &id) {
    if (placeOf(m_connections, id) == m_connections.end()) {
        return m_endpoints.removeForNow(id);
    }
    objectWillChange.send();
    m_secrets.noteRemoval(id); // before the list forgets whose secret it is
    if (auto taken = takeOut(m_connections, id)) {
        m_removed.insert_or_assign(id, std::move(*taken));
    }
    saveConnections();
    notifyChanged();
    return true;
}

bool IntegrationsStore::restore(const QUuid &id) {
    auto removed = m_removed.extract(id);
    if (!removed) {
        return m_endpoints.restore(id);
    }
    objectWillChange.send();
    putBack(m_connections, std::move(removed.mapped()));
    saveConnections();
    m_secrets.forgetRemoval(id); // after the list knows again whose secret it is
    notifyChanged();
    return true;
}

void IntegrationsStore::settle(const QUuid &id, SecretDone done) {
    if (m_removed.erase(id) > 0) {
        m_secrets.erase(id, std::move(done));
    } else if (!m_endpoints.settle(id, done) && done) {
        m_runLoop.post(m_owner.whileAlive([done = std::move(done)] { done(SecretOutcome::done); }));
    }
}

IntegrationConnection IntegrationsStore::takeOver(const IntegrationConnection &account) {
    IntegrationConnection taken = account;
    const auto removed = m_removed.find(taken.id);
    if (removed != m_removed.end() && removed->second.record.provider == taken.provider) {
        restore(taken.id);
    }
    const auto here = placeOf(m_connections, taken.id);
    if (here != m_connections.end() && here->provider == taken.provider) {
        updateConnection(taken);
        return taken;
    }
    if (here != m_connections.end() || m_removed.count(taken.id) > 0) {
        taken.id = QUuid::createUuid(); // or its service would be asked with another one's key
    }
    objectWillChange.send();
    // First, since a deleted account leaves its mark behind.
    m_secrets.mark(taken.id, !providers::needsKey(taken.provider));
    m_connections.push_back(taken);
    saveConnections();
    notifyChanged();
    return taken;
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
    for (const auto &[id, taken] : std::exchange(m_removed, {})) {
        m_secrets.erase(id, {});
    }
    m_endpoints.settleAll();
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
            m_secrets.mark(account.connection.id, true);
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
