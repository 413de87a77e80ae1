// SPDX-License-Identifier: MIT
#include "adapters/power/UPowerReading.h"

#include "adapters/power/PowerSupply.h"

#include <QStringList>

#include <cmath>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

enum class UPowerType : uint { linePower = 1, battery = 2, ups = 3 };

enum class UPowerState : uint {
    charging = 1,
    discharging = 2,
    empty = 3,
    fullyCharged = 4,
    pendingCharge = 5,
    pendingDischarge = 6,
};

// The level of a battery that tells percents; the others know no more than "low" or "normal",
// and their percents are made up.
constexpr uint levelNone = 1;

/// The value as a number; absent for other types, text with digits included.
std::optional<double> numberIn(const QVariantMap &properties, const QString &name) {
    const QVariant value = properties.value(name);
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    const bool isText = value.typeId() == QMetaType::QString;
    return isNumber && !isText && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

bool isType(const QVariantMap &device, UPowerType type) {
    return numberIn(device, u"Type"_s) == static_cast<uint>(type);
}

std::optional<bool> isPluggedIn(const QVariantMap &daemon, uint state) {
    const QVariant onBattery = daemon.value(u"OnBattery"_s);
    if (onBattery.typeId() == QMetaType::Bool) {
        return !onBattery.toBool();
    }
    switch (UPowerState{state}) {
    case UPowerState::charging:
    case UPowerState::fullyCharged:
    case UPowerState::pendingCharge:
        return true;
    case UPowerState::discharging:
    case UPowerState::empty:
    case UPowerState::pendingDischarge:
        return false;
    }
    return std::nullopt;
}

/// The daemon writes 0 s for a time that it doesn't know.
qint64 minutesIn(const QVariantMap &display, const QString &name) {
    const double seconds = numberIn(display, name).value_or(0);
    return seconds > 0 ? batteryMinutes(seconds / 3600) : -1;
}

void addGauge(const std::vector<QVariantMap> &devices, BatteryReading &reading) {
    double design = 0; // Wh
    double full = 0;
    for (const QVariantMap &device : devices) {
        if (!isType(device, UPowerType::battery) || !device.value(u"PowerSupply"_s).toBool()) {
            continue;
        }
        // Drivers that don't count cycles tell 0, the daemon then -1.
        const double cycles = numberIn(device, u"ChargeCycles"_s).value_or(0);
        if (cycles > static_cast<double>(reading.cycleCount.value_or(0)) && cycles < 1e6) {
            reading.cycleCount = std::llround(cycles);
        }
        const double deviceDesign = numberIn(device, u"EnergyFullDesign"_s).value_or(0);
        const double deviceFull = numberIn(device, u"EnergyFull"_s).value_or(0);
        if (isBelievableWear(deviceFull * 1000, deviceDesign * 1000) && deviceDesign < 1e6) {
            design += deviceDesign;
            full += deviceFull;
        }
    }
    if (design > 0) {
        reading.designCapacity = std::llround(design * 1000);
        reading.fullCapacity = std::llround(full * 1000);
    }
}

} // namespace

std::optional<BatteryReading> batteryReading(const QVariantMap &daemon, const QVariantMap &display,
                                             const std::vector<QVariantMap> &devices) {
    if (!display.contains(u"IsPresent"_s) || !display.contains(u"Type"_s)) {
        return std::nullopt;
    }
    BatteryReading reading;
    reading.hasBattery =
        display.value(u"IsPresent"_s).toBool() && isType(display, UPowerType::battery);
    if (!reading.hasBattery) {
        return reading;
    }
    if (const auto percent = believablePercent(numberIn(display, u"Percentage"_s).value_or(-1))) {
        reading.current = std::llround(*percent);
        reading.maximum = 100;
    }
    const auto state = numberIn(display, u"State"_s);
    const uint known = state && *state >= 1 && *state <= 6 ? static_cast<uint>(*state) : 0;
    reading.isPluggedIn = isPluggedIn(daemon, known);
    if (known != 0) {
        reading.isCharging = UPowerState{known} == UPowerState::charging;
    }
    reading.minutesToFull = minutesIn(display, u"TimeToFull"_s);
    reading.minutesToEmpty = minutesIn(display, u"TimeToEmpty"_s);
    addGauge(devices, reading);
    return reading;
}

std::optional<AccessoryCharge> accessoryCharge(const QVariantMap &device) {
    const QVariant powersMachine = device.value(u"PowerSupply"_s);
    const auto percent = numberIn(device, u"Percentage"_s);
    const bool isPeripheral = powersMachine.typeId() == QMetaType::Bool &&
                              !powersMachine.toBool() && !isType(device, UPowerType::linePower) &&
                              !isType(device, UPowerType::ups);
    const bool isAway = !device.value(u"IsPresent"_s, true).toBool();
    const bool isMadeUp = numberIn(device, u"BatteryLevel"_s).value_or(0) > levelNone;
    if (!isPeripheral || isAway || isMadeUp || !percent || std::abs(*percent) > 1000) {
        return std::nullopt;
    }
    AccessoryCharge charge;
    charge.product = parseAttributeText(device.value(u"Model"_s).toString().toUtf8());
    charge.percent = std::llround(*percent);
    return charge;
}

const QStringList &readUPowerProperties() {
    static const QStringList names{u"OnBattery"_s,        u"Type"_s,         u"State"_s,
                                   u"Percentage"_s,       u"IsPresent"_s,    u"PowerSupply"_s,
                                   u"TimeToEmpty"_s,      u"TimeToFull"_s,   u"EnergyFull"_s,
                                   u"EnergyFullDesign"_s, u"ChargeCycles"_s, u"Model"_s,
                                   u"BatteryLevel"_s};
    return names;
}

} // namespace zeph
