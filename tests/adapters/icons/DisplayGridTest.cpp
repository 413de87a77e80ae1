// SPDX-License-Identifier: MIT
#include "adapters/icons/DisplayGrid.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

// As Plasma shows them on a display of 1280 × 800 with a panel of 44 pixels below.
const IconScreen kGridScreen{QRectF(0, 0, 1280, 800), QRectF(0, 0, 1280, 756)};

DisplayIcons gridIcons() {
    return {.display = {0, 0, 1280, 800}, .leastCell = {108, 114}};
}

using GridPlaces = std::vector<QPointF>;

} // namespace

TEST(DisplayGrid, cellsGrowUntilTheyFillTheWorkArea) {
    DisplayIcons some = gridIcons();
    some.taken = {{0, 0}, {2, 1}};
    const DesktopIcons placed = placedOn(kGridScreen, some);
    EXPECT_TRUE(placed.areInRows);
    EXPECT_EQ(placed.cell, QSizeF(116, 126)) << "11 columns and 6 rows, as measured";
    EXPECT_EQ(placed.places, (GridPlaces{{0, 0}, {116, 252}}));
}

TEST(DisplayGrid, iconsWithoutAPlaceComeBesideEachOther) {
    DisplayIcons some = gridIcons();
    some.unplaced = 12;
    const GridPlaces places = placedOn(kGridScreen, some).places;
    ASSERT_EQ(places.size(), 12U);
    EXPECT_EQ(places[1], QPointF(116, 0));
    EXPECT_EQ(places[11], QPointF(0, 126)) << "the row is full";
}

TEST(DisplayGrid, orBelowEachOther) {
    DisplayIcons some = gridIcons();
    some.isByColumns = true;
    some.unplaced = 7;
    EXPECT_FALSE(placedOn(kGridScreen, some).areInRows);
    const GridPlaces places = placedOn(kGridScreen, some).places;
    ASSERT_EQ(places.size(), 7U);
    EXPECT_EQ(places[1], QPointF(0, 126));
    EXPECT_EQ(places[6], QPointF(116, 0)) << "the column is full";
}

TEST(DisplayGrid, takesTheFirstCellsThatAreFree) {
    DisplayIcons some = gridIcons();
    some.taken = {{0, 0}, {0, 2}};
    some.unplaced = 2;
    EXPECT_EQ(placedOn(kGridScreen, some).places,
              (GridPlaces{{0, 0}, {116, 0}, {232, 0}, {348, 0}}));
}

TEST(DisplayGrid, beginsAtTheRightWhereItIsToldSo) {
    DisplayIcons some = gridIcons();
    some.isFromRight = true;
    some.taken = {{1, 0}};
    EXPECT_EQ(placedOn(kGridScreen, some).places, (GridPlaces{{1164, 126}}));
}

TEST(DisplayGrid, hasAsManyCellsAsTheProgramTells) {
    DisplayIcons some = gridIcons();
    some.perStripe = 8;
    EXPECT_EQ(placedOn(kGridScreen, some).cell, QSizeF(160, 126));
    some.isByColumns = true;
    EXPECT_EQ(placedOn(kGridScreen, some).cell, QSizeF(116, 94));
}

TEST(DisplayGrid, isMeasuredInTheProgramsOwnUnits) {
    // The program knows nothing of a scale of 2: 2560 × 1600 with icons of twice the size.
    DisplayIcons some{.display = {0, 0, 2560, 1600}, .leastCell = {216, 228}, .taken = {{1, 1}}};
    const DesktopIcons placed = placedOn(kGridScreen, some);
    EXPECT_EQ(placed.cell, QSizeF(116, 126));
    EXPECT_EQ(placed.places, (GridPlaces{{116, 126}}));
}

TEST(DisplayGrid, liesInTheWorkAreaOfItsDisplay) {
    DisplayIcons some = gridIcons();
    some.taken = {{0, 0}};
    const IconScreen second{QRectF(1280, 100, 1280, 800), QRectF(1340, 130, 1220, 770)};
    EXPECT_EQ(placedOn(second, some).places, (GridPlaces{{1340, 130}}));
}

TEST(DisplayGrid, isNoneWithoutASize) {
    DisplayIcons some = gridIcons();
    some.unplaced = 3;
    some.display = {};
    EXPECT_EQ(placedOn(kGridScreen, some), DesktopIcons());
    EXPECT_EQ(placedOn({kGridScreen.frame, {}}, gridIcons()), DesktopIcons());
}

TEST(DisplayGrid, takesNoMoreThanFillIt) {
    DisplayIcons some = gridIcons();
    some.unplaced = 1'000'000'000;
    EXPECT_EQ(placedOn(kGridScreen, some).places.size(), 66U);
}

} // namespace zeph
