// SPDX-License-Identifier: MIT
#pragma once

#include "golden/Painted.h"
#include "golden/SampleDay.h"

namespace zeph {

/// Paints views of the sample day on the wallpaper's own colour.
class WidgetSheet : public SampleDay {
protected:
    WidgetSheet();

    /// The views under each other with a border around each, two device pixels a point.
    QImage sheet(const std::vector<View> &views);

    static constexpr QSizeF available{1184, 744};

    Painted painted;
};

} // namespace zeph
