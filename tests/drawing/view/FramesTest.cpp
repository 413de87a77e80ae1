// SPDX-License-Identifier: MIT
#include "drawing/view/ViewFixture.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace zeph {

using Frames = ViewFixture;

TEST_F(Frames, fixedSidesReplaceTheContentsOwn) {
    FrameSpec frame;
    frame.height = 24;
    EXPECT_EQ(measure(framed(text(u"Hello"_s, plain()), frame)), QSizeF(50, 24));
    frame.width = 80;
    EXPECT_EQ(measure(framed(text(u"Hello"_s, plain()), frame), {20.0, {}}), QSizeF(80, 24));
}

TEST_F(Frames, alignTheContent) {
    const auto origin = [&](HorizontalAlignment horizontal, VerticalAlignment vertical) {
        FrameSpec frame{80.0, 24.0, {}, horizontal, vertical};
        return texts(framed(text(u"Hello"_s, plain()), frame), QRectF(100, 200, 80, 24))[0].origin;
    };
    EXPECT_EQ(origin(HorizontalAlignment::leading, VerticalAlignment::top), QPointF(100, 200));
    EXPECT_EQ(origin(HorizontalAlignment::center, VerticalAlignment::center), QPointF(115, 206));
    EXPECT_EQ(origin(HorizontalAlignment::trailing, VerticalAlignment::bottom), QPointF(130, 212));
}

TEST_F(Frames, longTextIsCutToTheFrame) {
    FrameSpec frame;
    frame.width = 60;
    const View view = framed(text(u"Hello world"_s, plain()), frame);
    EXPECT_EQ(texts(view, QRectF(0, 0, 60, 12))[0].text, u"Hello…"_s);
}

TEST_F(Frames, maxWidthLimitsOnlyWhatIsWider) {
    FrameSpec frame;
    frame.maxWidth = 75;
    const View wide = framed(wrappingText(u"one two three"_s, plain()), frame);
    EXPECT_EQ(measure(wide), QSizeF(70, 24));
    EXPECT_EQ(measure(wide, {35.0, {}}), QSizeF(30 + 5 - 5, 12 * 4));
    EXPECT_EQ(measure(framed(text(u"ab"_s, plain()), frame)), QSizeF(20, 12));
}

TEST_F(Frames, paddingSurroundsTheContent) {
    const View view = padded(text(u"Hello world"_s, plain()), {14, 12});
    EXPECT_EQ(measure(view), QSizeF(138, 36));
    EXPECT_EQ(measure(view, {88.0, {}}), QSizeF(88, 36));
    const auto items = texts(view, QRectF(0, 0, 88, 36));
    EXPECT_EQ(items[0].origin, QPointF(14, 12));
    EXPECT_EQ(items[0].text, u"Hello…"_s);
}

TEST_F(Frames, cardFillsThePlaceItIsGiven) {
    const View card = onCard(text(u"Hi"_s, plain()), 12, Color::white(0.06));
    EXPECT_EQ(measure(card), QSizeF(20, 12));
    const auto items = place(card, QRectF(5, 6, 240, 80));
    ASSERT_EQ(items.size(), 2U);
    const auto &shape = std::get<ShapeItem>(items[0]);
    EXPECT_EQ(shape.rect, QRectF(5, 6, 240, 80));
    EXPECT_EQ(shape.cornerRadius, 12);
    EXPECT_EQ(shape.fill, (Fill{Color::white(0.06), {}}));
    EXPECT_EQ(std::get<TextItem>(items[1]).origin, QPointF(5, 6));
}

} // namespace zeph
