// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/identity/ScreenIdentity.h"
#include "adapters/session/wayland/SurfaceScaling.h"
#include "ports/Screens.h"

#include <QPoint>
#include <QSize>

#include <optional>
#include <vector>

namespace zeph {

/// What a compositor tells of one output.
struct OutputFacts {
    ScreenFacts words;
    QSize mode;           ///< in pixels, before the panel is turned; empty until it was told
    QPoint position = {}; ///< in points
    int transform = 0;    ///< a value of wl_output's transform
    int scale = 1;        ///< pixels in a point, rounded up
    /// In points, where the compositor knows them exactly.
    std::optional<QPoint> logicalPosition = {};
    std::optional<QSize> logicalSize = {};

    bool operator==(const OutputFacts &) const = default;
};

/// One screen an output, or none for an output that shows nothing, in the same order.
/// `deviceFrame` has the size of the pixels that a surface there is painted with.
std::vector<std::optional<Screen>> screensOf(const std::vector<OutputFacts> &outputs,
                                             const ScalingAbilities &abilities);

/// Of the screens with one place (mirrors) only the sharpest stays, of equally sharp ones the
/// first.
void leaveOutMirrors(std::vector<std::optional<Screen>> &screens);

} // namespace zeph
