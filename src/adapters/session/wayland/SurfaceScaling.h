// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

#include <optional>

namespace zeph {

/// How a compositor can bring pixels to the size that a surface has in points.
struct ScalingAbilities {
    bool integers = false;  ///< by a whole factor
    bool fractions = false; ///< to any size

    bool operator==(const ScalingAbilities &) const = default;
};

/// What a surface asks for: its pixels in a point, or the size in points that its pixels fill.
struct SurfaceScaling {
    int factor = 1;
    std::optional<QSize> destination;

    bool operator==(const SurfaceScaling &) const = default;
};

/// Fills `points` with `pixels` as exactly as can be asked for. A whole factor that fits is
/// preferred; one that does not divide the pixels is never asked for, since that is an error.
SurfaceScaling surfaceScaling(QSize pixels, QSize points, const ScalingAbilities &abilities);

/// The pixels with which a display that has `panel` of them is filled, where it is `points` large:
/// those of the panel, else the next larger whole multiple.
QSize pixelsToFill(QSize points, QSize panel, const ScalingAbilities &abilities);

} // namespace zeph
