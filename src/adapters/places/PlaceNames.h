// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/places/GlobeOutline.h"
#include "base/Coordinate.h"
#include "ports/Geocoder.h"

#include <vector>

namespace zeph {

class CityTable;

/// What lies at `position`: a city that is near, else a lake, else the land's state and country,
/// else the sea or ocean. One place, or none when nothing is known.
std::vector<Placemark> placesAt(const Coordinate &position, const CityTable &cities,
                                const GlobeOutlines &outlines);

} // namespace zeph
