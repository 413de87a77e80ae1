// SPDX-License-Identifier: MIT
#include "drawing/palette/Color.h"

#include <algorithm>
#include <cmath>

namespace zeph {

namespace {

quint32 byteOf(double channel) {
    return static_cast<quint32>(std::lround(std::clamp(channel, 0.0, 1.0) * 255));
}

bool isHexDigit(QChar character) {
    return (character >= u'0' && character <= u'9') || (character >= u'a' && character <= u'f') ||
           (character >= u'A' && character <= u'F');
}

} // namespace

std::optional<Color> Color::fromHex(const QString &text) {
    QStringView digits = QStringView(text).trimmed();
    if (digits.startsWith(u'#')) {
        digits = digits.mid(1);
    }
    if (digits.size() != 6 || !std::all_of(digits.begin(), digits.end(), isHexDigit)) {
        return std::nullopt;
    }
    const auto channel = [&](qsizetype at) { return digits.mid(at, 2).toInt(nullptr, 16) / 255.0; };
    return Color{channel(0), channel(2), channel(4), 1};
}

Color Color::fromHSB(double hue, double saturation, double brightness) {
    const double turn = (hue - std::floor(hue)) * 6;
    const double low = brightness * (1 - saturation);
    const double within = turn - std::floor(turn);
    const double falling = brightness * (1 - saturation * within);
    const double rising = brightness * (1 - saturation * (1 - within));
    switch (static_cast<int>(turn)) {
    case 0:
        return {brightness, rising, low, 1};
    case 1:
        return {falling, brightness, low, 1};
    case 2:
        return {low, brightness, rising, 1};
    case 3:
        return {low, falling, brightness, 1};
    case 4:
        return {rising, low, brightness, 1};
    default:
        return {brightness, low, falling, 1};
    }
}

Color Color::mix(const Color &other, double fraction) const {
    const double part = std::clamp(fraction, 0.0, 1.0);
    const auto between = [part](double from, double to) { return from + part * (to - from); };
    return {between(red, other.red), between(green, other.green), between(blue, other.blue), 1};
}

QString Color::hexString() const {
    return QString::asprintf("#%02X%02X%02X", byteOf(red), byteOf(green), byteOf(blue));
}

quint32 Color::argb() const {
    return byteOf(alpha) << 24 | byteOf(red) << 16 | byteOf(green) << 8 | byteOf(blue);
}

HSB hsb(const Color &color) {
    const double high = std::max({color.red, color.green, color.blue});
    const double low = std::min({color.red, color.green, color.blue});
    const double span = high - low;
    HSB result{0, 0, high};
    if (span <= 0) {
        return result;
    }
    result.saturation = span / high;
    double sixths = 0;
    if (high == color.red) {
        sixths = (color.green - color.blue) / span;
    } else if (high == color.green) {
        sixths = 2 + (color.blue - color.red) / span;
    } else {
        sixths = 4 + (color.red - color.green) / span;
    }
    result.hue = (sixths < 0 ? sixths + 6 : sixths) / 6;
    return result;
}

} // namespace zeph
