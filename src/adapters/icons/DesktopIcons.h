// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRect>
#include <QSizeF>

#include <set>
#include <tuple>
#include <vector>

namespace zeph {

/// A cell of a grid: of which row, or of which column where icons go down columns, and where in it.
struct IconCell {
    int stripe = 0;
    int place = 0;

    bool operator==(const IconCell &) const = default;
    bool operator<(const IconCell &other) const {
        return std::tie(stripe, place) < std::tie(other.stripe, other.place);
    }
};

/// The icons of one display, in cells that grow until they fill its work area. Lengths are in the
/// program's own units, of which `display` tells how many there are.
struct DisplayIcons {
    QRect display = {};       ///< where the program knows it to lie
    QSizeF leastCell = {};    ///< before it grows
    int perStripe = 0;        ///< cells; 0 for as many as fit
    bool isByColumns = false; ///< each icon comes below the one before, not beside it
    bool isFromRight = false; ///< the first column is the one at the right
    std::set<IconCell> taken = {};
    int unplaced = 0; ///< further icons, in the first cells that are free

    bool operator==(const DisplayIcons &) const = default;
};

/// The icons that a desktop program shows, as its own arrangement tells. All lengths are in points.
struct DesktopIcons {
    /// What `places` are measured from.
    enum class Origin { desktop, workArea };

    Origin origin = Origin::desktop;
    QSizeF cell = {};                 ///< of one icon with its name and what is free around both
    std::vector<QPointF> places = {}; ///< top left corners of the cells
    int unplaced = 0; ///< further icons, which the program lays out from the top left, column by
                      ///< column
    bool isFromRight = false;                ///< the first of those columns is the one at the right
    bool areInRows = false;                  ///< from the top, each icon beside the one before
    std::vector<DisplayIcons> displays = {}; ///< in place of all that, where each has its own grid
    bool isGuessed = false; ///< the program was asked for its arrangement, and did not tell it

    bool operator==(const DesktopIcons &) const = default;
};

} // namespace zeph
