// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// A colour in sRGB; each channel is 0 to 1, alpha is not premultiplied.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    bool operator==(const Color &) const = default;

    static Color white(double alpha = 1) { return {1, 1, 1, alpha}; }
    static Color black(double alpha = 1) { return {0, 0, 0, alpha}; }

    /// "#RRGGBB" or "RRGGBB", white space around it allowed; absent for any other text.
    static std::optional<Color> fromHex(const QString &text);

    /// Of hue, saturation and brightness, each 0 to 1; opaque.
    static Color fromHSB(double hue, double saturation, double brightness);

    /// Each channel moved toward `other` by `fraction`, held between 0 and 1. Opaque.
    Color mix(const Color &other, double fraction) const;

    /// The same colour with its alpha multiplied by `factor`.
    Color opacity(double factor) const { return {red, green, blue, alpha * factor}; }

    /// "#RRGGBB" in upper case, alpha left out.
    QString hexString() const;

    /// The 8-bit value that this colour becomes on screen, as 0xAARRGGBB.
    quint32 argb() const;
};

/// Hue, saturation and brightness of a colour, each 0 to 1.
struct HSB {
    double hue = 0;
    double saturation = 0;
    double brightness = 0;
};

HSB hsb(const Color &color);

} // namespace zeph
