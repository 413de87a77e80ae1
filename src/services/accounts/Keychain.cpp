// SPDX-License-Identifier: MIT
#include "services/accounts/Keychain.h"

#include "base/Log.h"
#include "ports/UserDefaults.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto currentService = u"com.tavi.integrations"_s;
const auto legacyService = u"com.zeph.integrations"_s;
const auto serviceMigratedKey = u"tavi.keychain.serviceMigrated"_s;

/// Absent for bytes that are no UTF-8. Nothing is dropped, a byte order mark included.
std::optional<QString> decoded(const QByteArray &bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

SecretOutcome logged(SecretOutcome outcome, const char *operation) {
    if (outcome != SecretOutcome::done) {
        qCInfo(logAccounts, "the keyring %s: a secret was not %s",
               outcome == SecretOutcome::refused ? "refused" : "is not available", operation);
    }
    return outcome;
}

} // namespace

Keychain::Keychain(SecureStore &store, UserDefaults &defaults)
    : m_store(store), m_defaults(defaults) {}

SecretAnswer<std::optional<QString>> Keychain::get(const QString &account) {
    if (auto known = cached(account)) {
        return {SecretOutcome::done, std::move(known)};
    }
    const quint64 before = changes();
    migrateLegacyServiceIfNeeded();
    for (const QString &service : {currentService, legacyService}) {
        const auto answer = m_store.copy(service, account);
        if (!answer.isDone()) {
            return {logged(answer.outcome, "read")};
        }
        auto value = answer.value ? decoded(*answer.value) : std::nullopt;
        if (!value) {
            continue;
        }
        if (service == legacyService) {
            moveOver(*value, account, before);
        }
        // A secret that was replaced while the old one was being read must not come back.
        const std::lock_guard guard(m_lock);
        if (m_changes == before) {
            m_cache.insert(account, *value);
        }
        return {SecretOutcome::done, std::move(value)};
    }
    return {SecretOutcome::done};
}

/// Moves an entry of the earlier service name, unless something was written since `before`. While
/// a write is under way it is left to a later read: the entry may be the one that goes.
void Keychain::moveOver(const QString &value, const QString &account, quint64 before) {
    const std::unique_lock guard(m_writing, std::try_to_lock);
    if (guard.owns_lock() && changes() == before) {
        keep(value, account);
    }
}

SecretOutcome Keychain::set(const std::optional<QString> &value, const QString &account) {
    migrateLegacyServiceIfNeeded();
    const std::lock_guard guard(m_writing);
    if (value && !value->isEmpty()) {
        return keep(*value, account);
    }
    // A read that began before the removal, or during it, may have found what is removed.
    remember(account, std::nullopt);
    const auto outcome = remove(account);
    remember(account, std::nullopt);
    return logged(outcome, "erased");
}

SecretOutcome Keychain::keep(const QString &value, const QString &account) {
    remember(account, value);
    // The old one goes only when the new one is there.
    const auto outcome = m_store.add(currentService, account, value.toUtf8());
    if (outcome == SecretOutcome::done) {
        m_store.remove(legacyService, account);
    }
    return logged(outcome, "kept");
}

void Keychain::migrateLegacyServiceIfNeeded() {
    const std::lock_guard guard(m_migration);
    if (m_defaults.boolean(serviceMigratedKey)) {
        return;
    }
    for (const SecureItem &item : m_store.copyAll(legacyService).value) {
        const auto text = item.data ? decoded(*item.data) : std::nullopt;
        if (!item.account || !text) {
            continue;
        }
        if (m_store.add(currentService, *item.account, text->toUtf8()) != SecretOutcome::done) {
            break; // `get` finds the rest where it is
        }
        m_store.remove(legacyService, *item.account);
    }
    if (!m_isClosed) {
        m_defaults.set(serviceMigratedKey, true);
    }
}

SecretOutcome Keychain::remove(const QString &account) {
    const auto outcome = m_store.remove(currentService, account);
    return outcome == SecretOutcome::done ? m_store.remove(legacyService, account) : outcome;
}

std::optional<QString> Keychain::cached(const QString &account) const {
    const std::lock_guard guard(m_lock);
    const auto found = m_cache.constFind(account);
    return found == m_cache.constEnd() ? std::nullopt : std::optional(*found);
}

void Keychain::remember(const QString &account, const std::optional<QString> &value) {
    const std::lock_guard guard(m_lock);
    ++m_changes;
    if (value && !value->isEmpty()) {
        m_cache.insert(account, *value);
    } else {
        m_cache.remove(account);
    }
}

quint64 Keychain::changes() const {
    const std::lock_guard guard(m_lock);
    return m_changes;
}

} // namespace zeph
