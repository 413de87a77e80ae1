// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/View.h"

namespace zeph {

/// The column flow of the wallpaper: down a column until the next view would not fit, then a new
/// column to the right; with `anchorsLast` the last view is pinned to the bottom-left corner.
struct WallpaperStackLayout {
    double maxHeight = 1;
    double rowSpacing = 24;
    double columnSpacing = 56;
    bool anchorsLast = false;

    /// Where views of these ideal sizes go.
    struct Arrangement {
        QSizeF size;
        std::vector<QRectF> frames;
    };
    Arrangement arrange(const std::vector<QSizeF> &sizes) const;
};

View wallpaperStack(const WallpaperStackLayout &layout, std::vector<View> children);

} // namespace zeph
