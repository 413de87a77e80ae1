// SPDX-License-Identifier: MIT
#include "drawing/view/ViewFixture.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace zeph {

using TextView = ViewFixture;

TEST_F(TextView, idealSizeIsThatOfTheLine) {
    EXPECT_EQ(measure(text(u"Hello"_s, plain())), QSizeF(50, 12));
    EXPECT_EQ(measure(text(u"Hello"_s, plain()), {200.0, 5.0}), QSizeF(50, 12));
}

TEST_F(TextView, emptyTextIsStillALineHigh) {
    EXPECT_EQ(measure(text(u""_s, plain())), QSizeF(0, 12));
    EXPECT_TRUE(place(text(u""_s, plain()), QRectF(0, 0, 100, 12)).empty());
}

TEST_F(TextView, isCutAtTheTailWhenOfferedLess) {
    const View view = text(u"Hello world"_s, plain());
    EXPECT_EQ(measure(view, {65.0, {}}), QSizeF(60, 12));
    const auto items = texts(view, QRectF(3, 4, 65, 12));
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].text, u"Hello…"_s);
    EXPECT_EQ(items[0].origin, QPointF(3, 4));
    EXPECT_EQ(items[0].scale, 1);
}

TEST_F(TextView, staysTheSameInTheWidthItMeasured) {
    const View view = text(u"Hello world"_s, plain());
    const QSizeF size = measure(view, {65.0, {}});
    EXPECT_EQ(texts(view, QRectF(QPointF(0, 0), size))[0].text, u"Hello…"_s);
}

TEST_F(TextView, lineBreaksInANameBecomeSpaces) {
    const auto items = texts(text(u"a\nb\tc\u2028d"_s, plain()), QRectF(0, 0, 500, 12));
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].text, u"a b c d"_s);
}

TEST_F(TextView, wrappingTextTakesAsManyLinesAsItNeeds) {
    const View view = wrappingText(u"one two three"_s, plain());
    EXPECT_EQ(measure(view), QSizeF(130, 12));
    EXPECT_EQ(measure(view, {75.0, {}}), QSizeF(70, 24));
    const auto items = texts(view, QRectF(5, 6, 75, 24));
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].text, u"one two"_s);
    EXPECT_EQ(items[0].origin, QPointF(5, 6));
    EXPECT_EQ(items[1].text, u"three"_s);
    EXPECT_EQ(items[1].origin, QPointF(5, 18));
}

TEST_F(TextView, linesThatReadFromTheRightStartThere) {
    const View view = wrappingText(u"שלום עולם טוב\nab"_s, plain());
    const auto items = texts(view, QRectF(5, 6, 95, 36));
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].text, u"שלום עולם"_s);
    EXPECT_EQ(items[0].origin, QPointF(10, 6));
    EXPECT_EQ(items[1].text, u"טוב"_s);
    EXPECT_EQ(items[1].origin, QPointF(70, 18));
    EXPECT_EQ(items[2].origin, QPointF(5, 30));
}

} // namespace zeph
