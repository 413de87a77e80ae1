// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// Distances from the four edges of a rectangle, in points.
struct EdgeInsets {
    double top = 0;
    double leading = 0;
    double bottom = 0;
    double trailing = 0;

    bool operator==(const EdgeInsets &) const = default;
};

} // namespace zeph
