// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"
#include "ports/Port.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

/// The names of a place, from small to large.
struct Placemark {
    std::optional<QString> locality;
    std::optional<QString> administrativeArea;
    std::optional<QString> country;
    std::optional<QString> ocean;
    std::optional<QString> inlandWater = {}; ///< a lake, or a sea that no ocean reaches

    bool operator==(const Placemark &) const = default;
};

/// Place names of a position.
class Geocoder : public Port {
public:
    /// Answers on the main thread, never inside the call; an empty list when nothing is known.
    /// May be called on any thread. At the end of the process the answer may never come.
    virtual void reverseGeocode(const Coordinate &position,
                                std::function<void(const std::vector<Placemark> &)> answer) = 0;
};

} // namespace zeph
