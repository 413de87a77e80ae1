// SPDX-License-Identifier: MIT
#include "drawing/painting/BackdropPainter.h"

#include <QImage>
#include <QRegion>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zeph {

namespace {

AmbientBackground plain(const Color &color) {
    return {color, color, color};
}

QImage painted(const AmbientBackground &background, const QSize &size) {
    QImage image(size, QImage::Format_RGB32);
    paintBackdrop(background, image.rect(), image);
    return image;
}

/// The exact light of a pixel, 0 to 255, worked out layer by layer.
std::array<double, 3> expectedAt(const AmbientBackground &background, const QSize &size, int x,
                                 int y) {
    const double part = (y + 0.5) / size.height();
    const auto bytes = [](const Color &color) {
        return std::array<double, 3>{double(color.argb() >> 16 & 255U),
                                     double(color.argb() >> 8 & 255U), double(color.argb() & 255U)};
    };
    const auto top = bytes(background.top);
    const auto bottom = bytes(background.bottom);
    const auto accent = bytes(background.accent);
    std::array<double, 3> light{};
    for (std::size_t at = 0; at < 3; ++at) {
        light.at(at) = top.at(at) + (bottom.at(at) - top.at(at)) * part;
        for (int index = 0; index < softDiscCount; ++index) {
            const SoftDisc disc = softDisc(background, index, size.width(), size.height());
            const double distance = std::hypot(x + 0.5 - disc.centerX, y + 0.5 - disc.centerY);
            const double alpha = disc.alpha * std::max(0.0, 1 - distance / disc.radius);
            light.at(at) = light.at(at) * (1 - alpha) + accent.at(at) * alpha;
        }
        light.at(at) *= 0.92; // black at 0.08 over all
    }
    return light;
}

const AmbientBackground colourful{{0.9, 0.2, 0.1, 1}, {0.1, 0.3, 0.8, 1}, {0.3, 1, 0.6, 1}};

} // namespace

TEST(BackdropPainter, paintsAWholeScreenAsItPaintsStripsOfIt) {
    const AmbientBackground background =
        AmbientBackground::still(Palette::forMood(0.4, FocusState::off));
    const QImage whole = painted(background, {1921, 1083});
    QImage strips(whole.size(), whole.format());
    for (int top = 0; top < strips.height(); top += 97) {
        paintBackdrop(background, QRect(0, top, strips.width(), 97), strips);
    }
    EXPECT_TRUE(strips == whole);
}

TEST(BackdropPainter, eachPixelIsWithinOneOfItsExactLight) {
    const QSize size(320, 200);
    for (const double energy : {0.0, 0.3, 1.0}) {
        AmbientBackground background = colourful;
        background.energy = energy;
        background.time = energy * 40;
        const QImage image = painted(background, size);
        for (int y = 0; y < size.height(); y += 7) {
            for (int x = 0; x < size.width(); x += 3) {
                const auto light = expectedAt(background, size, x, y);
                const QRgb pixel = image.pixel(x, y);
                ASSERT_LT(std::abs(qRed(pixel) - light[0]), 1.01) << x << ' ' << y;
                ASSERT_LT(std::abs(qGreen(pixel) - light[1]), 1.01) << x << ' ' << y;
                ASSERT_LT(std::abs(qBlue(pixel) - light[2]), 1.01) << x << ' ' << y;
                ASSERT_EQ(qAlpha(pixel), 255);
            }
        }
    }
}

TEST(BackdropPainter, ditheringKeepsTheMean) {
    // 0x14 under the veil is 18.4 everywhere, whatever the discs: they have the same colour.
    const QImage image = painted(plain({20 / 255.0, 20 / 255.0, 20 / 255.0, 1}), {64, 64});
    double sum = 0;
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            const int red = qRed(image.pixel(x, y));
            ASSERT_TRUE(red == 18 || red == 19);
            sum += red;
        }
    }
    EXPECT_NEAR(sum / (64 * 64), 18.4, 0.01);
}

TEST(BackdropPainter, wholeValuesAreNotDithered) {
    const QImage image = painted(plain({25 / 255.0, 50 / 255.0, 100 / 255.0, 1}), {64, 64});
    EXPECT_TRUE(std::all_of(image.bits(), image.bits() + image.sizeInBytes(), [](uchar value) {
        return value == 23 || value == 46 || value == 92 || value == 255;
    }));
}

TEST(BackdropPainter, extremeColoursNeitherOverflowNorUnderflow) {
    const QImage white = painted({Color::white(), Color::white(), Color::black()}, {99, 77});
    const QImage black = painted({Color::black(), Color::black(), Color::black()}, {99, 77});
    EXPECT_LE(qRed(white.pixel(0, 0)), 235);
    EXPECT_GE(qRed(white.pixel(0, 0)), 234);
    EXPECT_EQ(black.pixel(50, 40), qRgb(0, 0, 0));
}

TEST(BackdropPainter, paintsUnderItsClipAloneAndTheSamePixels) {
    const QImage whole = painted(colourful, {700, 90});
    QImage parts(700, 90, QImage::Format_RGB32);
    parts.fill(Qt::magenta);
    const QRegion clip =
        QRegion(3, 5, 13, 40) + QRegion(250, 11, 301, 70) + QRegion(690, 80, 50, 50);
    paintBackdrop(colourful, clip, parts);
    for (int y = 0; y < 90; ++y) {
        for (int x = 0; x < 700; ++x) {
            const QRgb expected =
                clip.contains(QPoint(x, y)) ? whole.pixel(x, y) : qRgb(255, 0, 255);
            ASSERT_EQ(parts.pixel(x, y), expected) << x << ' ' << y;
        }
    }
}

TEST(BackdropPainter, clearsToNothingWhereTheDesktopShowsThrough) {
    QImage transparent(10, 10, QImage::Format_ARGB32_Premultiplied);
    transparent.fill(Qt::red);
    clearBackdrop(QRect(2, 2, 4, 4), transparent);
    EXPECT_EQ(transparent.pixel(2, 2), qRgba(0, 0, 0, 0));
    EXPECT_EQ(transparent.pixel(6, 6), qRgb(255, 0, 0));
    QImage opaque(10, 10, QImage::Format_RGB32);
    opaque.fill(Qt::red);
    clearBackdrop(QRect(2, 2, 4, 4), opaque);
    EXPECT_EQ(opaque.pixel(2, 2), qRgb(0, 0, 0));
}

} // namespace zeph
