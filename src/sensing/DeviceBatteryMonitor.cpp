// SPDX-License-Identifier: MIT
#include "sensing/DeviceBatteryMonitor.h"

#include "ports/Accessories.h"

#include <QSet>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// Absent unless the charge is one that can be shown.
std::optional<DeviceBattery> battery(const AccessoryCharge &charge) {
    const qint64 percent = charge.percent.value_or(0);
    if (percent < 1 || percent > 100) {
        return std::nullopt;
    }
    return DeviceBattery{charge.product.value_or(u"Device"_s), percent};
}

} // namespace

DeviceBatteryMonitor::DeviceBatteryMonitor(const Accessories &accessories)
    : m_accessories(accessories) {}

std::vector<DeviceBattery> DeviceBatteryMonitor::sample() const {
    std::vector<DeviceBattery> result;
    QSet<QString> seen;
    for (auto &&list : {sampleHID(), sampleAccessoryPowerSources()}) {
        for (const DeviceBattery &device : list) {
            if (!seen.contains(device.name)) {
                seen.insert(device.name);
                result.push_back(device);
            }
        }
    }
    std::sort(result.begin(), result.end(),
              [](const DeviceBattery &a, const DeviceBattery &b) { return a.name < b.name; });
    return result;
}

std::vector<DeviceBattery> DeviceBatteryMonitor::sampleHID() const {
    std::vector<DeviceBattery> result;
    for (const AccessoryCharge &charge : m_accessories.inputDevices()) {
        if (auto device = battery(charge)) {
            result.push_back(std::move(*device));
        }
    }
    return result;
}

std::vector<DeviceBattery> DeviceBatteryMonitor::sampleAccessoryPowerSources() const {
    std::vector<DeviceBattery> result;
    for (const AccessoryCharge &charge : m_accessories.powerSources()) {
        auto device = battery(charge);
        // The machine's own battery stands in such lists as well.
        if (device && !device->name.startsWith(u"InternalBattery"_s)) {
            result.push_back(std::move(*device));
        }
    }
    return result;
}

} // namespace zeph
