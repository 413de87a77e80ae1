// SPDX-License-Identifier: MIT
#include "adapters/power/SysfsBattery.h"

#include <algorithm>
#include <cmath>

namespace zeph {

namespace {

using Supplies = std::vector<PowerSupply>;

bool any(const Supplies &supplies, ChargeStatus status) {
    return std::any_of(supplies.begin(), supplies.end(),
                       [status](const PowerSupply &supply) { return supply.status == status; });
}

Supplies ofKind(const Supplies &supplies, SupplyKind kind) {
    Supplies result;
    std::copy_if(supplies.begin(), supplies.end(), std::back_inserter(result),
                 [kind](const PowerSupply &supply) {
                     return supply.kind == kind && !supply.isOfDevice && supply.isPresent;
                 });
    return result;
}

/// Absent when none of them tells whether it is plugged in.
std::optional<bool> isAnyOnline(const Supplies &lines) {
    std::optional<bool> result;
    for (const PowerSupply &line : lines) {
        if (line.isOnline) {
            result = result.value_or(false) || *line.isOnline;
        }
    }
    return result;
}

/// A USB port may feed a phone, so it is only asked where no mains supply tells.
std::optional<bool> isPluggedIn(const Supplies &supplies, const Supplies &batteries) {
    if (const auto mains = isAnyOnline(ofKind(supplies, SupplyKind::mains))) {
        return mains;
    }
    if (const auto usb = isAnyOnline(ofKind(supplies, SupplyKind::usb))) {
        return usb;
    }
    if (any(batteries, ChargeStatus::discharging)) {
        return false;
    }
    const bool isFed = any(batteries, ChargeStatus::charging) ||
                       any(batteries, ChargeStatus::full) ||
                       any(batteries, ChargeStatus::notCharging);
    return isFed ? std::optional(true) : std::nullopt;
}

/// The share that the amounts tell; absent without both or when they can't both be true.
std::optional<double> percentOfAmounts(const BatteryAmounts &amounts) {
    return amounts.now && amounts.full ? believablePercent(*amounts.now / *amounts.full * 100)
                                       : std::nullopt;
}

std::optional<double> percentOf(const PowerSupply &battery) {
    const std::optional<double> percent = percentOfAmounts(battery.amounts);
    return percent || !battery.capacity ? percent
                                        : believablePercent(static_cast<double>(*battery.capacity));
}

/// Whether the amounts of all can be added up.
bool areAmountsUsable(const Supplies &batteries) {
    return std::all_of(batteries.begin(), batteries.end(), [&](const PowerSupply &battery) {
        return percentOfAmounts(battery.amounts) &&
               battery.amounts.isEnergy == batteries.front().amounts.isEnergy;
    });
}

void addAmounts(const Supplies &batteries, BatteryReading &reading) {
    double now = 0;
    double full = 0;
    double rate = 0;
    for (const PowerSupply &battery : batteries) {
        now += std::min(*battery.amounts.now, *battery.amounts.full);
        full += *battery.amounts.full;
        rate += battery.amounts.rate.value_or(0);
    }
    reading.current = std::llround(now);
    reading.maximum = std::max(std::llround(full), 1LL);
    if (rate <= 0) {
        return;
    }
    if (any(batteries, ChargeStatus::charging)) {
        reading.minutesToFull = batteryMinutes((full - now) / rate);
    } else if (any(batteries, ChargeStatus::discharging)) {
        reading.minutesToEmpty = batteryMinutes(now / rate);
    }
}

/// Without amounts that can be added up every battery counts the same.
void addPercentages(const Supplies &batteries, BatteryReading &reading) {
    double sum = 0;
    int count = 0;
    for (const PowerSupply &battery : batteries) {
        if (const auto percent = percentOf(battery)) {
            sum += *percent;
            ++count;
        }
    }
    if (count > 0) {
        reading.current = std::llround(sum / count);
        reading.maximum = 100;
    }
}

void addGauge(const Supplies &batteries, BatteryReading &reading) {
    double design = 0;
    double full = 0;
    bool isEnergy = true;
    for (const PowerSupply &battery : batteries) {
        // Drivers that don't count cycles tell none.
        if (battery.cycleCount.value_or(0) > reading.cycleCount.value_or(0)) {
            reading.cycleCount = battery.cycleCount;
        }
        const BatteryAmounts &amounts = battery.amounts;
        if (!isBelievableWear(amounts.full.value_or(0), amounts.design.value_or(0)) ||
            (design > 0 && amounts.isEnergy != isEnergy)) {
            continue;
        }
        isEnergy = amounts.isEnergy;
        design += *amounts.design;
        full += *amounts.full;
    }
    if (design > 0) {
        reading.designCapacity = std::llround(design);
        reading.fullCapacity = std::llround(full);
    }
}

} // namespace

BatteryReading batteryReading(const Supplies &supplies) {
    BatteryReading reading;
    const Supplies batteries = ofKind(supplies, SupplyKind::battery);
    reading.hasBattery = !batteries.empty();
    if (!reading.hasBattery) {
        return reading;
    }
    reading.isPluggedIn = isPluggedIn(supplies, batteries);
    reading.isCharging = any(batteries, ChargeStatus::charging);
    areAmountsUsable(batteries) ? addAmounts(batteries, reading)
                                : addPercentages(batteries, reading);
    addGauge(batteries, reading);
    return reading;
}

} // namespace zeph
