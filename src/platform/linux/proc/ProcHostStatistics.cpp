// SPDX-License-Identifier: MIT
#include "platform/linux/proc/ProcHostStatistics.h"

#include "platform/linux/proc/ProcParsers.h"

#include <QFile>

#include <unistd.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// Far above what thousands of processors and interrupts need.
constexpr qint64 fileLimit = 4'194'304;

QByteArray contents(const QString &path) {
    QFile file(path);
    // Unbuffered, since files of /proc are made whole at the first read and have no size.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return {};
    }
    return file.read(fileLimit);
}

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
    const std::optional<StatTicks> ticks = parseStatTicks(contents(m_statPath));
    if (!ticks) {
        return std::nullopt;
    }
    return CpuTicks{wrapped(m_user.next(ticks->user)), wrapped(m_system.next(ticks->system)),
                    wrapped(m_idle.next(ticks->idle)), wrapped(m_nice.next(ticks->nice))};
}

std::optional<MemoryPages> ProcHostStatistics::memoryPages() const {
    const std::optional<MemoryInfo> memory = parseMemoryInfo(contents(m_meminfoPath));
    if (!memory) {
        return std::nullopt;
    }
    return MemoryPages{memory->used / m_pageSize, 0, 0};
}

quint64 ProcHostStatistics::physicalMemory() const {
    const std::optional<MemoryInfo> memory = parseMemoryInfo(contents(m_meminfoPath));
    return memory ? memory->total : 0;
}

std::optional<Date> ProcHostStatistics::bootTime() const {
    return parseBootTime(contents(m_statPath));
}

} // namespace zeph
