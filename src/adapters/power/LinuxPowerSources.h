// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/power/SysfsPower.h"
#include "base/ChangePublisher.h"
#include "ports/PowerSources.h"

namespace zeph {

class UPowerSources;

/// UPower's word on the machine's batteries while it gives one, and else the kernel's. Main thread
/// only.
class LinuxPowerSources : public PowerSources {
public:
    /// `sysfsRoot` is /sys/class/power_supply. `upower` and `background` outlive this.
    LinuxPowerSources(UPowerSources &upower, const QString &sysfsRoot,
                      const Background &background);

    std::optional<std::vector<QVariantMap>> descriptions() const override;
    std::optional<qint64> gauge(const QString &key) const override;
    bool hasGauge() const override;
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

private:
    void upowerChanged();
    void sysfsArrived();
    void tellNews();
    const std::optional<BatteryReading> &latest() const;

    UPowerSources &m_upower;
    mutable SysfsPower m_sysfs; // asking for the descriptions makes the next reading due
    mutable std::optional<BatteryReading> m_latest;
    mutable std::optional<BatteryReading> m_told;
    mutable bool m_hadCharge = false; // a battery that never told its charge is no source yet
    bool m_isUPowerThere = false;
    bool m_isTelling = false;
    ChangePublisher m_changes;
    Subscription m_subscription; // last, so that it ends first
};

} // namespace zeph
