// SPDX-License-Identifier: MIT
#pragma once

#include "model/DeviceBattery.h"

#include <vector>

namespace zeph {

class Accessories;

/// The charge of wireless peripherals, from two sources. It keeps nothing, so that samples may
/// overlap.
class DeviceBatteryMonitor {
public:
    explicit DeviceBatteryMonitor(const Accessories &accessories);

    /// One entry a name, sorted by name; of a name that both sources know, the input device
    /// counts. Slow: call it away from the main thread.
    std::vector<DeviceBattery> sample() const;

private:
    std::vector<DeviceBattery> sampleHID() const;
    std::vector<DeviceBattery> sampleAccessoryPowerSources() const;

    const Accessories &m_accessories;
};

} // namespace zeph
