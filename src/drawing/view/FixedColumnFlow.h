// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/View.h"

namespace zeph {

/// A grid filled row by row with a fixed number of equally wide columns.
struct FixedColumnFlow {
    int columns = 2;
    double spacing = 12;
    std::optional<double> fixedColumnWidth = 240;
    double maxColumnWidth = 260;
};

View columnFlow(const FixedColumnFlow &flow, std::vector<View> children);

} // namespace zeph
