// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Palette.h"

namespace zeph {

/// The backdrop: a gradient from top to bottom with three soft discs of the accent over it.
struct AmbientBackground {
    Color top;
    Color bottom;
    Color accent;
    double time = 0;     ///< seconds since 2001-01-01; moves and breathes the discs
    double energy = 0.3; ///< 0 to 1; how strong and how lively the discs are

    bool operator==(const AmbientBackground &) const = default;

    /// The still picture that the wallpaper shows.
    static AmbientBackground still(const Palette &palette) {
        return {palette.top, palette.bottom, palette.accent};
    }

    /// The picture of one moment when the backdrop moves.
    static AmbientBackground animated(const Palette &palette, double energy, double time) {
        return {palette.top, palette.bottom, palette.accent, time, energy};
    }
};

/// One of the soft discs, in the unit of the surface's size. The alpha of the accent falls evenly
/// from `alpha` in the centre to 0 at `radius`.
struct SoftDisc {
    double centerX = 0;
    double centerY = 0;
    double radius = 0;
    double alpha = 0;
};

constexpr int softDiscCount = 3;

/// Disc `index`, back to front, of `background` on a surface of this size.
SoftDisc softDisc(const AmbientBackground &background, int index, double width, double height);

/// The part of the light that the last layer of the backdrop, a veil of black, lets through.
constexpr double veiledLight = 1 - 0.08;

} // namespace zeph
