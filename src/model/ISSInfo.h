// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// The space station's position.
struct ISSInfo {
    std::optional<QString> place;     ///< what lies under it
    std::optional<double> distanceKm; ///< from the user
    double altitudeKm = 0;

    bool operator==(const ISSInfo &) const = default;
};

} // namespace zeph
