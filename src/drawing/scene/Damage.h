// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>
#include <QSize>

namespace zeph {

class TextMetrics;
struct Scene;

/// The pixels of a surface: how many, and how many of them to a point.
struct SurfacePixels {
    QSize size;
    double scale = 1;

    bool operator==(const SurfacePixels &) const = default;
};

/// The device pixels that differ, or may, between two scenes on the same surface: empty for scenes
/// of the same look, all of it for another backdrop.
QRegion damage(const Scene &before, const Scene &after, const SurfacePixels &surface,
               const TextMetrics &metrics);

} // namespace zeph
