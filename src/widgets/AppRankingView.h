// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Palette.h"
#include "drawing/view/View.h"
#include "model/AppUsage.h"

#include <vector>

namespace zeph {

/// Applications with their time as bars against the first one's, which is the longest.
struct AppRankingView {
    std::vector<AppUsage> apps;
    Palette palette;

    View body() const;
};

} // namespace zeph
