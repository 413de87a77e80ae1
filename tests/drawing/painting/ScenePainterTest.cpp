// SPDX-License-Identifier: MIT
#include "drawing/painting/ScenePainter.h"

#include "drawing/painting/PaintingFixture.h"
#include "drawing/scene/ItemBounds.h"

#include <QBuffer>

#include <cmath>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class ScenePainterTest : public PaintingFixture {
protected:
    QImage only(const DrawItem &item, double scale = 1) {
        Scene scene;
        scene.items = {item};
        return painted(scene, (QSizeF(300, 200) * scale).toSize(), scale);
    }

    static TextItem line(const QString &text, double size = 17) {
        TextStyle style;
        style.font.size = size;
        style.color = Color::white();
        return {text, style, QPointF(40, 50), 1};
    }

    /// The smallest rectangle around all that is not black.
    static QRect ink(const QImage &image) {
        QRect found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if ((image.pixel(x, y) & 0xffffffU) != 0) {
                    found |= QRect(x, y, 1, 1);
                }
            }
        }
        return found;
    }

    static void expectNear(QRgb pixel, QRgb expected) {
        EXPECT_NEAR(qRed(pixel), qRed(expected), 1);
        EXPECT_NEAR(qGreen(pixel), qGreen(expected), 1);
        EXPECT_NEAR(qBlue(pixel), qBlue(expected), 1);
    }
};

} // namespace

TEST_F(ScenePainterTest, shapeFillsItsRectangleAndRoundsItsCorners) {
    const QImage image = only(ShapeItem{QRectF(10, 20, 100, 40), 12, Fill{{1, 0.5, 0, 1}, {}}, {}});
    EXPECT_EQ(ink(image), QRect(10, 20, 100, 40));
    EXPECT_EQ(image.pixel(60, 40), qRgb(255, 128, 0));
    EXPECT_EQ(image.pixel(10, 20), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(60, 20), qRgb(255, 128, 0));
}

TEST_F(ScenePainterTest, alphaBlendsOverWhatLiesBeneath) {
    Scene scene;
    const QRectF rect(0, 0, 20, 20);
    scene.items = {ShapeItem{rect, 0, Fill{{1, 0, 0, 1}, {}}, {}},
                   ShapeItem{rect, 0, Fill{{0, 0, 1, 0.25}, {}}, {}}};
    expectNear(painted(scene, {20, 20}).pixel(10, 10), qRgb(191, 0, 64));
}

TEST_F(ScenePainterTest, gradientRunsFromLeftToRight) {
    const QImage image =
        only(ShapeItem{QRectF(0, 0, 200, 8), 0, Fill{Color::white(), Color::white(0.5)}, {}});
    EXPECT_GT(qRed(image.pixel(1, 4)), 252);
    EXPECT_NEAR(qRed(image.pixel(100, 4)), 191, 2);
    EXPECT_NEAR(qRed(image.pixel(198, 4)), 128, 2);
    EXPECT_EQ(image.pixel(100, 1), image.pixel(100, 6));
}

TEST_F(ScenePainterTest, outlineLiesInsideTheEdge) {
    const QImage image = only(ShapeItem{QRectF(10, 10, 50, 50), 0, {}, Color::white()});
    EXPECT_EQ(ink(image), QRect(10, 10, 50, 50));
    EXPECT_EQ(image.pixel(10, 30), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(11, 30), qRgb(0, 0, 0));
}

TEST_F(ScenePainterTest, radiusIsHeldAtHalfTheSmallerSide) {
    const QImage image = only(ShapeItem{QRectF(0, 0, 6, 8), 60, Fill{Color::white(), {}}, {}});
    EXPECT_EQ(ink(image), QRect(0, 0, 6, 8));
}

TEST_F(ScenePainterTest, barsLieOnWholePixels) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        for (const double top : {20.0, 20.3, 20.5, 20.8}) {
            const QRectF track(10.4, top, 100, 8.5);
            const QImage image =
                only(ShapeItem{track, 4, Fill{Color::white(), {}}, {}, track}, scale);
            const int height = static_cast<int>(std::lround(8.5 * scale));
            ASSERT_EQ(ink(image).height(), height) << "bars of one size look alike";
            const int middle = static_cast<int>(50 * scale);
            for (int y = ink(image).top(); y <= ink(image).bottom(); ++y) {
                EXPECT_EQ(image.pixel(middle, y), qRgb(255, 255, 255)) << y << " at " << scale;
            }
        }
    }
}

TEST_F(ScenePainterTest, aTinyFillStaysInsideTheRoundEndOfItsTrack) {
    const QRectF track(10, 20, 100, 10);
    const QImage whole = only(ShapeItem{track, 5, Fill{Color::white(), {}}, {}, track});
    for (const double width : {1.0, 3.0, 6.0, 9.0, 40.0, 100.0}) {
        const QRectF rect(10, 20, width, 10);
        const QImage image = only(ShapeItem{rect, 5, Fill{Color::white(), {}}, {}, track});
        EXPECT_EQ(ink(image).right(), 9 + width);
        EXPECT_EQ(ink(image).left(), 10);
        for (int y = 20; y < 30; ++y) {
            for (int x = 10; x < 110; ++x) {
                ASSERT_LE(qRed(image.pixel(x, y)), qRed(whole.pixel(x, y)) + 2) << x << ' ' << y;
            }
        }
    }
    const QImage tiny =
        only(ShapeItem{QRectF(10, 20, 6, 10), 5, Fill{Color::white(), {}}, {}, track});
    EXPECT_EQ(qRed(tiny.pixel(10, 20)), 0);
    EXPECT_GT(qRed(tiny.pixel(12, 25)), 250);
    EXPECT_LT(qRed(tiny.pixel(15, 21)), 128) << "its own end is round too";
}

TEST_F(ScenePainterTest, textStaysInItsBoundsAtEveryScale) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        for (const QString &text : {u"fjgÅ 14:59"_s, u"日本語"_s, u"🎉"_s, u"שלום"_s}) {
            const TextItem item = line(text, 30);
            const QRect found = ink(only(item, scale));
            const QRectF box(item.origin * scale, metrics.size(text, item.style.font) * scale);
            EXPECT_GT(found.width(), box.width() * 0.6) << text.toStdString();
            EXPECT_TRUE(deviceBounds(item, scale, metrics).contains(found)) << text.toStdString();
            EXPECT_LT(std::abs(found.center().x() - box.center().x()), 6 * scale);
        }
    }
}

TEST_F(ScenePainterTest, inkStartsWhereTheMetricsTell) {
    for (const QString &time : {u"10:24"_s, u"7:05"_s, u"20:47"_s}) {
        TextItem item = line(time, 84);
        item.style.font.weight = FontWeight::thin;
        item.style.font.evenDigits = true;
        const double room = metrics.inkStart(time, item.style.font);
        EXPECT_NEAR(ink(only(item)).left(), 40 + room, 1) << qPrintable(time);
    }
    FontSpec clock;
    clock.size = 84;
    clock.weight = FontWeight::thin;
    clock.evenDigits = true;
    EXPECT_GT(metrics.inkStart(u"10:24"_s, clock), 10);
    EXPECT_EQ(metrics.inkStart(u""_s, clock), 0);
}

TEST_F(ScenePainterTest, textIsGreyWithoutColouredFringes) {
    const QImage image = only(line(u"Wallpaper illi"_s));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            ASSERT_TRUE(qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel));
        }
    }
}

TEST_F(ScenePainterTest, emojiKeepTheirColours) {
    const QImage image = only(line(u"🎉"_s, 40), 2);
    bool colourful = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            colourful = colourful || std::abs(qRed(pixel) - qBlue(pixel)) > 60;
        }
    }
    EXPECT_TRUE(colourful);
}

TEST_F(ScenePainterTest, scaledTextIsAsLargeAsItsScaleTells) {
    TextItem item = line(u"Hello"_s, 20);
    const QRect plain = ink(only(item));
    item.scale = 2;
    const QRect twice = ink(only(item));
    EXPECT_NEAR(twice.width(), 2 * plain.width(), 3);
    EXPECT_NEAR(twice.height(), 2 * plain.height(), 3);
    EXPECT_NEAR(twice.left() - 40, 2 * (plain.left() - 40), 2);
    EXPECT_NEAR(twice.top() - 50, 2 * (plain.top() - 50), 3);
}

TEST_F(ScenePainterTest, shadowLiesBeneathAndBelowTheText) {
    Scene scene;
    scene.items = {ShapeItem{QRectF(0, 0, 300, 200), 0, Fill{Color::white(), {}}, {}}};
    TextItem item = line(u"14:59"_s, 60);
    item.style.color = Color::white();
    item.style.shadow = TextShadow{Color::black(0.25), 12, 4};
    scene.items.emplace_back(item);
    const QImage image = painted(scene, {300, 200});
    int darkest = 255;
    double weight = 0;
    double moment = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 300; ++x) {
            const int dark = 255 - qRed(image.pixel(x, y));
            darkest = std::min(darkest, 255 - dark);
            weight += dark;
            moment += static_cast<double>(dark) * y;
        }
    }
    EXPECT_GT(darkest, 255 - 64); // blurred: nowhere as dark as the colour itself
    EXPECT_LT(darkest, 250);
    const QRectF box(item.origin, metrics.size(item.text, item.style.font));
    EXPECT_GT(moment / weight, box.center().y() - 2);
    EXPECT_EQ(qRed(image.pixel(5, 5)), 255);
    EXPECT_EQ(painted(scene, {300, 200}), image); // from the cache
}

TEST_F(ScenePainterTest, symbolTakesItsColourAndWholePixels) {
    const QImage image = only(SymbolItem{u"sun.max"_s, {0, 1, 0, 1}, QRectF(10.3, 10.3, 24, 24)});
    EXPECT_EQ(image.pixel(22, 22), qRgb(0, 255, 0));
    EXPECT_EQ(ink(image), QRect(14, 14, 16, 16));
}

TEST_F(ScenePainterTest, pictureFillsItsFrameCroppedAndRounded) {
    QImage picture(100, 10, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    for (int x = 40; x < 60; ++x) { // only the middle fits into the frame
        for (int y = 0; y < 10; ++y) {
            picture.setPixel(x, y, qRgb(255, 0, 0));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    const QImage image = only(ImageItem{bytes, QRectF(20, 30, 80, 60), 12});
    EXPECT_EQ(ink(image), QRect(20, 30, 80, 60));
    EXPECT_EQ(image.pixel(60, 60), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(22, 60), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(97, 60), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(20, 30), qRgb(0, 0, 0));
    EXPECT_EQ(only(ImageItem{bytes, QRectF(20, 30, 80, 60), 12}), image); // from the cache
}

TEST_F(ScenePainterTest, damagedPictureDrawsNothing) {
    EXPECT_TRUE(ink(only(ImageItem{"no picture", QRectF(20, 30, 80, 60), 12})).isEmpty());
}

TEST_F(ScenePainterTest, itemsOutsideOfTheSurfaceAreHarmless) {
    Scene scene;
    scene.items = {line(QString(3000, u'W')),
                   ShapeItem{QRectF(-1e6, -1e6, 3e6, 10), 4, Fill{Color::white(), {}}, {}}};
    std::get<TextItem>(scene.items[0]).origin = QPointF(-100, 10);
    EXPECT_FALSE(ink(painted(scene, {50, 50})).isEmpty());
}

TEST_F(ScenePainterTest, transparentSurfaceKeepsItsAlpha) {
    QImage frame(40, 40, QImage::Format_ARGB32_Premultiplied);
    frame.fill(Qt::red);
    Scene scene;
    scene.items = {ShapeItem{QRectF(10, 10, 20, 20), 0, Fill{Color::black(0.35), {}}, {}}};
    painter.paint(scene, frame.rect(), 1, frame);
    EXPECT_EQ(qAlpha(frame.pixel(5, 5)), 0);
    EXPECT_EQ(frame.pixel(20, 20), qRgba(0, 0, 0, 89));
}

} // namespace zeph
