// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcHostStatistics.h"

#include "adapters/kernel/ProcFile.h"
#include "adapters/kernel/ProcParsers.h"

#include <unistd.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// Ticks are told modulo 2^32; whoever compares two readings allows for the wrap.
quint32 wrapped(quint64 ticks) {
    return static_cast<quint32>(ticks);
}

quint64 systemPageSize() {
    const long size = ::sysconf(_SC_PAGESIZE);
    return size > 0 ? static_cast<quint64>(size) : 4096;
}

} // namespace

ProcHostStatistics::ProcHostStatistics(const QString &root)
    : m_statPath(root + u"/stat"_s),
      m_meminfoPath(root + u"/meminfo"_s),
      m_pageSize(systemPageSize()) {}

std::optional<CpuTicks> ProcHostStatistics::cpuTicks() const {
    const std::optional<StatTicks> ticks = parseStatTicks(procFileContents(m_statPath));
    if (!ticks) {
        return std::nullopt;
    }
    return CpuTicks{wrapped(m_user.next(ticks->user)), wrapped(m_system.next(ticks->system)),
                    wrapped(m_idle.next(ticks->idle)), wrapped(m_nice.next(ticks->nice))};
}

std::optional<MemoryPages> ProcHostStatistics::memoryPages() const {
    const std::optional<MemoryInfo> memory = parseMemoryInfo(procFileContents(m_meminfoPath));
    if (!memory) {
        return std::nullopt;
    }
    return MemoryPages{memory->used / m_pageSize, 0, 0};
}

quint64 ProcHostStatistics::physicalMemory() const {
    const std::optional<MemoryInfo> memory = parseMemoryInfo(procFileContents(m_meminfoPath));
    return memory ? memory->total : 0;
}

std::optional<Date> ProcHostStatistics::bootTime() const {
    return parseBootTime(procFileContents(m_statPath));
}

} // namespace zeph
