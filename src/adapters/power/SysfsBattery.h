// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/power/BatteryReading.h"
#include "adapters/power/PowerSupply.h"

#include <vector>

namespace zeph {

/// Joins the supplies of the machine into one reading; those of peripherals don't count.
BatteryReading batteryReading(const std::vector<PowerSupply> &supplies);

} // namespace zeph
