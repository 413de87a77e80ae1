// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/SurfaceScaling.h"

#include <algorithm>
#include <cmath>

namespace zeph {

namespace {

// What rounding the size in points to whole ones can make of a whole factor.
constexpr double kRounding = 0.01;

/// Pixels in a point, in the direction that has more.
double ratio(QSize pixels, QSize points) {
    return std::max(double(pixels.width()) / points.width(),
                    double(pixels.height()) / points.height());
}

} // namespace

SurfaceScaling surfaceScaling(QSize pixels, QSize points, const ScalingAbilities &abilities) {
    if (pixels == points || pixels.isEmpty() || points.isEmpty()) {
        return {};
    }
    const int factor = std::max(1, static_cast<int>(std::lround(ratio(pixels, points))));
    if (abilities.integers && points * factor == pixels) {
        return {factor, std::nullopt};
    }
    if (abilities.fractions) {
        return {1, points};
    }
    const bool divides = pixels.width() % factor == 0 && pixels.height() % factor == 0;
    return {abilities.integers && divides ? factor : 1, std::nullopt};
}

QSize pixelsToFill(QSize points, QSize panel, const ScalingAbilities &abilities) {
    if (abilities.fractions) {
        return panel;
    }
    if (!abilities.integers) {
        return points;
    }
    return points * std::max(1, static_cast<int>(std::ceil(ratio(panel, points) - kRounding)));
}

} // namespace zeph
