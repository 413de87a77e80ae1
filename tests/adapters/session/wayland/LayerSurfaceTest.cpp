// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/LayerSurface.h"

#include "LayerSurfaceFixture.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A display with more pixels than points.
struct ScaledSurfaceTest : testing::Test {
    static FakeCompositor::Options options(QSize mode, QSize points, bool hasViewporter) {
        FakeOutput output;
        output.mode = mode;
        output.points = points;
        output.scale = 2;
        return {.hasViewporter = hasViewporter, .outputs = {output}};
    }
};

} // namespace

TEST_F(LayerSurfaceTest, liesAtTheBottomOverTheWholeOutputAndTakesNoInput) {
    const auto surface = showSurface(Qt::blue);
    const FakeLayerState layer = compositor.layer();
    EXPECT_EQ(layer.output, "DP-1");
    EXPECT_EQ(layer.scope, "tavi-wallpaper");
    EXPECT_EQ(layer.layer, 1U);
    EXPECT_EQ(layer.anchor, 15U);
    EXPECT_EQ(layer.exclusiveZone, -1);
    EXPECT_EQ(layer.keyboard, 0U);
    EXPECT_FALSE(layer.takesInput);
    EXPECT_EQ(layer.format, std::uint32_t{WL_SHM_FORMAT_XRGB8888});
    EXPECT_FALSE(surface->isTransparent());
}

TEST_F(LayerSurfaceTest, isNotOnTheScreenUntilItIsOrderedThere) {
    const auto surface = client.makeSurface();
    fillSurface(*surface, Qt::blue);
    client.settle();
    EXPECT_TRUE(compositor.layer().shown.isNull());
    EXPECT_FALSE(compositor.layer().acknowledged.empty());
    surface->orderFront();
    EXPECT_TRUE(waitForShown(Qt::blue));
}

TEST_F(LayerSurfaceTest, hasAlphaWhereItIsWanted) {
    const auto surface = client.makeSurface(true);
    EXPECT_TRUE(surface->isTransparent());
    surface->show([](QImage &frame) {
        EXPECT_EQ(frame.format(), QImage::Format_ARGB32_Premultiplied);
        EXPECT_EQ(frame.pixel(0, 0), qRgb(0, 0, 0));
        frame.fill(Qt::transparent);
        return QRegion(frame.rect());
    });
    surface->orderFront();
    EXPECT_TRUE(waitUntil([&] {
        const FakeLayerState layer = compositor.layer();
        return layer.format == WL_SHM_FORMAT_ARGB8888 && layer.shown.size() == kSize &&
               layer.shown.pixel(7, 7) == 0;
    }));
}

TEST_F(LayerSurfaceTest, tellsWhatWasPaintedAndNoMore) {
    const auto surface = showSurface(Qt::blue);
    client.settle();
    const int attaches = compositor.layer().attaches;
    const QRect part(10, 20, 30, 40);
    // All pixels change, and a part of them is said to.
    EXPECT_EQ(surface->show([&](QImage &frame) {
        frame.fill(Qt::red);
        return QRegion(part);
    }),
              QRegion(part));
    ASSERT_TRUE(waitUntil([&] { return compositor.layer().attaches == attaches + 1; }));
    const QImage shown = compositor.layer().shown;
    EXPECT_EQ(shown.pixelColor(part.topLeft()), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(part.bottomRight()), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(part.bottomRight() + QPoint(1, 1)), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(part.topLeft() - QPoint(1, 1)), QColor(Qt::blue));
}

TEST_F(LayerSurfaceTest, saysNothingWhereNothingWasPainted) {
    const auto surface = showSurface(Qt::blue);
    client.settle();
    const int commits = compositor.layer().commits;
    surface->show([](QImage &) { return QRegion(); });
    client.settle();
    EXPECT_EQ(compositor.layer().commits, commits);
}

TEST_F(SilentCompositorTest, waitsForItsSizeBeforeItShowsPixels) {
    const auto surface = client.makeSurface();
    fillSurface(*surface, Qt::blue);
    surface->orderFront();
    client.settle();
    EXPECT_TRUE(compositor.layer().shown.isNull());
    compositor.configure(kSize);
    EXPECT_TRUE(waitForShown(Qt::blue));
    EXPECT_EQ(losses, 0);
}

TEST_F(SilentCompositorTest, answersASizeBeforePixelsAlsoWhenItIsShownInThatMoment) {
    const auto surface = client.makeSurface();
    fillSurface(*surface, Qt::blue);
    client.settle();
    compositor.configure(kSize);
    client.connection->waitForAnswers(); // the size is here, and not answered yet
    EXPECT_TRUE(compositor.layer().acknowledged.empty());
    surface->orderFront();
    EXPECT_TRUE(waitForShown(Qt::blue));
    EXPECT_EQ(losses, 0);
    EXPECT_EQ(compositor.layer().acknowledged.size(), 1U);
}

TEST_F(LayerSurfaceTest, answersAStormOfSizesOnce) {
    const auto surface = showSurface(Qt::blue);
    client.settle();
    const FakeLayerState before = compositor.layer();
    compositor.thread().run([this](wl_display *) {
        for (int i = 0; i < 100; ++i) {
            compositor.configure({300 + i, 200});
        }
        compositor.configure(kSize);
    });
    ASSERT_TRUE(waitUntil(
        [&] { return compositor.layer().acknowledged.back() == compositor.layer().sent.back(); }));
    const FakeLayerState after = compositor.layer();
    EXPECT_EQ(after.acknowledged.size(), before.acknowledged.size() + 1);
    EXPECT_EQ(after.commits, before.commits + 1);
    EXPECT_EQ(after.attaches, before.attaches);
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerSurfaceTest, takesASizeOfZeroForItsScreens) {
    const auto surface = showSurface(Qt::blue);
    for (const QSize size : {QSize(0, 0), QSize(400, 0), QSize(0, 300)}) {
        compositor.configure(size);
        client.settle();
        EXPECT_EQ(compositor.layer().shown, plainImage(kSize, Qt::blue));
        EXPECT_EQ(compositor.layer().acknowledged.back(), compositor.layer().sent.back());
    }
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerSurfaceTest, isHiddenByOnePixelOfNothingAndComesBack) {
    const auto surface = showSurface(Qt::blue);
    for (int i = 0; i < 10; ++i) {
        surface->orderOut();
        ASSERT_TRUE(waitForNothing());
        surface->orderFront();
        ASSERT_TRUE(waitForShown(Qt::blue));
    }
    EXPECT_EQ(compositor.layers().size(), 1U) << "the surface stays";
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerSurfaceTest, endsRightWhenItIsHiddenAndShownInHaste) {
    const auto surface = showSurface(Qt::blue);
    for (int i = 0; i < 10; ++i) {
        surface->orderOut();
        surface->orderFront();
    }
    EXPECT_TRUE(waitForShown(Qt::blue));
    for (int i = 0; i < 10; ++i) {
        surface->orderFront();
        surface->orderOut();
    }
    EXPECT_TRUE(waitForNothing());
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerSurfaceTest, answersSizesWhileItIsHiddenAndStaysSo) {
    const auto surface = showSurface(Qt::blue);
    surface->orderOut();
    ASSERT_TRUE(waitForNothing());
    compositor.configure({300, 200}, 3);
    client.settle();
    EXPECT_EQ(compositor.layer().acknowledged.back(), compositor.layer().sent.back());
    EXPECT_EQ(compositor.layer().shown.size(), QSize(1, 1));
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerSurfaceTest, showsWhatWasPaintedWhileItWasHidden) {
    const auto surface = showSurface(Qt::blue);
    surface->orderOut();
    ASSERT_TRUE(waitForNothing());
    fillSurface(*surface, Qt::red);
    client.settle();
    EXPECT_EQ(compositor.layer().shown.size(), QSize(1, 1));
    surface->orderFront();
    EXPECT_TRUE(waitForShown(Qt::red));
}

TEST_F(LayerSurfaceTest, diesQuietlyWithItsOutputAndIsBackWithIt) {
    const auto surface = showSurface(Qt::blue);
    compositor.removeOutput("DP-1");
    ASSERT_TRUE(waitUntil([&] { return compositor.layers().empty(); }));
    fillSurface(*surface, Qt::red);
    surface->orderOut();
    surface->orderFront();
    client.settle();
    EXPECT_TRUE(compositor.layers().empty());
    compositor.addOutput(FakeOutput());
    EXPECT_TRUE(waitForShown(Qt::red));
    EXPECT_EQ(compositor.layers().size(), 1U);
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerSurfaceTest, isMadeAnewWhereItsOutputWasAwayForAMomentOnly) {
    const auto surface = showSurface(Qt::blue);
    compositor.thread().run([this](wl_display *) {
        compositor.removeOutput("DP-1");
        compositor.addOutput(FakeOutput());
    });
    EXPECT_TRUE(waitUntil([&] {
        const auto layers = compositor.layers();
        return layers.size() == 1 && layers[0].shown == plainImage(kSize, Qt::blue) &&
               layers[0].sent.size() == 1;
    }));
}

TEST_F(LayerSurfaceTest, isMadeAnewWhereItsOutputWentWithoutAWord) {
    const auto surface = showSurface(Qt::blue);
    compositor.thread().run([this](wl_display *) {
        compositor.removeOutput("DP-1", true);
        compositor.addOutput(FakeOutput());
    });
    EXPECT_TRUE(waitUntil([&] {
        const auto layers = compositor.layers();
        return layers.size() == 1 && layers[0].sent.size() == 1 &&
               layers[0].shown == plainImage(kSize, Qt::blue);
    }));
}

TEST_F(LayerSurfaceTest, doesNotInsistWhereTheCompositorClosesIt) {
    const auto surface = showSurface(Qt::blue);
    compositor.close();
    ASSERT_TRUE(waitUntil([&] { return compositor.layers().empty(); }));
    fillSurface(*surface, Qt::red);
    client.settle();
    EXPECT_TRUE(compositor.layers().empty());
    surface->setScreen(client.outputs->all()[0]); // as when displays change
    EXPECT_TRUE(waitForShown(Qt::red));
}

TEST_F(LayerSurfaceTest, movesToTheOutputOfItsScreen) {
    compositor.addOutput({.name = "DP-2", .model = "P24", .description = {}, .position = {400, 0}});
    ASSERT_TRUE(waitUntil([&] { return client.outputs->all().size() == 2; }));
    const auto surface = showSurface(Qt::blue);
    surface->setScreen(client.outputs->all()[1]);
    EXPECT_TRUE(waitUntil([&] {
        const auto layers = compositor.layers();
        return layers.size() == 1 && layers[0].output == "DP-2" &&
               layers[0].shown == plainImage(kSize, Qt::blue);
    }));
}

TEST_F(LayerSurfaceTest, followsAnotherResolution) {
    const auto surface = showSurface(Qt::blue);
    FakeOutput larger;
    larger.mode = larger.points = {500, 400};
    compositor.thread().run([&](wl_display *) {
        compositor.configure(larger.points);
        compositor.changeOutput(larger);
    });
    ASSERT_TRUE(waitUntil([&] { return client.outputs->all()[0].frame.width() == 500; }));
    EXPECT_EQ(compositor.layer().shown.size(), kSize) << "until it is painted anew";
    surface->setScreen(client.outputs->all()[0]);
    fillSurface(*surface, Qt::red);
    EXPECT_TRUE(waitForShown(Qt::red, {500, 400}));
    client.settle();
    EXPECT_EQ(compositor.liveBuffers(), 1);
}

TEST_F(ScaledSurfaceTest, hasAllPixelsOfADisplayWithAWholeScale) {
    for (const bool hasViewporter : {true, false}) {
        FakeCompositor compositor(options({800, 600}, {400, 300}, hasViewporter));
        const WaylandClient client(compositor.socket());
        const auto surface = client.makeSurface();
        EXPECT_EQ(fillSurface(*surface, Qt::blue), QRegion(0, 0, 800, 600));
        surface->orderFront();
        ASSERT_TRUE(waitUntil([&] { return compositor.layer().shown.size() == QSize(800, 600); }));
        EXPECT_EQ(compositor.layer().scale, 2);
        EXPECT_EQ(compositor.layer().destination, std::nullopt);
    }
}

TEST_F(ScaledSurfaceTest, hasAllPixelsOfADisplayWithAFractionalScale) {
    FakeCompositor compositor(options({600, 450}, {400, 300}, true));
    const WaylandClient client(compositor.socket());
    const auto surface = client.makeSurface();
    EXPECT_EQ(fillSurface(*surface, Qt::blue), QRegion(0, 0, 600, 450));
    surface->orderFront();
    ASSERT_TRUE(waitUntil([&] { return compositor.layer().shown.size() == QSize(600, 450); }));
    EXPECT_EQ(compositor.layer().scale, 1);
    EXPECT_EQ(compositor.layer().destination, QSize(400, 300));
}

TEST_F(ScaledSurfaceTest, isPaintedLargerWhereTheCompositorHasNoFractions) {
    FakeCompositor compositor(options({600, 450}, {400, 300}, false));
    const WaylandClient client(compositor.socket());
    const auto surface = client.makeSurface();
    fillSurface(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(waitUntil([&] { return compositor.layer().shown.size() == QSize(800, 600); }));
    EXPECT_EQ(compositor.layer().scale, 2);
}

TEST_F(ScaledSurfaceTest, isHiddenByAPixelThatIsNotScaled) {
    for (const QSize mode : {QSize(800, 600), QSize(600, 450)}) {
        FakeCompositor compositor(options(mode, {400, 300}, true));
        const WaylandClient client(compositor.socket());
        const auto surface = client.makeSurface();
        fillSurface(*surface, Qt::blue);
        surface->orderFront();
        ASSERT_TRUE(waitUntil([&] { return compositor.layer().shown.size() == mode; }));
        const FakeLayerState shown = compositor.layer();
        surface->orderOut();
        ASSERT_TRUE(waitUntil([&] { return compositor.layer().shown.size() == QSize(1, 1); }));
        EXPECT_EQ(compositor.layer().scale, 1);
        EXPECT_EQ(compositor.layer().destination, std::nullopt);
        surface->orderFront();
        ASSERT_TRUE(waitUntil([&] { return compositor.layer().shown.size() == mode; }));
        EXPECT_EQ(compositor.layer().scale, shown.scale);
        EXPECT_EQ(compositor.layer().destination, shown.destination);
    }
}

TEST_F(ScaledSurfaceTest, followsASizeInPointsThatComesBeforeItsScreen) {
    FakeCompositor compositor(options({600, 450}, {400, 300}, true));
    const WaylandClient client(compositor.socket());
    const auto surface = client.makeSurface();
    fillSurface(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(waitUntil([&] { return compositor.layer().destination == QSize(400, 300); }));
    compositor.configure({300, 225});
    EXPECT_TRUE(waitUntil([&] { return compositor.layer().scale == 2; }));
    compositor.configure({310, 230});
    EXPECT_TRUE(waitUntil([&] { return compositor.layer().destination == QSize(310, 230); }));
}

TEST(OldCompositor, isDrawnOnInEveryVersionOfSurfaces) {
    for (const std::uint32_t version : {1U, 2U, 3U, 4U}) {
        FakeOutput output;
        output.mode = {800, 600};
        output.scale = 2;
        FakeCompositor compositor({.compositorVersion = version, .outputs = {output}});
        const WaylandClient client(compositor.socket());
        const auto surface = client.makeSurface();
        fillSurface(*surface, Qt::blue);
        surface->orderFront();
        const QSize size = version < 3 ? QSize(400, 300) : QSize(800, 600);
        EXPECT_TRUE(waitUntil([&] {
            return compositor.layer().shown == plainImage(size, Qt::blue);
        })) << version;
        EXPECT_EQ(compositor.layer().scale, version < 3 ? 1 : 2);
    }
}

TEST(LostCompositor, takesNothingWithItWhateverTheSurfaceDid) {
    const std::vector<std::function<void(DesktopSurface &, const WaylandClient &)>> states{
        [](DesktopSurface &, const WaylandClient &) {},
        [](DesktopSurface &surface, const WaylandClient &) { fillSurface(surface, Qt::blue); },
        [](DesktopSurface &surface, const WaylandClient &) { surface.orderFront(); },
        [](DesktopSurface &surface, const WaylandClient &client) {
            surface.orderFront();
            client.settle();
        },
        [](DesktopSurface &surface, const WaylandClient &client) {
            surface.orderFront();
            client.settle();
            fillSurface(surface, Qt::blue);
            fillSurface(surface, Qt::red);
        },
        [](DesktopSurface &surface, const WaylandClient &client) {
            surface.orderFront();
            client.settle();
            surface.orderOut();
            client.settle();
        }};
    for (std::size_t i = 0; i < states.size(); ++i) {
        for (const bool isByComplaint : {false, true}) {
            FakeCompositor compositor({.release = FakeCompositor::Release::never});
            WaylandClient client(compositor.socket());
            int losses = 0;
            const Subscription loss = client.server->subscribeToLoss([&] { ++losses; });
            const auto surface = client.makeSurface();
            states[i](*surface, client);
            client.connection->waitForAnswers();
            isByComplaint ? compositor.complain() : compositor.thread().end();
            EXPECT_TRUE(waitUntil([&] { return losses == 1; })) << i;
            fillSurface(*surface, Qt::green);
            surface->orderFront();
            surface->orderOut();
            surface->setScreen(client.outputs->all()[0]);
            const auto another = client.makeSurface();
            another->orderFront();
            QCoreApplication::processEvents();
            EXPECT_EQ(losses, 1);
        }
    }
}

} // namespace zeph
