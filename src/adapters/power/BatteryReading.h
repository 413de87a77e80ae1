// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantMap>

#include <optional>

namespace zeph {

/// What the system tells of the machine's own batteries, all of them taken as one. What it can't
/// tell, or what can't be true, is absent.
struct BatteryReading {
    bool hasBattery = false;

    std::optional<qint64> current; ///< in parts of `maximum`
    std::optional<qint64> maximum; ///< 1 or more
    std::optional<bool> isPluggedIn;
    std::optional<bool> isCharging;
    qint64 minutesToFull = -1;  ///< -1 while unknown
    qint64 minutesToEmpty = -1; ///< -1 while unknown

    std::optional<qint64> cycleCount;     ///< of the battery that has the most
    std::optional<qint64> designCapacity; ///< of the batteries that tell this and the next
    std::optional<qint64> fullCapacity;   ///< in the unit of `designCapacity`

    bool operator==(const BatteryReading &) const = default;
};

/// The description of the reading by the keys of `PowerSources`.
QVariantMap descriptionOf(const BatteryReading &reading);

/// `hours` in whole minutes; -1 for what is no time that a battery lasts.
qint64 batteryMinutes(double hours);

/// The percentage of a battery from 0 to 100; absent for what can't be true. A little more than
/// full is full: gauges drift.
std::optional<double> believablePercent(double percent);

/// Whether a battery with this full capacity can have been designed for that one.
bool isBelievableWear(double fullCapacity, double designCapacity);

} // namespace zeph
