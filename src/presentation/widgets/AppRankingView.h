// SPDX-License-Identifier: MIT
#pragma once

#include "core/records/AppUsage.h"
#include "presentation/palette/Palette.h"
#include "presentation/view/View.h"

#include <vector>

namespace zeph {

/// Applications with their time as bars against the first one's, which is the longest.
struct AppRankingView {
    std::vector<AppUsage> apps;
    Palette palette;

    View body() const;
};

} // namespace zeph
