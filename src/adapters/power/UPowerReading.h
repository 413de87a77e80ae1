// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/power/BatteryReading.h"
#include "ports/Accessories.h"

#include <vector>

namespace zeph {

/// The batteries of the machine after the properties of the daemon, of its display device, which
/// stands for all of them, and of its devices. Absent when the display device tells nothing.
std::optional<BatteryReading> batteryReading(const QVariantMap &daemon, const QVariantMap &display,
                                             const std::vector<QVariantMap> &devices);

/// The device as a peripheral; absent when it is none, is away, or has no measured charge.
std::optional<AccessoryCharge> accessoryCharge(const QVariantMap &device);

/// The properties that the readings are made of.
const QStringList &readUPowerProperties();

} // namespace zeph
