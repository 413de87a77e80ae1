// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/View.h"

namespace zeph {

/// Draws its content enlarged or reduced about the top-left corner and takes as much room as the
/// scaled content needs, in whole points.
struct WidgetScaleLayout {
    double scale = 1;
    double baseWidth = 440;
};

View scaledWidget(const WidgetScaleLayout &layout, View content);

} // namespace zeph
