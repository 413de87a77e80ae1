// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Palette.h"
#include "drawing/view/View.h"
#include "model/ContributionGraph.h"

#include <optional>
#include <vector>

namespace zeph {

/// A calendar of squares, a column a week. Where `columns` is more than there are weeks, faint
/// squares fill up, so that rows under each other are equally wide. Sizes in points.
struct ContributionHeatmap {
    std::vector<ContributionWeek> weeks;
    std::optional<std::size_t> columns;
    Palette palette;
    double cell = 9;
    double gap = 3;

    View body() const;
};

} // namespace zeph
