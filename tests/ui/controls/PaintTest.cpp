// SPDX-License-Identifier: MIT
#include "ui/controls/Paint.h"
#include "support/WindowFixture.h"

#include <QPainter>

namespace zeph::ui {

namespace {

/// Two shapes over each other, the lower one wholly covered.
class Covered : public QWidget {
protected:
    void paintEvent(QPaintEvent *) override {
        paintControl(*this, [this](QPainter &painter) {
            painter.fillRect(rect(), Qt::red);
            painter.fillRect(rect(), Qt::blue);
        });
    }
};

QImage canvas(double ratio) {
    QImage image(QSize(40, 40) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

int inkedRows(const QImage &image, int column) {
    int rows = 0;
    for (int y = 0; y < image.height(); ++y) {
        rows += image.pixelColor(column, y).alpha() > 0 ? 1 : 0;
    }
    return rows;
}

} // namespace

TEST(PaintTest, aDisabledControlIsPaleAsAWholeNotEachShape) {
    QWidget window;
    window.setPalette(QPalette(Qt::black));
    Covered covered;
    covered.resize(10, 10);
    covered.setEnabled(false);

    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    covered.render(&painter, QPoint(0, 0), QRegion(), QWidget::DrawChildren);
    painter.end();

    const QColor pale = image.pixelColor(5, 5);
    EXPECT_EQ(pale.red(), 0);
    EXPECT_NEAR(pale.blue(), 255 * 0.42, 2);
}

TEST(PaintTest, aHairlineIsOneDevicePixelAtEveryRatio) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        QImage image = canvas(ratio);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        paintHairline(painter, {{4.3, 4.3, 20.2, 20.2}, 0}, Qt::black);
        painter.end();
        EXPECT_EQ(inkedRows(image, static_cast<int>(14 * ratio)), 2) << ratio;
    }
}

TEST(PaintTest, theRingIsTwoWideAndTwoAway) {
    QImage image = canvas(1);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paintRing(painter, {{10, 10, 20, 20}, 4}, Qt::black);
    painter.end();

    for (const auto &[x, alpha] : {std::pair(5, 0), std::pair(6, 255), std::pair(7, 255),
                                   std::pair(8, 0), std::pair(9, 0), std::pair(10, 0)}) {
        EXPECT_EQ(image.pixelColor(x, 20).alpha(), alpha) << x;
    }
}

TEST(PaintTest, aRingInsideIsThreeFromTheEdge) {
    QImage image = canvas(1);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paintRingInside(painter, {{0, 0, 40, 40}, 4}, Qt::black);
    painter.end();

    for (const auto &[x, alpha] :
         {std::pair(2, 0), std::pair(3, 255), std::pair(4, 255), std::pair(5, 0)}) {
        EXPECT_EQ(image.pixelColor(x, 20).alpha(), alpha) << x;
    }
}

TEST(PaintTest, fromRightToLeftPlacesAreMirrored) {
    QWidget widget;
    widget.resize(100, 20);
    EXPECT_EQ(mirrored(widget, {10, 2, 30, 5}), QRectF(10, 2, 30, 5));
    widget.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(mirrored(widget, {10, 2, 30, 5}), QRectF(60, 2, 30, 5));
}

TEST(PaintTest, aBlendWithAClearColourKeepsTheHue) {
    const QColor half = blend(Qt::transparent, QColor(200, 100, 50), 0.5);
    EXPECT_EQ(half.red(), 200);
    EXPECT_EQ(half.green(), 100);
    EXPECT_EQ(half.blue(), 50);
    EXPECT_NEAR(half.alphaF(), 0.5, 0.01);
}

TEST(PaintTest, aRadiusIsAtMostHalfOfTheShorterSide) {
    const Rounded shape{{0, 0, 40, 10}, 30};
    EXPECT_TRUE(shape.path().contains(QPointF(2, 5)));
    EXPECT_EQ(shape.path().boundingRect(), QRectF(0, 0, 40, 10));
}

} // namespace zeph::ui
