// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Color.h"
#include "model/FocusState.h"

namespace zeph {

/// The five colours of the wallpaper.
struct Palette {
    Color top;
    Color bottom;
    Color accent;
    Color text;
    Color cardFill;

    bool operator==(const Palette &) const = default;

    /// From deep blue at night (`mood` 0) to a warm accent at noon (`mood` 1).
    static Palette forMood(double mood, FocusState focus);

    /// Derived from the user's own colour.
    static Palette custom(const Color &base, FocusState focus);
};

} // namespace zeph
