// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Color.h"

#include <compare>
#include <optional>

namespace zeph {

enum class FontWeight { thin, light, regular, medium, semibold };

/// `standard` is the interface typeface, `rounded` its round companion.
enum class FontDesign { standard, rounded };

/// A font by its looks; `size` and `letterSpacing` in points. With `evenDigits` all digits take
/// the width of the widest one.
struct FontSpec {
    double size = 17;
    FontWeight weight = FontWeight::regular;
    FontDesign design = FontDesign::standard;
    bool italic = false;
    bool evenDigits = false;
    double letterSpacing = 0;

    auto operator<=>(const FontSpec &) const = default;
};

/// A blurred copy behind a text, in points.
struct TextShadow {
    Color color;
    double radius = 0;
    double offsetY = 0;

    bool operator==(const TextShadow &) const = default;
};

enum class TextAlignment { leading, trailing };

/// How a text is drawn.
struct TextStyle {
    FontSpec font;
    Color color;
    std::optional<TextShadow> shadow;

    bool operator==(const TextStyle &) const = default;
};

} // namespace zeph
