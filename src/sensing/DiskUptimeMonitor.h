// SPDX-License-Identifier: MIT
#pragma once

#include "model/DiskInfo.h"

namespace zeph {

class Clock;
class HostStatistics;
class Volume;

/// Space on the system volume and the time since boot. A refused reading leaves the last values.
/// Main thread only.
class DiskUptimeMonitor {
public:
    DiskUptimeMonitor(const Clock &clock, const Volume &volume, const HostStatistics &host);

    void sampleDisk();
    void sampleUptime();

    const DiskInfo &disk() const { return m_disk; }

    /// Seconds since boot, time asleep included; 0 before the first reading.
    double uptimeSeconds() const { return m_uptimeSeconds; }

private:
    const Clock &m_clock;
    const Volume &m_volume;
    const HostStatistics &m_host;
    DiskInfo m_disk;
    double m_uptimeSeconds = 0;
};

} // namespace zeph
