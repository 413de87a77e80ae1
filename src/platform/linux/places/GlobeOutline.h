// SPDX-License-Identifier: MIT
#pragma once

#include "core/values/Coordinate.h"

#include <span>

namespace zeph {

/// A part of the globe and its name, as a simple polygon on the map of straight meridians.
/// Longitudes may go on beyond 180 degrees.
struct GlobeOutline {
    const char *name; ///< UTF-8, may be empty
    std::span<const Coordinate> corners;
};

/// The first of `outlines` that holds `position`, null when none does.
const GlobeOutline *outlineAt(std::span<const GlobeOutline> outlines, const Coordinate &position);

} // namespace zeph
