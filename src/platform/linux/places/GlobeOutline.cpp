// SPDX-License-Identifier: MIT
#include "platform/linux/places/GlobeOutline.h"

#include <algorithm>

namespace zeph {

namespace {

/// Whether a way east from the position leaves the outline an odd number of times.
bool contains(std::span<const Coordinate> corners, double latitude, double longitude) {
    bool isInside = false;
    const Coordinate *last = &corners.back();
    for (const Coordinate &corner : corners) {
        if ((corner.latitude > latitude) != (last->latitude > latitude)) {
            const double share = (latitude - corner.latitude) / (last->latitude - corner.latitude);
            const double crossing = corner.longitude + share * (last->longitude - corner.longitude);
            isInside = isInside != (longitude < crossing);
        }
        last = &corner;
    }
    return isInside;
}

} // namespace

const GlobeOutline *outlineAt(std::span<const GlobeOutline> outlines, const Coordinate &position) {
    // Rounds the poles and the date line down, which belong to what lies before them.
    const double latitude = std::clamp(position.latitude, -89.999, 89.999);
    const double longitude = std::clamp(position.longitude, -179.999, 179.999);
    const auto found =
        std::find_if(outlines.begin(), outlines.end(), [&](const GlobeOutline &outline) {
            return contains(outline.corners, latitude, longitude) ||
                   contains(outline.corners, latitude, longitude + 360);
        });
    return found == outlines.end() ? nullptr : &*found;
}

} // namespace zeph
