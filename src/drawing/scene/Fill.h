// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Color.h"

#include <optional>

namespace zeph {

/// A plain colour, or with `end` a gradient from left (`start`) to right (`end`).
struct Fill {
    Color start;
    std::optional<Color> end;

    bool operator==(const Fill &) const = default;
};

} // namespace zeph
