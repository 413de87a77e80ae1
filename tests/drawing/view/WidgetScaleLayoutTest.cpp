// SPDX-License-Identifier: MIT
#include "drawing/view/WidgetScaleLayout.h"

#include "drawing/view/ViewFixture.h"
#include "drawing/view/WallpaperStackLayout.h"

using namespace Qt::StringLiterals;

namespace zeph {

using WidgetScale = ViewFixture;

TEST_F(WidgetScale, withoutContentHasNoSize) {
    EXPECT_EQ(measure(scaledWidget({0.85, 440}, View())), QSizeF(0, 0));
}

TEST_F(WidgetScale, sizeIsRoundedUpToWholePoints) {
    EXPECT_EQ(measure(scaledWidget({0.85, 440}, box(100, 101))), QSizeF(85, 86));
    EXPECT_EQ(measure(scaledWidget({1.3, 440}, box(101, 10))), QSizeF(132, 13));
}

TEST_F(WidgetScale, smallWidgetOfHeight101Takes86PointsOfTheStack) {
    const View stack = wallpaperStack({624, 24, 56, false},
                                      {scaledWidget({0.85, 440}, box(440, 101)), box(10, 10)});
    EXPECT_EQ(shapes(stack, QRectF(0, 0, 400, 624))[1].y(), 86 + 24);
}

TEST_F(WidgetScale, contentIsOfferedTheBaseWidth) {
    const View content = wrappingText(u"one two three"_s, plain());
    EXPECT_EQ(measure(scaledWidget({2, 70}, content), {5.0, 5.0}), QSizeF(140, 48));
}

TEST_F(WidgetScale, everythingGrowsAboutTheTopLeftCorner) {
    const View content =
        verticalStack(4, {text(u"ab"_s, plain()), symbol(u"sun.max"_s, 10, Color::white(), 20),
                          roundedRectangle(3, Fill{Color::white(), {}})});
    const auto items = place(scaledWidget({2, 440}, content), QRectF(100, 200, 0, 0));
    ASSERT_EQ(items.size(), 3U);
    const auto &line = std::get<TextItem>(items[0]);
    EXPECT_EQ(line.origin, QPointF(100, 200));
    EXPECT_EQ(line.scale, 2);
    EXPECT_EQ(line.style.font.size, 10);
    EXPECT_EQ(std::get<SymbolItem>(items[1]).box, QRectF(108, 200 + 2 * (16 + 4), 24, 24));
    const auto &shape = std::get<ShapeItem>(items[2]);
    EXPECT_EQ(shape.rect, QRectF(100, 200 + 2 * 40, 2 * 440, 20));
    EXPECT_EQ(shape.cornerRadius, 6);
}

TEST_F(WidgetScale, scalesMultiplyAndOtherItemsStay) {
    const View inner = scaledWidget({2, 440}, text(u"ab"_s, plain()));
    const View stack = verticalStack(0, {text(u"x"_s, plain()), scaledWidget({3, 440}, inner)});
    const auto items = texts(stack, QRectF(0, 0, 200, 200));
    EXPECT_EQ(items.at(0).scale, 1);
    EXPECT_EQ(items.at(1).scale, 6);
    EXPECT_EQ(items.at(1).origin, QPointF(0, 12));
}

} // namespace zeph
