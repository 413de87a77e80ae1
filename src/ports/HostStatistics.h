// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "ports/Port.h"

#include <QtGlobal>

#include <optional>

namespace zeph {

/// Cumulative processor ticks of all processors together; each counter wraps at 2^32.
struct CpuTicks {
    quint32 user = 0;
    quint32 system = 0;
    quint32 idle = 0;
    quint32 nice = 0;

    bool operator==(const CpuTicks &) const = default;
};

/// Memory that can't be had back without swapping, in pages.
struct MemoryPages {
    quint64 active = 0;
    quint64 wired = 0;
    quint64 compressed = 0;

    bool operator==(const MemoryPages &) const = default;
};

/// The machine's vital signs. A refused reading answers absent; nothing blocks.
class HostStatistics : public Port {
public:
    virtual std::optional<CpuTicks> cpuTicks() const = 0;
    virtual std::optional<MemoryPages> memoryPages() const = 0;
    virtual quint64 pageSize() const = 0;       ///< bytes
    virtual quint64 physicalMemory() const = 0; ///< bytes, 0 when unknown

    /// When the machine started, to the second.
    virtual std::optional<Date> bootTime() const = 0;
};

} // namespace zeph
