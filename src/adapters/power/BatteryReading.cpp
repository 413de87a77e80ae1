// SPDX-License-Identifier: MIT
#include "adapters/power/BatteryReading.h"

#include <algorithm>
#include <cmath>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double longestHours = 10 * 24;
constexpr double highestPercent = 125;
constexpr double highestWearRatio = 1.5;

} // namespace

QVariantMap descriptionOf(const BatteryReading &reading) {
    QVariantMap description;
    if (reading.current && reading.maximum) {
        description[u"Current Capacity"_s] = *reading.current;
        description[u"Max Capacity"_s] = *reading.maximum;
    }
    if (reading.isPluggedIn) {
        description[u"Power Source State"_s] =
            *reading.isPluggedIn ? u"AC Power"_s : u"Battery Power"_s;
    }
    if (reading.isCharging) {
        description[u"Is Charging"_s] = *reading.isCharging;
    }
    description[u"Time to Full Charge"_s] = reading.minutesToFull;
    description[u"Time to Empty"_s] = reading.minutesToEmpty;
    return description;
}

qint64 batteryMinutes(double hours) {
    // The comparison fails for what is not a number, too.
    return hours >= 0 && hours <= longestHours ? std::llround(hours * 60) : -1;
}

std::optional<double> believablePercent(double percent) {
    const bool isBelievable = percent >= 0 && percent <= highestPercent;
    return isBelievable ? std::optional(std::min(percent, 100.0)) : std::nullopt;
}

bool isBelievableWear(double fullCapacity, double designCapacity) {
    return fullCapacity >= 1 && designCapacity >= 1 &&
           fullCapacity <= highestWearRatio * designCapacity;
}

} // namespace zeph
