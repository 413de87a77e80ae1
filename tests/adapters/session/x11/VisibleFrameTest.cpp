// SPDX-License-Identifier: MIT
#include "adapters/session/x11/VisibleFrame.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

const QRectF kFrame(1920, 100, 1280, 800);

} // namespace

TEST(VisibleFrame, isTheFrameWhereNothingIsTaken) {
    EXPECT_EQ(visibleFrame(kFrame, kFrame, {}, 1), kFrame);
}

TEST(VisibleFrame, countsReservedMarginsInDevicePixels) {
    EXPECT_EQ(visibleFrame(kFrame, kFrame, {10, 20, 30, 40}, 1), QRectF(1930, 120, 1240, 740));
    EXPECT_EQ(visibleFrame(kFrame, kFrame, {10, 20, 30, 40}, 2), QRectF(1925, 110, 1260, 770));
}

TEST(VisibleFrame, takesTheInnerOneOfEachSide) {
    const QRectF available = kFrame.marginsRemoved({0, 30, 5, 0});
    EXPECT_EQ(visibleFrame(kFrame, available, {0, 20, 30, 40}, 2), QRectF(1920, 130, 1265, 750));
}

TEST(VisibleFrame, keepsASideOfWhichHalfWouldBeTaken) {
    EXPECT_EQ(visibleFrame(kFrame, kFrame, {0, 400, 0, 399}, 1), QRectF(1920, 100, 1280, 401));
    EXPECT_EQ(visibleFrame(kFrame, QRectF(2560, 100, 640, 800), {}, 1), kFrame);
    EXPECT_EQ(visibleFrame(kFrame, QRectF(), {}, 1), kFrame);
    EXPECT_EQ(visibleFrame(kFrame, kFrame, {0, 798, 0, 0}, 2), QRectF(1920, 499, 1280, 401));
}

TEST(VisibleFrame, neverReachesBeyondTheFrame) {
    EXPECT_EQ(visibleFrame(kFrame, kFrame.marginsAdded({1, 2, 3, 4}), {-5, 0, 0, 0}, 1), kFrame);
}

} // namespace zeph
