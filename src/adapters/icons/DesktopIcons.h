// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QSizeF>

#include <vector>

namespace zeph {

/// The icons that a desktop program shows, as its own arrangement tells. All lengths are in points.
struct DesktopIcons {
    /// What `places` are measured from.
    enum class Origin { desktop, workArea };

    Origin origin = Origin::desktop;
    QSizeF cell = {};                 ///< of one icon with its name and what is free around both
    std::vector<QPointF> places = {}; ///< top left corners of the cells
    int unplaced = 0; ///< further icons, which the program lays out from the top left, column by
                      ///< column
    bool isFromRight = false; ///< the first of those columns is the one at the right

    bool operator==(const DesktopIcons &) const = default;
};

} // namespace zeph
