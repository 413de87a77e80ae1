// SPDX-License-Identifier: MIT
#pragma once

#include "model/BatteryInfo.h"

namespace zeph {

class PowerSources;

/// The machine's own battery: charge, power source, time left and wear. A refused reading leaves
/// the last values. Main thread only.
class BatteryMonitor {
public:
    explicit BatteryMonitor(const PowerSources &sources);

    /// Reads the first power source. Without one the battery counts as absent and all else stays.
    void sample();

    const BatteryInfo &info() const { return m_info; }

private:
    void readHealth();

    const PowerSources &m_sources;
    BatteryInfo m_info;
};

} // namespace zeph
