// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/power/PowerSupply.h"

#include <vector>

namespace zeph {

/// The machine's own supplies under `root` (/sys/class/power_supply), by name; absent when there
/// is no such folder. May wait for the hardware; callable from any thread.
std::optional<std::vector<PowerSupply>> readMachineSupplies(const QString &root);

/// The batteries of peripherals under `root`, by name. May wait for the peripherals for some
/// seconds; callable from any thread.
std::vector<PowerSupply> readDeviceSupplies(const QString &root);

} // namespace zeph
