// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/kernel/RisingCounter.h"
#include "ports/HostStatistics.h"

#include <QString>

namespace zeph {

/// Vital signs after /proc/stat and /proc/meminfo. Every call reads the files anew.
///
/// Memory in use is the total less the kernel's "available" figure, told as active pages with
/// none wired or compressed: the kernel's active list holds file pages that cost nothing to drop
/// and leaves out its own unreclaimable memory, so the page counts by those names would mislead.
class ProcHostStatistics : public HostStatistics {
public:
    /// `root` is the folder of the two files.
    explicit ProcHostStatistics(const QString &root = QStringLiteral("/proc"));

    std::optional<CpuTicks> cpuTicks() const override;
    std::optional<MemoryPages> memoryPages() const override;
    quint64 pageSize() const override { return m_pageSize; }
    quint64 physicalMemory() const override;
    std::optional<Date> bootTime() const override;

private:
    QString m_statPath;
    QString m_meminfoPath;
    quint64 m_pageSize;
    // What was answered before is no fact of the machine: reading stays const.
    mutable RisingCounter m_user;
    mutable RisingCounter m_system;
    mutable RisingCounter m_idle;
    mutable RisingCounter m_nice;
};

} // namespace zeph
