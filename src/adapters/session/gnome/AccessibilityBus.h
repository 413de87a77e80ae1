// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "base/Background.h"

#include <QDBusConnection>

#include <functional>
#include <optional>

namespace zeph {

/// The bus by which programs tell assistive tools what happens in their windows, where the desktop
/// has started it. Neither the bus nor what it is for is ever switched on here. Main thread only.
class AccessibilityBus {
public:
    /// `changed` runs when there is a connection, and when there is none any more.
    AccessibilityBus(const QDBusConnection &sessionBus, Background background,
                     std::function<void()> changed);
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus &) = delete;
    AccessibilityBus &operator=(const AccessibilityBus &) = delete;

    /// Null while there is none.
    const QDBusConnection *connection() const;

private:
    void ownerChanged();
    void connect(const QString &address);
    void take(const std::optional<QDBusConnection> &connection);

    Background m_background;
    std::function<void()> m_changed;
    std::optional<QDBusConnection> m_connection;
    WorkOwner m_owner;
    BusService m_launcher; // last, since it calls back
};

} // namespace zeph
