// SPDX-License-Identifier: MIT
#include "adapters/secret/PluggedSecretStore.h"

#include "adapters/secret/SecretPlugin.h"
#include "base/Log.h"

#include <dlfcn.h>

#include <utility>

namespace zeph {

PluggedSecretStore::PluggedSecretStore(const QString &pluginPath) : m_plugin(pluginPath) {}

PluggedSecretStore::~PluggedSecretStore() = default;

QString PluggedSecretStore::installedPlugin() {
    return PluginFile::installed(QStringLiteral("zeph-secret.so"));
}

SecretOutcome PluggedSecretStore::add(const QString &service, const QString &account,
                                      const QByteArray &data) {
    SecureStore *const store = loaded();
    return store == nullptr ? SecretOutcome::unavailable : store->add(service, account, data);
}

SecretAnswer<std::optional<QByteArray>> PluggedSecretStore::copy(const QString &service,
                                                                 const QString &account) {
    SecureStore *const store = loaded();
    return store == nullptr ? SecretAnswer<std::optional<QByteArray>>{}
                            : store->copy(service, account);
}

SecretAnswer<std::vector<SecureItem>> PluggedSecretStore::copyAll(const QString &service) {
    SecureStore *const store = loaded();
    return store == nullptr ? SecretAnswer<std::vector<SecureItem>>{} : store->copyAll(service);
}

SecretOutcome PluggedSecretStore::remove(const QString &service, const QString &account) {
    SecureStore *const store = loaded();
    return store == nullptr ? SecretOutcome::unavailable : store->remove(service, account);
}

void PluggedSecretStore::askAgain() {
    if (SecureStore *const store = loaded()) {
        store->askAgain();
    }
}

void PluggedSecretStore::cancelAll() {
    const std::scoped_lock lock(m_mutex);
    m_isCancelled = true;
    if (m_store) {
        m_store->cancelAll();
    }
}

/// Null when there is no plug-in, or nothing is to be asked any more.
SecureStore *PluggedSecretStore::loaded() {
    const std::scoped_lock lock(m_mutex);
    if (!m_store && !m_isCancelled) {
        const auto make = m_plugin.function<MakeSecretStore>("zephMakeSecretStore");
        if (make == nullptr) {
            if (!std::exchange(m_isComplained, true)) {
                const char *const reason = dlerror();
                qCWarning(logSystem) << "the plug-in of the keyring could not be loaded:"
                                     << (reason == nullptr ? "it is another version's" : reason);
            }
            return nullptr;
        }
        m_store.reset(make());
    }
    return m_store.get();
}

} // namespace zeph
