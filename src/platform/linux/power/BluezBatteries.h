// SPDX-License-Identifier: MIT
#pragma once

#include "core/ChangePublisher.h"
#include "platform/Accessories.h"

#include <QDBusConnection>
#include <QObject>

#include <map>
#include <memory>
#include <vector>

class QDBusMessage;
class QDBusServiceWatcher;

namespace zeph {

class SignalWatch;

/// The charge of connected Bluetooth devices after BlueZ, by subscription. Main thread only.
class BluezBatteries {
public:
    /// `bus` is the system bus. Nothing is asked before `start`.
    explicit BluezBatteries(QDBusConnection bus);
    ~BluezBatteries();
    BluezBatteries(const BluezBatteries &) = delete;
    BluezBatteries &operator=(const BluezBatteries &) = delete;

    void start();

    std::vector<AccessoryCharge> accessories() const;

    /// False from the start until it is known whether the daemon is there and what it knows.
    bool isSettled() const { return m_isStarted && !m_isAsked; }

    /// `handler` runs after a change of what is told here; it must not end this.
    [[nodiscard]] Subscription onChange(std::function<void()> handler);

private:
    void watch();
    void refresh();
    void answered(const QDBusMessage &answer);
    void interfacesAdded(const QDBusMessage &signal);
    void interfacesRemoved(const QDBusMessage &signal);
    void batteryChanged(const QDBusMessage &signal);

    QDBusConnection m_bus;
    QObject m_context;  // its end drops the call under way
    quint64 m_life = 0; // of the daemon; answers of an earlier one are dropped
    bool m_isStarted = false;
    bool m_isAsked = false;
    bool m_isStale = false; // something changed while the question was under way
    std::map<QString, AccessoryCharge> m_devices; // by object path
    ChangePublisher m_changed;
    std::unique_ptr<QDBusServiceWatcher> m_serviceWatch;
    std::vector<std::unique_ptr<SignalWatch>> m_watches;
};

} // namespace zeph
