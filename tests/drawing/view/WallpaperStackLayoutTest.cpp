// SPDX-License-Identifier: MIT
#include "drawing/view/WallpaperStackLayout.h"

#include "drawing/view/ViewFixture.h"

namespace zeph {

namespace {

WallpaperStackLayout::Arrangement arrange(double maxHeight, bool anchorsLast,
                                          const std::vector<QSizeF> &sizes) {
    return WallpaperStackLayout{maxHeight, 24, 56, anchorsLast}.arrange(sizes);
}

} // namespace

TEST(WallpaperStackLayout, withoutViewsThereIsNothing) {
    EXPECT_EQ(arrange(600, false, {}).size, QSizeF(0, 0));
    EXPECT_EQ(arrange(600, true, {}).size, QSizeF(0, 0));
    EXPECT_TRUE(arrange(600, true, {}).frames.empty());
}

TEST(WallpaperStackLayout, theClockAloneLiesInTheBottomLeftCorner) {
    const auto result = arrange(600, true, {QSizeF(200, 150)});
    EXPECT_EQ(result.frames, std::vector<QRectF>({QRectF(0, 450, 200, 150)}));
    EXPECT_EQ(result.size, QSizeF(200, 600));
}

TEST(WallpaperStackLayout, aClockTallerThanTheColumnSitsAtItsTop) {
    const auto result = arrange(100, true, {QSizeF(200, 150)});
    EXPECT_EQ(result.frames[0], QRectF(0, 0, 200, 150));
    EXPECT_EQ(result.size, QSizeF(200, 100));
}

TEST(WallpaperStackLayout, noHeightGivesEachViewAColumnOfItsOwn) {
    const auto result = arrange(1, false, {QSizeF(10, 50), QSizeF(20, 50), QSizeF(30, 50)});
    EXPECT_EQ(result.frames, std::vector<QRectF>({QRectF(0, 0, 10, 50), QRectF(66, 0, 20, 50),
                                                  QRectF(142, 0, 30, 50)}));
    EXPECT_EQ(result.size, QSizeF(172, 50));
}

TEST(WallpaperStackLayout, twoViewsThatJustFitShareAColumn) {
    const std::vector<QSizeF> sizes{QSizeF(100, 300), QSizeF(80, 300)};
    const auto together = arrange(624, false, sizes);
    EXPECT_EQ(together.frames[1], QRectF(0, 324, 80, 300));
    EXPECT_EQ(together.size, QSizeF(100, 624));
    const auto apart = arrange(623, false, sizes);
    EXPECT_EQ(apart.frames[1], QRectF(156, 0, 80, 300));
    EXPECT_EQ(apart.size, QSizeF(236, 300));
}

TEST(WallpaperStackLayout, theFirstColumnIsAtLeastAsWideAsTheClock) {
    const auto result = arrange(500, true, {QSizeF(100, 200), QSizeF(100, 200), QSizeF(260, 150)});
    EXPECT_EQ(result.frames[0], QRectF(0, 0, 100, 200));
    EXPECT_EQ(result.frames[1], QRectF(260 + 56, 0, 100, 200));
    EXPECT_EQ(result.frames[2], QRectF(0, 350, 260, 150));
    EXPECT_EQ(result.size, QSizeF(416, 500));
}

TEST(WallpaperStackLayout, onlyTheFirstColumnMakesRoomForTheClock) {
    // 500 - (100 + 24) leaves 376 in the first column: 176 + 24 + 176. The next one has all 500.
    const std::vector<QSizeF> sizes{QSizeF(50, 176), QSizeF(50, 176), QSizeF(50, 238),
                                    QSizeF(50, 238), QSizeF(50, 100)};
    const auto result = arrange(500, true, sizes);
    EXPECT_EQ(result.frames[1], QRectF(0, 200, 50, 176));
    EXPECT_EQ(result.frames[2], QRectF(106, 0, 50, 238));
    EXPECT_EQ(result.frames[3], QRectF(106, 262, 50, 238));
    EXPECT_EQ(result.frames[4], QRectF(0, 400, 50, 100));
}

TEST(WallpaperStackLayout, aClockWithoutHeightReservesNothing) {
    const auto result = arrange(300, true, {QSizeF(50, 138), QSizeF(50, 138), QSizeF(0, 0)});
    EXPECT_EQ(result.frames[1], QRectF(0, 162, 50, 138));
    EXPECT_EQ(result.frames[2], QRectF(0, 300, 0, 0));
}

TEST(WallpaperStackLayout, aViewTallerThanTheColumnStandsAloneAtItsTop) {
    const auto result = arrange(100, false, {QSizeF(50, 500), QSizeF(60, 40), QSizeF(70, 500)});
    EXPECT_EQ(result.frames, std::vector<QRectF>({QRectF(0, 0, 50, 500), QRectF(106, 0, 60, 40),
                                                  QRectF(222, 0, 70, 500)}));
    EXPECT_EQ(result.size, QSizeF(292, 500));
}

TEST(WallpaperStackLayout, aFlatViewIsTakenAsOnePointHigh) {
    const auto result = arrange(100, false, {QSizeF(50, 0), QSizeF(50, 10)});
    EXPECT_EQ(result.frames[0], QRectF(0, 0, 50, 1));
    EXPECT_EQ(result.frames[1], QRectF(0, 25, 50, 10));
}

TEST(WallpaperStackLayout, aClockThatLeavesNoRoomStillLetsOneViewStandAboveIt) {
    const auto result = arrange(100, true, {QSizeF(50, 30), QSizeF(50, 30), QSizeF(60, 90)});
    EXPECT_EQ(result.frames[0], QRectF(0, 0, 50, 30));
    EXPECT_EQ(result.frames[1], QRectF(116, 0, 50, 30));
}

using WallpaperStack = ViewFixture;

TEST_F(WallpaperStack, placesItsChildrenAtTheirIdealSizes) {
    const View view = wallpaperStack({100, 24, 56, true}, {box(50, 20), box(60, 30)});
    EXPECT_EQ(measure(view, {5.0, 5.0}), QSizeF(60, 100));
    EXPECT_EQ(shapes(view, QRectF(48, 28, 500, 100)),
              std::vector<QRectF>({QRectF(48, 28, 50, 20), QRectF(48, 98, 60, 30)}));
}

TEST_F(WallpaperStack, viewsThatDrawNothingTakeNoRoom) {
    const View view = wallpaperStack({100, 24, 56, false}, {box(50, 20), View(), box(50, 20)});
    EXPECT_EQ(shapes(view, QRectF(0, 0, 500, 100))[1].y(), 44);
    EXPECT_EQ(measure(wallpaperStack({100, 24, 56, false}, {})), QSizeF(0, 0));
}

TEST_F(WallpaperStack, anEmptyAnchorLeavesItsCornerFree) {
    const View view = wallpaperStack({100, 24, 56, true}, {box(50, 20), View()});
    EXPECT_EQ(shapes(view, QRectF(0, 0, 500, 100)), std::vector<QRectF>({QRectF(0, 0, 50, 20)}));
}

} // namespace zeph
