// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/plugin/PluginFile.h"
#include "ports/SecureStore.h"

#include <QString>

#include <memory>
#include <mutex>

namespace zeph {

class CancellableStore;

/// The store of the session's secret service, loaded as a plug-in by the first secret: it and the
/// libraries behind it would hold up the start, and cost memory where there are no secrets.
/// Callable from any thread, but from the main thread only where a wait does no harm. Without the
/// plug-in nothing is available; the next secret tries anew.
class PluggedSecretStore : public SecureStore {
public:
    explicit PluggedSecretStore(const QString &pluginPath = installedPlugin());
    ~PluggedSecretStore() override;

    /// See `PluginFile::installed`.
    static QString installedPlugin();

    SecretOutcome add(const QString &service, const QString &account,
                      const QByteArray &data) override;
    SecretAnswer<std::optional<QByteArray>> copy(const QString &service,
                                                 const QString &account) override;
    SecretAnswer<std::vector<SecureItem>> copyAll(const QString &service) override;
    SecretOutcome remove(const QString &service, const QString &account) override;
    void askAgain() override;

    /// Ends every wait at once, a prompt that stands open included; from now on nothing is
    /// available. For the end of the process. Any thread.
    void cancelAll();

private:
    SecureStore *loaded();

    std::mutex m_mutex; // of what follows; never held across a wait for the service
    PluginFile m_plugin;
    bool m_isCancelled = false;
    bool m_isComplained = false; // that there is no plug-in
    std::unique_ptr<CancellableStore> m_store;
};

} // namespace zeph
