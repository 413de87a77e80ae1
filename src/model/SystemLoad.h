// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace zeph {

/// Processor and memory use.
struct SystemLoad {
    double cpuUsage = 0; ///< fraction of all processors' time, 0 to 1
    quint64 memoryUsedBytes = 0;
    quint64 memoryTotalBytes = 0;
    double memoryPressure = 0; ///< used divided by total, 0 to 1

    bool operator==(const SystemLoad &) const = default;
};

} // namespace zeph
