// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"

#include <QHash>
#include <QString>

namespace zeph {

/// A process-local broadcast by name, without payload. Main thread only.
class NotificationCenter {
public:
    /// Calls `handler` for every post of `name` until the returned subscription ends.
    [[nodiscard]] Subscription observe(const QString &name, std::function<void()> handler);

    void post(const QString &name);

private:
    QHash<QString, std::shared_ptr<ChangePublisher>> m_publishers; // held during a post
};

/// The names that tie settings to the host.
namespace notifications {
inline const QString zephIntegrationsChanged = QStringLiteral("zeph.integrations.changed");
/// The custom endpoints came out of the keyring after the launch; nothing else has changed.
inline const QString zephCustomAPIsLoaded = QStringLiteral("zeph.integrations.customAPIsLoaded");
inline const QString zephPreferencesChanged = QStringLiteral("zeph.preferences.changed");
inline const QString zephDisplaySelectionChanged = QStringLiteral("zeph.display.changed");
inline const QString zephDesktopSelectionChanged = QStringLiteral("zeph.desktop.changed");
} // namespace notifications

} // namespace zeph
