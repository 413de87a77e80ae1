// SPDX-License-Identifier: MIT
#pragma once

#include "model/SystemLoad.h"
#include "ports/HostStatistics.h"

#include <optional>

namespace zeph {

/// Processor share and memory use. A refused reading leaves the last values. Main thread only.
class SystemLoadMonitor {
public:
    /// Asks once for the size of the memory.
    explicit SystemLoadMonitor(const HostStatistics &host);

    /// The processors' busy share since the reading before; the first reading gives none.
    void sampleCPU();

    void sampleMemory();

    const SystemLoad &load() const { return m_load; }

private:
    const HostStatistics &m_host;
    SystemLoad m_load;
    std::optional<CpuTicks> m_prevTicks;
};

} // namespace zeph
