// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "drawing/palette/Palette.h"
#include "drawing/scene/AmbientBackground.h"

namespace zeph {

/// The backdrop of a wallpaper: a still picture, or with `animate` one that drifts and breathes in
/// `fps` steps a second, livelier with more `energy` (0 to 1).
struct AmbientBackgroundView {
    Palette palette;
    double energy = 0.3;
    bool animate = false;
    double fps = 12;

    /// What it shows at `now`. The still picture is the same at any time and energy.
    AmbientBackground picture(Date now) const;
};

} // namespace zeph
