// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

namespace zeph {

/// The internal battery. `isPresent` starts true: until the first sample the machine counts as
/// one that runs on battery.
struct BatteryInfo {
    qint64 percentage = 0; ///< 0 to 100
    bool isCharging = false;
    bool isPluggedIn = false;
    std::optional<qint64> minutesRemaining;
    std::optional<qint64> health; ///< percent of the design capacity
    std::optional<qint64> cycleCount;
    bool isPresent = true;

    bool operator==(const BatteryInfo &) const = default;
};

} // namespace zeph
