// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/AccessibilityBus.h"

#include "adapters/bus/DBusCalls.h"
#include "adapters/bus/HungBuses.h"
#include "base/Log.h"

#include <atomic>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kLauncherName = u"org.a11y.Bus"_s; // its interface has the same name
const QString kLauncherPath = u"/org/a11y/bus"_s;

constexpr std::chrono::seconds kBusPatience{2};

/// A connection is never closed, but used again: to close one while calls come in uses memory in
/// Qt 6.4 that was given back. Without subscriptions nothing comes in over it.
QDBusConnection connectionTo(const QString &address) {
    static std::atomic<int> lostConnections = 0;
    const auto connect = [&address] {
        return QDBusConnection::connectToBus(
            address, u"zeph-accessibility-%1-%2"_s.arg(lostConnections).arg(address));
    };
    QDBusConnection connection = connect();
    if (connection.isConnected()) {
        return connection;
    }
    ++lostConnections; // the bus itself closed it
    return connect();
}

} // namespace

AccessibilityBus::AccessibilityBus(const QDBusConnection &sessionBus, Background background,
                                   std::function<void()> changed)
    : m_background(std::move(background)),
      m_changed(std::move(changed)),
      m_launcher(sessionBus, kLauncherName, [this] { ownerChanged(); }) {}

AccessibilityBus::~AccessibilityBus() = default;

const QDBusConnection *AccessibilityBus::connection() const {
    return m_connection ? &*m_connection : nullptr;
}

void AccessibilityBus::ownerChanged() {
    take(std::nullopt);
    m_launcher.ask(kLauncherPath, kLauncherName, u"GetAddress"_s, {}, busDefaultTimeout,
                   [this](const QDBusMessage &answer) {
                       if (answer.type() == QDBusMessage::ReplyMessage &&
                           answer.signature() == u"s"_s) {
                           connect(answer.arguments().constFirst().toString());
                       }
                   });
}

/// To connect waits for the bus, so that the main thread does not do it.
void AccessibilityBus::connect(const QString &address) {
    const auto open = [address]() -> std::optional<QDBusConnection> {
        // One that hangs would hold up every other bus of the process.
        if (findHungBuses({address.toUtf8()}, kBusPatience).front()) {
            return std::nullopt;
        }
        const QDBusConnection connection = connectionTo(address);
        return connection.isConnected() ? std::optional(connection) : std::nullopt;
    };
    m_background.run(m_owner, open, [this](const std::optional<QDBusConnection> &connection) {
        if (!connection) {
            qCInfo(logSystem, "the accessibility bus can't be reached");
        }
        take(connection);
    });
}

void AccessibilityBus::take(const std::optional<QDBusConnection> &connection) {
    if (m_connection || connection) {
        m_connection = connection;
        m_changed();
    }
}

} // namespace zeph
