// SPDX-License-Identifier: MIT
#include "sensing/SystemLoadMonitor.h"

#include <algorithm>

namespace zeph {

namespace {

// A counter that wrapped at 2^32 still gives its small positive difference.
double ticksBetween(quint32 before, quint32 now) {
    return static_cast<double>(now - before);
}

} // namespace

SystemLoadMonitor::SystemLoadMonitor(const HostStatistics &host) : m_host(host) {
    m_load.memoryTotalBytes = host.physicalMemory();
}

void SystemLoadMonitor::sampleCPU() {
    const std::optional<CpuTicks> ticks = m_host.cpuTicks();
    if (!ticks) {
        return;
    }
    if (m_prevTicks) {
        const double busy = ticksBetween(m_prevTicks->user, ticks->user) +
                            ticksBetween(m_prevTicks->system, ticks->system) +
                            ticksBetween(m_prevTicks->nice, ticks->nice);
        const double total = busy + ticksBetween(m_prevTicks->idle, ticks->idle);
        if (total > 0) {
            m_load.cpuUsage = std::clamp(busy / total, 0.0, 1.0);
        }
    }
    m_prevTicks = ticks;
}

void SystemLoadMonitor::sampleMemory() {
    const std::optional<MemoryPages> pages = m_host.memoryPages();
    if (!pages) {
        return;
    }
    m_load.memoryUsedBytes = m_host.pageSize() * (pages->active + pages->wired + pages->compressed);
    if (m_load.memoryTotalBytes == 0) {
        return;
    }
    m_load.memoryPressure = std::min(static_cast<double>(m_load.memoryUsedBytes) /
                                         static_cast<double>(m_load.memoryTotalBytes),
                                     1.0);
}

} // namespace zeph
