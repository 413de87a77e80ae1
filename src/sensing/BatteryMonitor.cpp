// SPDX-License-Identifier: MIT
#include "sensing/BatteryMonitor.h"

#include "ports/PowerSources.h"

#include <QMetaType>

#include <cmath>
#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// Only a whole number counts as one: no text that looks like it, no truth value, no fraction.
std::optional<qint64> integer(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::ULongLong: {
        const quint64 number = value.toULongLong();
        const bool fits = number <= static_cast<quint64>(std::numeric_limits<qint64>::max());
        return fits ? std::optional(static_cast<qint64>(number)) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

std::optional<qint64> minutes(const QVariant &value) {
    const std::optional<qint64> number = integer(value);
    return number && *number >= 0 ? number : std::nullopt;
}

/// Halves round away from zero. Absent where the share has no meaning or no room.
std::optional<qint64> percent(std::optional<qint64> part, std::optional<qint64> whole) {
    if (!part || !whole || *whole < 1) {
        return std::nullopt;
    }
    const double share =
        std::round(static_cast<double>(*part) / static_cast<double>(*whole) * 100.0);
    constexpr double exact = 9'007'199'254'740'992.0; // 2^53, far beyond any true share
    return std::abs(share) <= exact ? std::optional(static_cast<qint64>(share)) : std::nullopt;
}

} // namespace

BatteryMonitor::BatteryMonitor(const PowerSources &sources) : m_sources(sources) {}

void BatteryMonitor::sample() {
    const auto sources = m_sources.descriptions();
    if (!sources || sources->empty()) {
        m_info.isPresent = false;
        return;
    }
    const QVariantMap &source = sources->front();
    m_info.isPresent = true;
    m_info.percentage = percent(integer(source.value(u"Current Capacity"_s)),
                                integer(source.value(u"Max Capacity"_s)))
                            .value_or(m_info.percentage);
    m_info.isPluggedIn = source.value(u"Power Source State"_s) == u"AC Power"_s;
    const QVariant charging = source.value(u"Is Charging"_s);
    m_info.isCharging = charging.typeId() == QMetaType::Bool && charging.toBool();

    std::optional<qint64> remaining;
    if (m_info.isCharging) {
        remaining = minutes(source.value(u"Time to Full Charge"_s));
    }
    m_info.minutesRemaining = remaining ? remaining : minutes(source.value(u"Time to Empty"_s));
    readHealth();
}

void BatteryMonitor::readHealth() {
    if (!m_sources.hasGauge()) {
        return;
    }
    if (const auto cycles = m_sources.gauge(u"CycleCount"_s)) {
        m_info.cycleCount = cycles;
    }
    const auto design = m_sources.gauge(u"DesignCapacity"_s);
    if (!design) {
        return;
    }
    auto maximum = m_sources.gauge(u"AppleRawMaxCapacity"_s);
    if (!maximum) {
        maximum = m_sources.gauge(u"MaxCapacity"_s);
    }
    if (const auto health = percent(maximum, design)) {
        m_info.health = health;
    }
}

} // namespace zeph
