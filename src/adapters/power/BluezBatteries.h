// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/ObjectMirror.h"
#include "ports/Accessories.h"

namespace zeph {

/// The charge of connected Bluetooth devices after BlueZ, by subscription. Main thread only.
class BluezBatteries {
public:
    /// `bus` is the system bus. Nothing is asked before `start`.
    explicit BluezBatteries(QDBusConnection bus);

    void start();

    std::vector<AccessoryCharge> accessories() const;

    /// False from the start until it is known whether the daemon is there and what it knows.
    bool isSettled() const { return m_mirror && m_mirror->isSettled(); }

    /// `handler` runs after a change of what is told here; it must not end this.
    [[nodiscard]] Subscription onChange(std::function<void()> handler) {
        return m_changed.subscribe(std::move(handler));
    }

private:
    void readEverything();
    void interfacesAdded(const QDBusMessage &signal);
    void interfacesRemoved(const QDBusMessage &signal);

    QDBusConnection m_bus;
    ChangePublisher m_changed;
    std::unique_ptr<ObjectMirror> m_mirror; // from the start
    Subscription m_mirrorChanges;
};

} // namespace zeph
