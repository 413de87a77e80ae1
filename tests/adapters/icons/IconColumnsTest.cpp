// SPDX-License-Identifier: MIT
#include "adapters/icons/IconColumns.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

const QRectF kFrame(0, 0, 1200, 800);
const IconScreen kScreen{kFrame, kFrame};
const QSizeF kCell(100, 100);

DesktopIcons at(std::vector<QPointF> places) {
    return {.cell = kCell, .places = std::move(places)};
}

QMarginsF sides(double left, double right) {
    return {left, 0, right, 0};
}

QMarginsF columns(const DesktopIcons &icons) {
    return iconColumns(icons, kScreen, kFrame);
}

} // namespace

TEST(IconColumns, areNoneWithoutIcons) {
    EXPECT_EQ(columns(at({})), sides(0, 0));
    EXPECT_EQ(columns({}), sides(0, 0));
}

TEST(IconColumns, ofWhatTheProgramLaysOutBeginAtItsSide) {
    // Eight rows, so that nine icons are two columns.
    EXPECT_EQ(columns({.cell = kCell, .unplaced = 9}), sides(200, 0));
    EXPECT_EQ(columns({.cell = kCell, .unplaced = 9, .isFromRight = true}), sides(0, 200));
}

TEST(IconColumns, reachToTheEndOfTheInnermostIcon) {
    EXPECT_EQ(columns(at({{0, 0}})), sides(100, 0));
    EXPECT_EQ(columns(at({{0, 0}, {200, 300}, {100, 0}})), sides(300, 0));
    EXPECT_EQ(columns(at({{1100, 0}, {990, 0}})), sides(0, 210));
}

TEST(IconColumns, leaveOutIconsInTheMiddle) {
    EXPECT_EQ(columns(at({{0, 0}, {550, 350}})), sides(100, 0));
    EXPECT_EQ(columns(at({{351, 0}})), sides(0, 0)) << "its middle is beyond the third";
    EXPECT_EQ(columns(at({{349, 0}})), sides(400, 0));
}

TEST(IconColumns, takeAtMostAThirdOfTheWidthTogether) {
    EXPECT_EQ(columns(at({{340, 0}})), sides(400, 0)) << "cut";
    EXPECT_EQ(columns(at({{0, 0}, {200, 0}, {1000, 0}})), sides(300, 100));
    EXPECT_EQ(columns(at({{0, 0}, {1000, 0}, {800, 0}})), sides(0, 400));
}

TEST(IconColumns, countOnlyTheIconsOfTheScreen) {
    const IconScreen right{QRectF(1200, 0, 1200, 800), QRectF(1200, 0, 1200, 800)};
    const QRectF both(0, 0, 2400, 800);
    const auto icons = at({{0, 0}, {1250, 0}, {3000, 0}, {0, -500}});
    EXPECT_EQ(iconColumns(icons, right, both), sides(150, 0));
    EXPECT_EQ(iconColumns(icons, kScreen, both), sides(100, 0));
}

TEST(IconColumns, ofAGridAreMeasuredFromTheWorkArea) {
    auto icons = at({{10, 0}});
    icons.origin = DesktopIcons::Origin::workArea;
    EXPECT_EQ(iconColumns(icons, kScreen, kFrame.adjusted(60, 0, 0, 0)), sides(170, 0));
}

TEST(IconColumns, ofIconsWithoutAPlaceFillFromTheTopLeft) {
    DesktopIcons icons{.cell = kCell, .unplaced = 8};
    EXPECT_EQ(columns(icons), sides(100, 0)) << "eight in a column";
    icons.unplaced = 9;
    EXPECT_EQ(columns(icons), sides(200, 0));
    EXPECT_EQ(iconColumns(icons, kScreen, kFrame.adjusted(30, 90, 0, 0)), sides(230, 0));
    icons.unplaced = 1'000'000'000;
    EXPECT_EQ(columns(icons).left(), 400);
}

TEST(IconMargins, areTheColumnsWhereTheyLeaveNoIconBeside) {
    DesktopIcons icons = at({{0, 0}, {100, 0}, {200, 0}});
    EXPECT_EQ(iconMargins(icons, kScreen, kFrame), sides(300, 0));
    icons.areInRows = true;
    EXPECT_EQ(iconMargins(icons, kScreen, kFrame), sides(300, 0));
    EXPECT_EQ(iconMargins({}, kScreen, kFrame), sides(0, 0));
}

TEST(IconMargins, areTheRowsOfIconsThatReachFurther) {
    DesktopIcons icons = at({{0, 0}, {300, 0}, {400, 100}});
    EXPECT_EQ(iconMargins(icons, kScreen, kFrame), sides(400, 0));
    icons.areInRows = true;
    EXPECT_EQ(iconMargins(icons, kScreen, kFrame), QMarginsF(0, 200, 0, 0));
    icons.places.emplace_back(400, 200);
    EXPECT_EQ(iconMargins(icons, kScreen, kFrame), sides(400, 0)) << "more than a third";
    icons.places.back() = {5000, 700};
    EXPECT_EQ(iconMargins(icons, kScreen, kFrame), QMarginsF(0, 200, 0, 0)) << "on another screen";
}

TEST(IconColumns, ofAScreenLowerThanAnIconAreStillColumns) {
    EXPECT_EQ(iconColumns({.cell = kCell, .unplaced = 2}, {{0, 0, 1200, 120}, {0, 0, 1200, 50}},
                          {0, 0, 1200, 50}),
              sides(200, 0));
}

} // namespace zeph
