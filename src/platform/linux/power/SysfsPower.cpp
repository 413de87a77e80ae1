// SPDX-License-Identifier: MIT
#include "platform/linux/power/SysfsPower.h"

#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"
#include "platform/linux/power/PowerSupplyTree.h"
#include "platform/linux/power/SysfsBattery.h"

namespace zeph {

SysfsPower::SysfsPower(QString root, TaskExecutor &executor, RunLoop &runLoop,
                       std::function<void()> arrived)
    : m_root(std::move(root)),
      m_executor(executor),
      m_runLoop(runLoop),
      m_arrived(std::move(arrived)),
      m_self(std::make_shared<SysfsPower *>(this)) {}

void SysfsPower::refresh() {
    if (m_isReading) {
        return;
    }
    m_isReading = true;
    const std::weak_ptr<SysfsPower *> weakSelf = m_self;
    m_executor.run([root = m_root, &runLoop = m_runLoop, weakSelf] {
        std::optional<BatteryReading> reading;
        if (const auto supplies = readMachineSupplies(root)) {
            reading = batteryReading(*supplies);
        }
        runLoop.post([reading, weakSelf] {
            if (const auto self = weakSelf.lock()) {
                (*self)->take(reading);
            }
        });
    });
}

void SysfsPower::forget() {
    m_reading.reset();
    m_hasArrived = false;
}

void SysfsPower::take(const std::optional<BatteryReading> &reading) {
    m_isReading = false;
    m_reading = reading;
    m_hasArrived = true;
    m_arrived();
}

} // namespace zeph
