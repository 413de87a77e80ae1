// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <cstdint>
#include <optional>
#include <vector>

namespace zeph {

/// The rectangles of a property that has four numbers for each: place, width and height in device
/// pixels. Left out are those that are larger, or farther away, than the X protocol can tell of.
std::vector<QRect> rectanglesIn(const std::vector<std::uint32_t> &numbers);

/// The one of `areas` that lies on this monitor, cut off at its edges; absent where none does. Of
/// several it is the one that leaves most of it.
std::optional<QRect> areaOn(const QRect &monitor, const std::vector<QRect> &areas);

} // namespace zeph
