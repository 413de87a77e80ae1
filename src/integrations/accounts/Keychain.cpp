// SPDX-License-Identifier: MIT
#include "integrations/accounts/Keychain.h"

#include "platform/SecureStore.h"
#include "platform/UserDefaults.h"

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

} // namespace

Keychain::Keychain(SecureStore &store, UserDefaults &defaults)
    : m_store(store), m_defaults(defaults) {}

std::optional<QString> Keychain::get(const QString &account) {
    if (auto known = cached(account)) {
        return known;
    }
    const quint64 before = changes();
    migrateLegacyServiceIfNeeded();
    auto value = read(account, currentService);
    if (!value) {
        value = read(account, legacyService);
        if (!value) {
            return std::nullopt;
        }
        if (changes() == before) {
            set(value, account); // remembers it too
        }
        return value;
    }
    // A secret that was replaced while the old one was being read must not come back.
    const std::lock_guard guard(m_lock);
    if (m_changes == before) {
        m_cache.insert(account, *value);
    }
    return value;
}

void Keychain::set(const std::optional<QString> &value, const QString &account) {
    migrateLegacyServiceIfNeeded();
    remove(account);
    remember(account, value);
    if (value && !value->isEmpty()) {
        write(*value, account, currentService);
    }
}

void Keychain::erase(const QString &account) {
    migrateLegacyServiceIfNeeded();
    remove(account);
    remember(account, std::nullopt);
}

void Keychain::migrateLegacyServiceIfNeeded() {
    const std::lock_guard guard(m_migration);
    if (m_defaults.boolean(serviceMigratedKey)) {
        return;
    }
    for (const SecureItem &item : m_store.copyAll(legacyService)) {
        const auto text = item.data ? decoded(*item.data) : std::nullopt;
        if (item.account && text) {
            write(*text, *item.account, currentService);
            m_store.remove(legacyService, *item.account);
        }
    }
    if (!m_isClosed) {
        m_defaults.set(serviceMigratedKey, true);
    }
}

std::optional<QString> Keychain::read(const QString &account, const QString &service) {
    const auto bytes = m_store.copy(service, account);
    return bytes ? decoded(*bytes) : std::nullopt;
}

void Keychain::write(const QString &text, const QString &account, const QString &service) {
    m_store.add(service, account, text.toUtf8());
}

/// There is no update in place: every write is a removal and an addition.
void Keychain::remove(const QString &account) {
    m_store.remove(currentService, account);
    m_store.remove(legacyService, account);
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
