// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "ports/NetworkInterfaces.h"

#include <QByteArrayView>
#include <QtGlobal>

#include <optional>
#include <vector>

namespace zeph {

/// The "cpu" line of /proc/stat, in ticks of all processors together.
struct StatTicks {
    quint64 user = 0;
    quint64 system = 0; ///< interrupts and stolen time included
    quint64 idle = 0;   ///< waiting for a disk included
    quint64 nice = 0;

    bool operator==(const StatTicks &) const = default;
};

/// Memory in bytes, after /proc/meminfo.
struct MemoryInfo {
    quint64 total = 0;
    quint64 used = 0; ///< what can't be had without swapping; never above `total`

    bool operator==(const MemoryInfo &) const = default;
};

/// Reads the bytes of /proc/stat. Absent when the line is missing, cut off or not all numbers.
std::optional<StatTicks> parseStatTicks(QByteArrayView stat);

/// The start of the machine, after the "btime" line of /proc/stat.
std::optional<Date> parseBootTime(QByteArrayView stat);

/// Reads the bytes of /proc/meminfo. Absent without a total and a way to tell what is free.
std::optional<MemoryInfo> parseMemoryInfo(QByteArrayView meminfo);

/// Reads the bytes of /proc/net/dev. Absent when any of it is cut off or not understood: a link
/// that is left out once would make the sum of all counters fall.
std::optional<std::vector<LinkCounters>> parseLinks(QByteArrayView dev);

} // namespace zeph
