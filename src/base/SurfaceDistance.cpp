// SPDX-License-Identifier: MIT
#include "base/SurfaceDistance.h"

#include <cmath>
#include <numbers>

namespace zeph {

namespace {

// (2 a + b) / 3 of the WGS 84 ellipsoid.
constexpr double meanRadiusMeters = 6'371'008.8;

double radians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

} // namespace

double surfaceDistanceMeters(const Coordinate &from, const Coordinate &to) {
    const double start = radians(from.latitude);
    const double end = radians(to.latitude);
    const double turn = radians(to.longitude - from.longitude);
    // The arc by its tangent: exact for neighbours as well as for opposite ends of the Earth.
    const double east = std::cos(end) * std::sin(turn);
    const double north =
        std::cos(start) * std::sin(end) - std::sin(start) * std::cos(end) * std::cos(turn);
    const double along =
        std::sin(start) * std::sin(end) + std::cos(start) * std::cos(end) * std::cos(turn);
    return meanRadiusMeters * std::atan2(std::hypot(east, north), along);
}

} // namespace zeph
