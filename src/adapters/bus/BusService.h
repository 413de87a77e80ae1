// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/SignalWatch.h"

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

/// A service by its name on a bus, from one owner of the name to the next. Nothing here waits for
/// the bus, nor starts the service. Main thread only.
class BusService {
public:
    /// A `bus` that isn't connected is one without the service. `ownerChanged` runs when an owner
    /// was found, has come or has gone, and once it is known that there is none.
    BusService(QDBusConnection bus, QString name, std::function<void()> ownerChanged);
    BusService(const BusService &) = delete;
    BusService &operator=(const BusService &) = delete;

    bool isThere() const { return !m_owner.isEmpty(); }

    /// Whether a message comes from the service.
    bool hasSent(const QDBusMessage &message) const {
        return isThere() && message.service() == m_owner;
    }

    /// False until it is known whether somebody owns the name.
    bool isSettled() const { return m_isSettled; }

    /// Follows a signal of whoever owns the name; `signal` names no service.
    void follow(BusSignal signal, SignalWatch::Handler handler);

    /// As `follow`, until the answered watch ends.
    std::unique_ptr<SignalWatch> watch(BusSignal signal, SignalWatch::Handler handler);

    /// Asks the owner, when there is one, and hands the answer, an error included, to `done`,
    /// unless that owner has gone by then.
    void ask(const QString &path, const QString &interface, const QString &method,
             const QVariantList &arguments, int timeoutMilliseconds,
             std::function<void(const QDBusMessage &answer)> done);

    /// Tells the owner, when there is one, something that it need not answer.
    void send(const QString &path, const QString &interface, const QString &method,
              const QVariantList &arguments) const;

private:
    QDBusMessage callTo(const QString &path, const QString &interface, const QString &method,
                        const QVariantList &arguments) const;
    void setOwner(const QString &owner);

    QDBusConnection m_bus;
    QString m_name;
    std::function<void()> m_ownerChanged;
    QString m_owner; // its own name on the bus
    quint64 m_life = 0;
    bool m_isSettled = false;
    std::vector<std::unique_ptr<SignalWatch>> m_watches;
    QObject m_context; // its end drops the calls under way
};

} // namespace zeph
