// SPDX-License-Identifier: MIT
#include "ui/onboarding/Dawn.h"

#include "drawing/painting/DitherPattern.h"

#include <QLinearGradient>
#include <QPainter>

#include <array>
#include <cmath>

namespace zeph::ui {

namespace {

using Light = std::array<float, 3>; // red, green and blue, 0 to 255

constexpr float full = 255;
constexpr Light nightTop{0.07F * full, 0.08F * full, 0.16F * full};
constexpr Light nightBottom{0.02F * full, 0.02F * full, 0.05F * full};
constexpr Light nearLight{255, 201, 153};
constexpr Light farLight{150, 72, 128};

constexpr double sunWidth = 92;
constexpr double firstSight = 2; // of the sun's height, at the start
constexpr double climb = 44;

/// The centre of the sun in a sky of this size.
QPointF sunCenter(const QSizeF &sky, double unit, double rise) {
    const double seen = (firstSight + climb * rise) * unit;
    return {sky.width() / 2, sky.height() - seen + sunWidth / 2 * unit};
}

/// The light around the sun at some distance from it: how much of the near and of the far glow
/// covers what lies behind.
struct Glow {
    explicit Glow(double unit, double rise)
        : nearReach(static_cast<float>((150 + 110 * rise) * unit)),
          nearCover(static_cast<float>(0.16 + 0.26 * rise)),
          nearMiddle(static_cast<float>(0.05 + 0.09 * rise)),
          farReach(static_cast<float>((330 + 90 * rise) * unit)),
          farCover(static_cast<float>(0.14 + 0.22 * rise)) {}

    float coverNear(float distance) const {
        constexpr float middle = 0.45F; // of the way
        const float way = distance / nearReach;
        if (way >= 1) {
            return 0;
        }
        return way < middle ? nearCover + (nearMiddle - nearCover) * way / middle
                            : nearMiddle * (1 - way) / (1 - middle);
    }

    float coverFar(float distance) const {
        return distance < farReach ? farCover * (1 - distance / farReach) : 0;
    }

    float nearReach;
    float nearCover;
    float nearMiddle;
    float farReach;
    float farCover;
};

float mixed(float from, float to, float part) {
    return from + (to - from) * part;
}

/// What is the same for a whole row: the night, and the pattern that dithers it.
struct Row {
    Row(int y, int height) {
        const float down = (static_cast<float>(y) + 0.5F) / static_cast<float>(height);
        for (std::size_t channel = 0; channel < night.size(); ++channel) {
            night.at(channel) = mixed(nightTop.at(channel), nightBottom.at(channel), down);
        }
        for (int x = 0; x < ditherSide; ++x) {
            lifts.at(static_cast<std::size_t>(x)) = ditherThreshold(x, y % ditherSide);
        }
    }

    Light night{};
    std::array<float, ditherSide> lifts{};
};

quint32 pixelOf(const Row &row, int x, float nearCover, float farCover) {
    const float lift = row.lifts[static_cast<std::size_t>(x % ditherSide)];
    quint32 pixel = 0xff;
    for (std::size_t channel = 0; channel < row.night.size(); ++channel) {
        const float dusk = mixed(row.night[channel], farLight[channel], farCover);
        const float light = mixed(dusk, nearLight[channel], nearCover);
        pixel = pixel << 8 | static_cast<quint32>(light + lift);
    }
    return pixel;
}

/// Row `y` of the sky, of which `sun` is the centre of the light.
void paintRow(quint32 *pixels, const QSize &size, int y, const Glow &glow, const QPointF &sun) {
    const Row row(y, size.height());
    const float away = static_cast<float>(y) + 0.5F - static_cast<float>(sun.y());
    const auto center = static_cast<float>(sun.x());
    for (int x = 0; x < size.width(); ++x) {
        const float across = static_cast<float>(x) + 0.5F - center;
        const float distance = std::sqrt(across * across + away * away);
        pixels[x] = pixelOf(row, x, glow.coverNear(distance), glow.coverFar(distance));
    }
}

} // namespace

QImage dawnSky(const QSize &pixels, double unit, double rise) {
    QImage sky(pixels, QImage::Format_RGB32);
    const Glow glow(unit, rise);
    const QPointF sun = sunCenter(pixels, unit, rise);
    for (int y = 0; y < pixels.height(); ++y) {
        paintRow(reinterpret_cast<quint32 *>(sky.scanLine(y)), pixels, y, glow, sun);
    }
    return sky;
}

void paintSun(QPainter &painter, const QRectF &sky, double unit, double rise) {
    const double width = sunWidth * unit;
    QRectF disc(0, 0, width, width);
    disc.moveCenter(sky.topLeft() + sunCenter(sky.size(), unit, rise));
    constexpr double lowestLight = 0.58; // of the disc; deeper it is all of one colour
    QLinearGradient light(disc.topLeft(), disc.bottomLeft());
    light.setColorAt(0, QColor::fromRgb(0xFF, 0xE9, 0xBD));
    light.setColorAt(lowestLight, QColor::fromRgb(0xFF, 0xB7, 0x87));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(disc);
    painter.restore();
}

} // namespace zeph::ui
