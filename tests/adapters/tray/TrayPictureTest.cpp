// SPDX-License-Identifier: MIT
#include "adapters/tray/TrayPicture.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

/// One covered pixel in the middle of nothing.
QImage dot() {
    QImage mask(5, 5, QImage::Format_Alpha8);
    mask.fill(0);
    mask.scanLine(2)[2] = 0xFF;
    return mask;
}

TEST(TrayPicture, inkCoversWhatTheMaskCovers) {
    const QImage picture = inkedPicture(dot(), QColor(10, 20, 30));
    EXPECT_EQ(picture.size(), QSize(5, 5));
    EXPECT_EQ(picture.pixel(2, 2), qRgba(10, 20, 30, 255));
    EXPECT_EQ(qAlpha(picture.pixel(1, 2)), 0);
}

TEST(TrayPicture, theInkStandsOutFromItsGround) {
    QImage ground(4, 4, QImage::Format_RGB32);
    ground.fill(QColor(40, 40, 60));
    EXPECT_GT(inkOn(ground).lightness(), 200);
    ground.fill(QColor(240, 240, 230));
    EXPECT_LT(inkOn(ground).lightness(), 60);
}

TEST(TrayPicture, aSeamIsDarkAllAroundTheLight) {
    const QImage picture = seamedPicture(dot(), 1);
    EXPECT_EQ(picture.size(), QSize(7, 7));
    EXPECT_GT(qGray(picture.pixel(3, 3)), 200);
    for (const QPoint &place : {QPoint(2, 2), QPoint(3, 2), QPoint(4, 4), QPoint(2, 3)}) {
        EXPECT_EQ(qAlpha(picture.pixel(place)), 255);
        EXPECT_LT(qGray(picture.pixel(place)), 60);
    }
    EXPECT_EQ(qAlpha(picture.pixel(1, 3)), 0);
}

} // namespace

} // namespace zeph
