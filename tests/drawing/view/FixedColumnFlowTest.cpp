// SPDX-License-Identifier: MIT
#include "drawing/view/FixedColumnFlow.h"

#include "drawing/view/ViewFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

using ColumnFlow = ViewFixture;

TEST_F(ColumnFlow, withoutChildrenHasNoSize) {
    EXPECT_EQ(measure(columnFlow({}, {})), QSizeF(0, 0));
    EXPECT_EQ(measure(columnFlow({2, 12, {}, 260}, {View()})), QSizeF(0, 0));
}

TEST_F(ColumnFlow, threeCardsMakeTwoRows) {
    const auto card = [](const QString &name) {
        return onCard(text(name, plain()), 12, Color::white(0.06));
    };
    const View view = columnFlow({}, {card(u"one"_s), card(u"two"_s), card(u"three"_s)});
    EXPECT_EQ(measure(view), QSizeF(240 + 12 + 240, 12 + 12 + 12));
    EXPECT_EQ(shapes(view, QRectF(48, 28, 492, 36)),
              std::vector<QRectF>(
                  {QRectF(48, 28, 240, 12), QRectF(300, 28, 240, 12), QRectF(48, 52, 240, 12)}));
}

TEST_F(ColumnFlow, oneChildTakesOneColumn) {
    EXPECT_EQ(measure(columnFlow({}, {box(10, 20)})), QSizeF(240, 20));
}

TEST_F(ColumnFlow, cardsOfARowAreEquallyTall) {
    const auto card = [](const View &content) { return onCard(content, 12, Color::white(0.06)); };
    const View tall = verticalStack(0, {text(u"a"_s, plain()), text(u"b"_s, plain())});
    const View view = columnFlow({}, {card(text(u"a"_s, plain())), card(tall)});
    const auto rects = shapes(view, QRectF(0, 0, 492, 24));
    EXPECT_EQ(rects[0].height(), 24);
    EXPECT_EQ(rects[1].height(), 24);
}

TEST_F(ColumnFlow, rowHeightIsMeasuredAtTheColumnsWidth) {
    const View view = columnFlow({2, 10, 70.0, 260}, {wrappingText(u"one two three"_s, plain())});
    EXPECT_EQ(measure(view), QSizeF(70, 24));
}

TEST_F(ColumnFlow, withoutAFixedWidthTheWidestChildCountsUpToTheCap) {
    const FixedColumnFlow flow{2, 10, {}, 100};
    EXPECT_EQ(measure(columnFlow(flow, {box(30, 5), box(80, 5)})), QSizeF(170, 5));
    EXPECT_EQ(measure(columnFlow(flow, {box(30, 5), box(300, 5)})), QSizeF(210, 5));
}

TEST_F(ColumnFlow, fewerThanOneColumnMeansOne) {
    EXPECT_EQ(measure(columnFlow({0, 10, 50.0, 260}, {box(50, 5), box(50, 5)})), QSizeF(50, 20));
}

TEST_F(ColumnFlow, longTextIsCutToItsColumn) {
    const View view = columnFlow({2, 10, 60.0, 260}, {text(u"Hello world"_s, plain())});
    EXPECT_EQ(texts(view, QRectF(0, 0, 60, 12)).at(0).text, u"Hello…"_s);
}

} // namespace zeph
