// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>
#include <optional>

namespace zeph {

enum class SupplyKind { other, battery, mains, usb };
enum class ChargeStatus { unknown, charging, discharging, full, notCharging };

/// What a battery holds. In µWh and µW, or without a known voltage in µAh and µA.
struct BatteryAmounts {
    std::optional<double> now;
    std::optional<double> full; ///< above 0
    std::optional<double> design;
    std::optional<double> rate; ///< in or out, never below 0
    bool isEnergy = true;

    bool operator==(const BatteryAmounts &) const = default;
};

/// One entry of the kernel's power supplies. Amounts that can't be true are absent.
struct PowerSupply {
    SupplyKind kind = SupplyKind::other;
    bool isOfDevice = false; ///< powers a peripheral and not this machine
    bool isPresent = true;
    std::optional<bool> isOnline;
    ChargeStatus status = ChargeStatus::unknown;
    std::optional<qint64> capacity; ///< percent, as the driver tells it
    BatteryAmounts amounts;
    std::optional<qint64> cycleCount;
    std::optional<QString> model;

    bool operator==(const PowerSupply &) const = default;
};

/// The bytes of an attribute by its name; empty when it can't be read.
using AttributeReader = std::function<QByteArray(const QString &name)>;

/// A whole decimal number, a sign and surrounding spaces allowed; absent for anything else.
std::optional<qint64> parseAttributeNumber(QByteArrayView bytes);

/// The first line as one that can be shown; absent when nothing is left of it.
std::optional<QString> parseAttributeText(QByteArrayView bytes);

/// Reads kind and scope only, which the kernel knows without asking the hardware.
PowerSupply identifySupply(const AttributeReader &read);

/// Reads what tells how the machine is powered into `supply`. May wait for the hardware.
void readMachineSupply(const AttributeReader &read, PowerSupply &supply);

/// Reads what tells the charge of a peripheral into `supply`. May wait for the peripheral.
void readDeviceSupply(const AttributeReader &read, PowerSupply &supply);

} // namespace zeph
