// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/ObjectMirror.h"
#include "adapters/power/BatteryReading.h"
#include "ports/Accessories.h"

namespace zeph {

/// What UPower knows, by subscription: every object is asked once and then followed. A daemon that
/// comes, goes or starts anew is followed too; it is never started by asking. Main thread only.
class UPowerSources {
public:
    /// `bus` is the system bus. One that isn't connected is a machine without the daemon.
    explicit UPowerSources(const QDBusConnection &bus);

    /// The machine's own batteries; absent while the daemon is away or has not answered.
    std::optional<BatteryReading> battery() const;

    /// The peripherals that have a charge.
    std::vector<AccessoryCharge> accessories() const;

    /// False until it is known whether the daemon is there and what it knows.
    bool isSettled() const { return m_mirror.isSettled(); }

    /// `handler` runs after a change of what is told here; it must not end this.
    [[nodiscard]] Subscription onChange(std::function<void()> handler) {
        return m_mirror.onChange(std::move(handler));
    }

private:
    void readEverything();
    std::vector<QVariantMap> devices() const;

    ObjectMirror m_mirror;
};

} // namespace zeph
