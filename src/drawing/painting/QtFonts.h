// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/TextStyle.h"

#include <QFont>

namespace zeph {

/// A font of Qt and the factor that its metrics and glyphs have to be multiplied with, since Qt
/// knows whole pixel sizes only.
struct ScaledFont {
    QFont font;
    double factor = 1;
};

/// The font for `spec`: Inter, or Quicksand for the rounded design, else the nearest companions
/// that are installed. One pixel is one point, whatever the screen; not hinted, so that widths
/// are the same at each scale.
ScaledFont qtFont(const FontSpec &spec);

/// Where the letters of a font stand in its line box, in points from the top.
struct LineBox {
    double height = 0;
    double baseline = 0;
};

/// The line box of `spec`: a whole number of points high.
LineBox lineBox(const FontSpec &spec);

} // namespace zeph
