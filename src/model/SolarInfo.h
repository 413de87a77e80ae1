// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <optional>

namespace zeph {

/// The sun's day. An event is absent where the sun does not rise or set that day.
struct SolarInfo {
    std::optional<Date> sunrise;
    std::optional<Date> sunset;
    double daylightFraction = 0; ///< arch from 0 at sunrise over 1 to 0 at sunset

    bool operator==(const SolarInfo &) const = default;
};

} // namespace zeph
