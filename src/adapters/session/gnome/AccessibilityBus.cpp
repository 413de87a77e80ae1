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

QString nextConnectionName() {
    static std::atomic<int> count = 0;
    return u"zeph-accessibility-%1"_s.arg(++count);
}

} // namespace

/// Ends with whoever holds it, on whatever thread.
struct AccessibilityBus::Connection {
    explicit Connection(const QString &address)
        : name(nextConnectionName()), bus(QDBusConnection::connectToBus(address, name)) {}
    ~Connection() { QDBusConnection::disconnectFromBus(name); }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    QString name;
    QDBusConnection bus;
};

AccessibilityBus::AccessibilityBus(const QDBusConnection &sessionBus, Background background,
                                   std::function<void()> changed)
    : m_background(std::move(background)),
      m_changed(std::move(changed)),
      m_launcher(sessionBus, kLauncherName, [this] { ownerChanged(); }) {}

AccessibilityBus::~AccessibilityBus() = default;

const QDBusConnection *AccessibilityBus::connection() const {
    return m_connection ? &m_connection->bus : nullptr;
}

void AccessibilityBus::ownerChanged() {
    take(nullptr);
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
    const auto open = [address]() -> std::shared_ptr<Connection> {
        // One that hangs would hold up every other bus of the process.
        if (findHungBuses({address.toUtf8()}, kBusPatience).front()) {
            return nullptr;
        }
        auto connection = std::make_shared<Connection>(address);
        return connection->bus.isConnected() ? connection : nullptr;
    };
    m_background.run(m_owner, open, [this](std::shared_ptr<Connection> connection) {
        if (!connection) {
            qCInfo(logSystem, "the accessibility bus can't be reached");
        }
        take(std::move(connection));
    });
}

void AccessibilityBus::take(std::shared_ptr<Connection> connection) {
    if (m_connection != connection) {
        // Whoever uses the former one hears of its end before it ends.
        const auto former = std::exchange(m_connection, std::move(connection));
        m_changed();
    }
}

} // namespace zeph
