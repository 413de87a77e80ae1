// SPDX-License-Identifier: MIT
#include "drawing/palette/Palette.h"

#include <algorithm>

namespace zeph {

namespace {

constexpr Color nightTop{0.05, 0.06, 0.12, 1};
constexpr Color nightBottom{0.02, 0.02, 0.05, 1};
constexpr Color nightAccent{0.45, 0.55, 0.95, 1};
constexpr Color dayTop{0.10, 0.13, 0.22, 1};
constexpr Color dayBottom{0.04, 0.05, 0.09, 1};
constexpr Color dayAccent{0.95, 0.72, 0.45, 1};
constexpr Color focusViolet{0.60, 0.45, 0.90, 1};

/// An unknown state of Focus leaves the accent alone.
Color focused(const Color &accent, FocusState focus) {
    return focus == FocusState::on ? accent.mix(focusViolet, 0.5) : accent;
}

Color customAccent(const Color &base) {
    const HSB parts = hsb(base);
    return Color::fromHSB(parts.hue, std::clamp(parts.saturation * 1.1, 0.35, 1.0),
                          std::min(parts.brightness * 1.5 + 0.35, 1.0));
}

Color readableOn(const Color &base) {
    const double lightness = 0.3 * base.red + 0.6 * base.green + 0.1 * base.blue;
    return lightness > 0.55 ? Color::black(0.82) : Color::white(0.93);
}

} // namespace

Palette Palette::forMood(double mood, FocusState focus) {
    Palette palette;
    palette.top = nightTop.mix(dayTop, mood);
    palette.bottom = nightBottom.mix(dayBottom, mood);
    palette.accent = focused(nightAccent.mix(dayAccent, mood), focus);
    palette.text = Color::white(0.95);
    palette.cardFill = Color::white(0.06);
    return palette;
}

Palette Palette::custom(const Color &base, FocusState focus) {
    Palette palette;
    palette.top = base.mix(Color::white(), 0.05);
    palette.bottom = base.mix(Color::black(), 0.35);
    palette.accent = focused(customAccent(base), focus);
    palette.text = readableOn(base);
    palette.cardFill = Color::white(0.06);
    return palette;
}

} // namespace zeph
