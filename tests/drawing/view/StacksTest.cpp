// SPDX-License-Identifier: MIT
#include "drawing/view/ViewFixture.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace zeph {

using Stacks = ViewFixture;

TEST_F(Stacks, emptyStackIsTheEmptyView) {
    EXPECT_TRUE(verticalStack(10, {}).isEmpty());
    EXPECT_TRUE(horizontalStack(10, {View(), View()}).isEmpty());
    EXPECT_EQ(measure(View()), QSizeF(0, 0));
    EXPECT_TRUE(place(View(), QRectF(0, 0, 10, 10)).empty());
}

TEST_F(Stacks, verticalStackAddsHeightsAndSpacing) {
    const View stack = verticalStack(10, {box(30, 20), box(50, 5)});
    EXPECT_EQ(measure(stack), QSizeF(50, 35));
    EXPECT_EQ(shapes(stack, QRectF(1, 2, 50, 35)),
              std::vector<QRectF>({QRectF(1, 2, 30, 20), QRectF(1, 32, 50, 5)}));
}

TEST_F(Stacks, emptyViewsTakeNoSpacing) {
    EXPECT_EQ(measure(verticalStack(10, {View(), box(30, 20), View(), box(30, 20), View()})),
              QSizeF(30, 50));
    EXPECT_EQ(measure(horizontalStack(10, {box(30, 20), View(), box(30, 20)})), QSizeF(70, 20));
}

TEST_F(Stacks, verticalStackAligns) {
    const std::vector<View> children{box(30, 10), box(50, 10)};
    const QRectF rect(0, 0, 50, 20);
    EXPECT_EQ(shapes(verticalStack(0, children, HorizontalAlignment::center), rect)[0].x(), 10);
    EXPECT_EQ(shapes(verticalStack(0, children, HorizontalAlignment::trailing), rect)[0].x(), 20);
}

TEST_F(Stacks, verticalStackOffersItsWidthToEachChild) {
    const View stack = verticalStack(0, {text(u"Hello world"_s, plain()), text(u"Hi"_s, plain())});
    EXPECT_EQ(measure(stack, {60.0, {}}), QSizeF(60, 24));
    const auto items = texts(stack, QRectF(0, 0, 60, 24));
    EXPECT_EQ(items[0].text, u"Hello…"_s);
    EXPECT_EQ(items[1].text, u"Hi"_s);
}

TEST_F(Stacks, horizontalStackAddsWidthsAndSpacing) {
    const View stack = horizontalStack(10, {box(30, 20), box(50, 5)});
    EXPECT_EQ(measure(stack), QSizeF(90, 20));
    EXPECT_EQ(shapes(stack, QRectF(1, 2, 90, 20)),
              std::vector<QRectF>({QRectF(1, 2, 30, 20), QRectF(41, 9.5, 50, 5)}));
}

TEST_F(Stacks, horizontalStackAligns) {
    const std::vector<View> children{box(30, 10), box(50, 30)};
    const QRectF rect(0, 0, 80, 30);
    EXPECT_EQ(shapes(horizontalStack(0, children, VerticalAlignment::top), rect)[0].y(), 0);
    EXPECT_EQ(shapes(horizontalStack(0, children, VerticalAlignment::bottom), rect)[0].y(), 20);
}

TEST_F(Stacks, textGivesWayToIconsAndFixedFrames) {
    const View stack =
        horizontalStack(10, {box(20, 20), text(u"A rather long name"_s, plain()), box(40, 20)});
    EXPECT_EQ(measure(stack, {150.0, {}}).width(), 150);
    const auto items = texts(stack, QRectF(0, 0, 150, 20));
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].text, u"A rath…"_s);
    EXPECT_EQ(items[0].origin, QPointF(30, 4));
    EXPECT_EQ(shapes(stack, QRectF(0, 0, 150, 20))[1], QRectF(120 - 10, 0, 40, 20));
}

TEST_F(Stacks, twoLongTextsShareTheRoomAndAShortOneKeepsItsOwn) {
    const View stack = horizontalStack(0, {text(u"abcdefghijkl"_s, plain()), text(u"xy"_s, plain()),
                                           text(u"mnopqrstuvwx"_s, plain())});
    const auto items = texts(stack, QRectF(0, 0, 120, 12));
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].text, u"abcd…"_s);
    EXPECT_EQ(items[1].text, u"xy"_s);
    EXPECT_EQ(items[2].text, u"mnop…"_s);
}

TEST_F(Stacks, moreRoomThanNeededChangesNothing) {
    const View stack = horizontalStack(5, {text(u"ab"_s, plain()), text(u"cd"_s, plain())});
    EXPECT_EQ(measure(stack, {500.0, {}}), QSizeF(45, 12));
}

TEST_F(Stacks, noRoomAtAllDrawsNoText) {
    const View stack = horizontalStack(5, {text(u"ab"_s, plain()), text(u"cd"_s, plain())});
    EXPECT_TRUE(place(stack, QRectF(0, 0, 0, 12)).empty());
}

} // namespace zeph
