// SPDX-License-Identifier: MIT
#pragma once

#include "core/ChangePublisher.h"
#include "platform/PowerSources.h"
#include "platform/linux/power/SysfsPower.h"

namespace zeph {

class UPowerSources;

/// UPower's word on the machine's batteries while it gives one, and else the kernel's. Main thread
/// only.
class LinuxPowerSources : public PowerSources {
public:
    /// `sysfsRoot` is /sys/class/power_supply. `runLoop` has to outlive the tasks of `executor`.
    LinuxPowerSources(UPowerSources &upower, const QString &sysfsRoot, TaskExecutor &executor,
                      RunLoop &runLoop);

    std::optional<std::vector<QVariantMap>> descriptions() const override;
    std::optional<qint64> gauge(const QString &key) const override;
    bool hasGauge() const override;
    void setSourcesHandler(std::function<void()> handler) override;

private:
    void upowerChanged();
    void sysfsArrived();
    void tellNews();
    const std::optional<BatteryReading> &latest() const;

    UPowerSources &m_upower;
    mutable SysfsPower m_sysfs; // asking for the descriptions makes the next reading due
    mutable std::optional<BatteryReading> m_latest;
    mutable std::optional<BatteryReading> m_told;
    bool m_isUPowerThere = false;
    bool m_isTelling = false;
    std::function<void()> m_handler;
    Subscription m_subscription; // last, so that it ends first
};

} // namespace zeph
