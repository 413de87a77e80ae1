// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/power/BatteryReading.h"
#include "base/WorkOwner.h"

#include <QString>

#include <functional>

namespace zeph {

class Background;

/// The machine's batteries after the kernel. Reading them can wait for the firmware, so it is
/// done in a task; a reading that never ends holds up nothing but its own thread. Main thread
/// only.
class SysfsPower {
public:
    /// `root` is /sys/class/power_supply; `arrived` is called on the main thread after each
    /// reading.
    SysfsPower(QString root, const Background &background, std::function<void()> arrived);

    /// Starts a reading unless one is under way.
    void refresh();

    /// Drops what was read, for the time in which somebody else's word counts.
    void forget();

    bool hasArrived() const { return m_hasArrived; }

    /// The last reading; absent before it has arrived and on a system that tells nothing of power.
    const std::optional<BatteryReading> &reading() const { return m_reading; }

private:
    void take(const std::optional<BatteryReading> &reading);

    QString m_root;
    const Background &m_background;
    std::function<void()> m_arrived;
    std::optional<BatteryReading> m_reading;
    bool m_hasArrived = false;
    WorkOwner m_owner{1};
};

} // namespace zeph
