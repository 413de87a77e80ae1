// SPDX-License-Identifier: MIT
#include "drawing/view/ViewFixture.h"
#include "support/QtPrinters.h"

#include <QBuffer>
#include <QImage>

using namespace Qt::StringLiterals;

namespace zeph {

using Shapes = ViewFixture;

namespace {

QByteArray png(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes;
}

} // namespace

TEST_F(Shapes, roundedRectangleTakesWhatItIsOffered) {
    const View view = roundedRectangle(6, Fill{Color::white(), {}});
    EXPECT_EQ(measure(view), QSizeF(10, 10));
    EXPECT_EQ(measure(view, {30.0, {}}), QSizeF(30, 10));
    EXPECT_EQ(measure(view, {30.0, 40.0}), QSizeF(30, 40));
}

TEST_F(Shapes, symbolStandsInTheMiddleOfItsFrame) {
    const View view = symbol(u"sun.max"_s, 15, Color::white(0.9), 24);
    EXPECT_EQ(measure(view, {5.0, {}}), QSizeF(24, 24));
    const auto item = std::get<SymbolItem>(place(view, QRectF(100, 200, 24, 24)).at(0));
    EXPECT_EQ(item.identifier, u"sun.max"_s);
    EXPECT_EQ(item.color, Color::white(0.9));
    EXPECT_EQ(item.box, QRectF(103, 203, 18, 18)); // its strokes span 15 of the 18
}

TEST_F(Shapes, barIsATrackWithAFill) {
    const Fill fill{Color::white(), Color::white(0.5)};
    const auto items =
        place(bar({220, 8}, 6, Color::white(0.08), 55, fill), QRectF(10, 20, 220, 8));
    ASSERT_EQ(items.size(), 2U);
    const QRectF whole(10, 20, 220, 8);
    EXPECT_EQ(std::get<ShapeItem>(items[0]),
              (ShapeItem{whole, 6, Fill{Color::white(0.08), {}}, {}, whole}));
    EXPECT_EQ(std::get<ShapeItem>(items[1]),
              (ShapeItem{QRectF(10, 20, 55, 8), 6, fill, {}, whole}));
}

TEST_F(Shapes, emptyBarDrawsItsTrackAlone) {
    const View view = bar({220, 8}, 6, Color::white(0.08), 0, Fill{Color::white(), {}});
    EXPECT_EQ(measure(view), QSizeF(220, 8));
    EXPECT_EQ(shapes(view, QRectF(0, 0, 220, 8)).size(), 1U);
}

TEST_F(Shapes, heatmapRunsDownItsColumns) {
    const Color lit = Color::white();
    const View view = heatmap({{lit, lit, Color::white(0)}, {lit}}, 9, 3);
    EXPECT_EQ(measure(view), QSizeF(21, 33));
    EXPECT_EQ(shapes(view, QRectF(100, 200, 21, 33)),
              std::vector<QRectF>(
                  {QRectF(100, 200, 9, 9), QRectF(100, 212, 9, 9), QRectF(112, 200, 9, 9)}));
    EXPECT_EQ(std::get<ShapeItem>(place(view, QRectF(0, 0, 21, 33))[0]).cornerRadius, 2);
}

TEST_F(Shapes, heatmapWithoutColumnsHasNoSize) {
    EXPECT_EQ(measure(heatmap({}, 9, 3)), QSizeF(0, 0));
}

TEST_F(Shapes, pictureHasItsFrameAndAnOutline) {
    const QByteArray bytes = png(40, 30);
    const View view = image(bytes, {260, 150}, 12, Color::white(0.08));
    EXPECT_EQ(measure(view, {10.0, {}}), QSizeF(260, 150));
    const auto items = place(view, QRectF(5, 6, 260, 150));
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(std::get<ImageItem>(items[0]), (ImageItem{bytes, QRectF(5, 6, 260, 150), 12}));
    const auto &outline = std::get<ShapeItem>(items[1]);
    EXPECT_FALSE(outline.fill.has_value());
    EXPECT_EQ(outline.outline, Color::white(0.08));
    EXPECT_EQ(outline.rect, QRectF(5, 6, 260, 150));
}

TEST_F(Shapes, bytesThatAreNoPictureAreTheEmptyView) {
    EXPECT_TRUE(image({}, {260, 150}, 12, Color::white()).isEmpty());
    EXPECT_TRUE(image("<html>", {260, 150}, 12, Color::white()).isEmpty());
}

} // namespace zeph
