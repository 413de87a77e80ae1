// SPDX-License-Identifier: MIT
#include "drawing/painting/SceneRenderer.h"

#include "drawing/painting/PaintingFixture.h"
#include "drawing/painting/RandomScenes.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class SceneRendererTest : public PaintingFixture {
protected:
    static Scene oneChip(const QString &text, const Color &color = Color::white()) {
        Scene scene;
        scene.backdrop = AmbientBackground::still(Palette::forMood(0.5, FocusState::off));
        TextStyle style;
        style.font.size = 13;
        style.color = color;
        scene.items = {ShapeItem{QRectF(200, 100, 50, 20), 4, Fill{color, {}}, {}},
                       TextItem{text, style, QPointF(20, 20)}};
        return scene;
    }

    QImage frame{320, 200, QImage::Format_RGB32};
    SceneRenderer renderer{painter};
};

class DamagePainting : public PaintingFixture, public testing::WithParamInterface<double> {
protected:
    /// The frame buffer after many small changes is the one that painting whole gives.
    void changeAndCompare(unsigned seed, QImage::Format format) {
        RandomScenes random(seed);
        const double scale = GetParam();
        QImage kept((QSizeF(320, 200) * scale).toSize(), format);
        QImage whole = kept;
        SceneRenderer renderer(painter);
        Scene scene = random.scene();
        for (int step = 0; step < 12; ++step) {
            renderer.render(scene, kept, scale);
            whole.fill(Qt::magenta);
            painter.paint(scene, whole.rect(), scale, whole);
            ASSERT_TRUE(kept == whole) << "seed " << seed << ", step " << step;
            random.change(scene);
        }
    }
};

} // namespace

TEST_F(SceneRendererTest, paintsTheFirstSceneWhole) {
    EXPECT_EQ(renderer.render(oneChip(u"a"_s), frame, 1), QRegion(frame.rect()));
    EXPECT_EQ(renderer.paintedPixels(), 320 * 200);
}

TEST_F(SceneRendererTest, paintsTheSameWithABackdropPaintedAhead) {
    const Scene scene = oneChip(u"a"_s);
    renderer.render(scene, frame, 1);
    QImage other(frame.size(), frame.format());
    other.fill(Qt::magenta);
    SceneRenderer ahead(painter);
    ahead.paintAhead(*scene.backdrop, other);
    EXPECT_EQ(ahead.render(scene, other, 1), QRegion(other.rect()));
    EXPECT_TRUE(other == frame);
}

TEST_F(SceneRendererTest, paintsTheSameWithItemsMadeAheadOfTheBackdrop) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const Scene scene = RandomScenes(seed).scene();
        for (const double scale : {1.0, 1.5}) {
            QImage plain((QSizeF(320, 200) * scale).toSize(), frame.format());
            SceneRenderer(painter).render(scene, plain, scale);
            QImage ahead(plain.size(), plain.format());
            ahead.fill(Qt::magenta);
            SymbolLibrary undrawn(home.path());
            ScenePainter other(metrics, undrawn);
            SceneRenderer early(other);
            early.paintAhead(AmbientBackground::still(Palette::forMood(0, FocusState::off)), ahead);
            early.render(scene, ahead, scale);
            EXPECT_TRUE(ahead == plain) << "seed " << seed << ", scale " << scale;
        }
    }
}

TEST_F(SceneRendererTest, paintsItsOwnBackdropOverAnotherThatWasPaintedAhead) {
    const Scene scene = oneChip(u"a"_s);
    renderer.render(scene, frame, 1);
    QImage other(frame.size(), frame.format());
    SceneRenderer ahead(painter);
    ahead.paintAhead(AmbientBackground::still(Palette::forMood(1, FocusState::on)), other);
    ahead.render(scene, other, 1);
    EXPECT_TRUE(other == frame);
    QImage third(frame.size(), frame.format());
    SceneRenderer elsewhere(painter);
    elsewhere.paintAhead(*scene.backdrop, other);
    elsewhere.render(scene, third, 1);
    EXPECT_TRUE(third == frame);
}

TEST_F(SceneRendererTest, paintsNothingAheadIntoAFrameThatShowsAPicture) {
    renderer.render(oneChip(u"a"_s), frame, 1);
    const QImage before = frame.copy();
    renderer.paintAhead(AmbientBackground::still(Palette::forMood(1, FocusState::on)), frame);
    EXPECT_TRUE(renderer.render(oneChip(u"a"_s), frame, 1).isEmpty());
    EXPECT_TRUE(frame == before);
}

TEST_F(SceneRendererTest, paintsNothingForTheSameScene) {
    renderer.render(oneChip(u"a"_s), frame, 1);
    const QImage before = frame.copy();
    EXPECT_TRUE(renderer.render(oneChip(u"a"_s), frame, 1).isEmpty());
    EXPECT_EQ(renderer.paintedPixels(), 320 * 200);
    EXPECT_EQ(frame, before);
}

TEST_F(SceneRendererTest, paintsOnlyTheChipThatChanged) {
    renderer.render(oneChip(u"CPU 4%"_s), frame, 1);
    const QImage before = frame.copy();
    const QRegion region = renderer.render(oneChip(u"CPU 5%"_s), frame, 1);
    EXPECT_LT(renderer.paintedPixels(), 320 * 200 + 80 * 40);
    EXPECT_GT(renderer.paintedPixels(), 320 * 200);
    EXPECT_TRUE(QRect(10, 10, 90, 40).contains(region.boundingRect()));
    EXPECT_NE(frame, before);
}

TEST_F(SceneRendererTest, aColourThatDriftsByAThousandthPaintsNothing) {
    renderer.render(oneChip(u"a"_s, {0.5, 0.5, 0.5, 0.5}), frame, 1);
    EXPECT_TRUE(renderer.render(oneChip(u"a"_s, {0.5001, 0.5, 0.5, 0.5001}), frame, 1).isEmpty());
}

TEST_F(SceneRendererTest, anotherFrameOrScaleIsPaintedWhole) {
    renderer.render(oneChip(u"a"_s), frame, 1);
    QImage larger(400, 300, QImage::Format_RGB32);
    EXPECT_EQ(renderer.render(oneChip(u"a"_s), larger, 1), QRegion(larger.rect()));
    EXPECT_EQ(renderer.render(oneChip(u"a"_s), larger, 2), QRegion(larger.rect()));
    QImage transparent(400, 300, QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(renderer.render(oneChip(u"a"_s), transparent, 2), QRegion(larger.rect()));
}

TEST_F(SceneRendererTest, forgetsWhatItShowsWhenToldTo) {
    renderer.render(oneChip(u"a"_s), frame, 1);
    renderer.invalidate();
    EXPECT_EQ(renderer.render(oneChip(u"a"_s), frame, 1), QRegion(frame.rect()));
}

TEST_P(DamagePainting, givesTheVeryPixelsOfPaintingWhole) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        changeAndCompare(seed, QImage::Format_RGB32);
    }
}

TEST_P(DamagePainting, givesTheVeryPixelsOfPaintingWholeWithAlpha) {
    for (unsigned seed = 101; seed <= 104; ++seed) {
        changeAndCompare(seed, QImage::Format_ARGB32_Premultiplied);
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, DamagePainting, testing::Values(1.0, 1.5, 2.0));

} // namespace zeph
