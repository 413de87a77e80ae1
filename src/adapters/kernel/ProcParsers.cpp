// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcParsers.h"

#include <algorithm>
#include <array>
#include <limits>

namespace zeph {

namespace {

/// Takes the next complete line off `rest`; absent when none is left. A line without its end is
/// one that was cut off, and the number it ends in can't be trusted.
std::optional<QByteArrayView> takeLine(QByteArrayView &rest) {
    const qsizetype end = rest.indexOf('\n');
    if (end < 0) {
        return std::nullopt;
    }
    const QByteArrayView line = rest.first(end);
    rest = rest.sliced(end + 1);
    return line;
}

/// The text behind `key` in the first line that begins with it.
std::optional<QByteArrayView> lineAfter(QByteArrayView text, QByteArrayView key) {
    while (const auto line = takeLine(text)) {
        if (line->startsWith(key)) {
            return line->sliced(key.size());
        }
    }
    return std::nullopt;
}

/// Takes the next word off `rest` and reads it as decimal digits; absent at anything else.
std::optional<quint64> takeNumber(QByteArrayView &rest) {
    while (!rest.isEmpty() && rest.front() == ' ') {
        rest = rest.sliced(1);
    }
    const qsizetype space = rest.indexOf(' ');
    const QByteArrayView word = space < 0 ? rest : rest.first(space);
    rest = rest.sliced(word.size());
    if (word.isEmpty() || word.front() < '0' || word.front() > '9') {
        return std::nullopt; // a sign would pass the conversion
    }
    bool whole = false;
    const quint64 value = word.toULongLong(&whole);
    return whole ? std::optional(value) : std::nullopt;
}

/// A "Key:   12345 kB" line in bytes.
std::optional<quint64> memoryField(QByteArrayView meminfo, QByteArrayView key) {
    std::optional<QByteArrayView> rest = lineAfter(meminfo, key);
    if (!rest) {
        return std::nullopt;
    }
    const std::optional<quint64> kibibytes = takeNumber(*rest);
    if (!kibibytes || *kibibytes > std::numeric_limits<quint64>::max() / 1024) {
        return std::nullopt;
    }
    return *kibibytes * 1024;
}

/// What can be had without swapping. The kernel's own estimate is the best there is; kernels
/// before 3.14 don't give it, and there the free pages and the two caches come near.
std::optional<quint64> availableMemory(QByteArrayView meminfo) {
    if (const auto available = memoryField(meminfo, "MemAvailable:")) {
        return available;
    }
    const std::optional<quint64> free = memoryField(meminfo, "MemFree:");
    if (!free) {
        return std::nullopt;
    }
    return *free + memoryField(meminfo, "Buffers:").value_or(0) +
           memoryField(meminfo, "Cached:").value_or(0);
}

/// "  eth0: 1 0 0 0 0 0 0 0 2 0 ..." with what was received first and what was sent ninth.
std::optional<LinkCounters> readLink(QByteArrayView line) {
    constexpr int sentColumn = 8;
    const qsizetype colon = line.indexOf(':');
    LinkCounters link{QString::fromUtf8(line.first(std::max<qsizetype>(colon, 0)).trimmed()), 0, 0};
    QByteArrayView rest = line.sliced(colon + 1);
    for (int column = 0; column <= sentColumn; ++column) {
        const std::optional<quint64> number = takeNumber(rest);
        if (!number) {
            return std::nullopt;
        }
        link.bytesReceived = column == 0 ? *number : link.bytesReceived;
        link.bytesSent = *number;
    }
    return link.name.isEmpty() ? std::nullopt : std::optional(link);
}

} // namespace

std::optional<StatTicks> parseStatTicks(QByteArrayView stat) {
    std::optional<QByteArrayView> rest = lineAfter(stat, "cpu ");
    if (!rest) {
        return std::nullopt;
    }
    // user nice system idle [iowait irq softirq steal]; guest time is within user and nice.
    constexpr std::size_t needed = 4;
    std::array<quint64, 8> fields{};
    for (std::size_t index = 0; index < fields.size(); ++index) {
        const QByteArrayView before = rest->trimmed();
        const std::optional<quint64> number = takeNumber(*rest);
        if (!number && (index < needed || !before.isEmpty())) {
            return std::nullopt;
        }
        fields.at(index) = number.value_or(0);
    }
    const auto [user, nice, system, idle, iowait, irq, softirq, steal] = fields;
    return StatTicks{user, system + irq + softirq + steal, idle + iowait, nice};
}

std::optional<Date> parseBootTime(QByteArrayView stat) {
    std::optional<QByteArrayView> rest = lineAfter(stat, "btime ");
    if (!rest) {
        return std::nullopt;
    }
    const std::optional<quint64> seconds = takeNumber(*rest);
    // The time since then has to be one that can be told in whole seconds.
    constexpr quint64 last = std::numeric_limits<qint64>::max();
    if (!seconds || *seconds > last) {
        return std::nullopt;
    }
    return Date{static_cast<double>(*seconds)};
}

std::optional<MemoryInfo> parseMemoryInfo(QByteArrayView meminfo) {
    const std::optional<quint64> total = memoryField(meminfo, "MemTotal:");
    const std::optional<quint64> available = availableMemory(meminfo);
    if (!total || !available) {
        return std::nullopt;
    }
    return MemoryInfo{*total, *total - std::min(*total, *available)};
}

std::optional<std::vector<LinkCounters>> parseLinks(QByteArrayView dev) {
    // Two lines of headings.
    if (!takeLine(dev) || !takeLine(dev)) {
        return std::nullopt;
    }
    std::vector<LinkCounters> links;
    while (const auto line = takeLine(dev)) {
        const std::optional<LinkCounters> link = readLink(*line);
        if (!link) {
            return std::nullopt;
        }
        links.push_back(*link);
    }
    return dev.isEmpty() ? std::optional(links) : std::nullopt;
}

} // namespace zeph
