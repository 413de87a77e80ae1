// SPDX-License-Identifier: MIT
#include "adapters/power/SysfsPower.h"

#include "adapters/power/PowerSupplyTree.h"
#include "adapters/power/SysfsBattery.h"
#include "base/Background.h"

namespace zeph {

SysfsPower::SysfsPower(QString root, const Background &background, std::function<void()> arrived)
    : m_root(std::move(root)), m_background(background), m_arrived(std::move(arrived)) {}

void SysfsPower::refresh() {
    if (m_owner.isBusy()) {
        return;
    }
    const auto read = [root = m_root]() -> std::optional<BatteryReading> {
        const auto supplies = readMachineSupplies(root);
        return supplies ? std::optional(batteryReading(*supplies)) : std::nullopt;
    };
    m_background.run(m_owner, read,
                     [this](const std::optional<BatteryReading> &reading) { take(reading); });
}

void SysfsPower::forget() {
    m_reading.reset();
    m_hasArrived = false;
}

void SysfsPower::take(const std::optional<BatteryReading> &reading) {
    m_reading = reading;
    m_hasArrived = true;
    m_arrived();
}

} // namespace zeph
