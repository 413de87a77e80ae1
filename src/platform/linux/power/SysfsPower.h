// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/power/BatteryReading.h"

#include <QString>

#include <functional>
#include <memory>

namespace zeph {

class RunLoop;
class TaskExecutor;

/// The machine's batteries after the kernel. Reading them can wait for the firmware, so it is
/// done in a task; a reading that never ends holds up nothing but its own thread. Main thread
/// only; `runLoop` has to outlive the tasks of `executor`.
class SysfsPower {
public:
    /// `root` is /sys/class/power_supply; `arrived` is called on the main thread after each
    /// reading.
    SysfsPower(QString root, TaskExecutor &executor, RunLoop &runLoop,
               std::function<void()> arrived);

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
    TaskExecutor &m_executor;
    RunLoop &m_runLoop;
    std::function<void()> m_arrived;
    std::optional<BatteryReading> m_reading;
    bool m_isReading = false;
    bool m_hasArrived = false;
    std::shared_ptr<SysfsPower *> m_self; // tasks hold it weakly: they may end after this
};

} // namespace zeph
