// SPDX-License-Identifier: MIT
#include "sensing/DiskUptimeMonitor.h"

#include "ports/Clock.h"
#include "ports/HostStatistics.h"
#include "ports/Volume.h"

#include <cmath>

namespace zeph {

DiskUptimeMonitor::DiskUptimeMonitor(const Clock &clock, const Volume &volume,
                                     const HostStatistics &host)
    : m_clock(clock), m_volume(volume), m_host(host) {}

void DiskUptimeMonitor::sampleDisk() {
    const std::optional<VolumeCapacity> capacity = m_volume.capacity();
    if (!capacity) {
        return;
    }
    m_disk.totalBytes = capacity->totalBytes.value_or(m_disk.totalBytes);
    m_disk.freeBytes = capacity->availableBytes.value_or(m_disk.freeBytes);
}

void DiskUptimeMonitor::sampleUptime() {
    const std::optional<Date> boot = m_host.bootTime();
    if (!boot) {
        return;
    }
    const double bootSeconds = std::trunc(boot->secondsSince1970);
    if (bootSeconds == 0) {
        return;
    }
    m_uptimeSeconds = m_clock.now().secondsSince1970 - bootSeconds;
}

} // namespace zeph
