// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include "platform/linux/x11/X11Monitors.h"

using namespace Qt::StringLiterals;

namespace zeph {

using WindowServerTest = X11Test;

namespace {

const QStringList kPicom{u"picom"_s,     u"--config"_s, u"/dev/null"_s,
                         u"--backend"_s, u"xrender"_s,  u"--no-fading-openclose"_s};

} // namespace

TEST_F(WindowServerTest, refusesTransparencyWithoutACompositor) {
    const auto surface = server->makeDesktopSurface(wholeScreen(), true);
    EXPECT_FALSE(surface->isTransparent());
    EXPECT_EQ(surface->frameBuffer().format(), QImage::Format_RGB32);
    EXPECT_TRUE(waitUntil([&] { return client->depth(windowOf(*surface)) == 24; }));
}

TEST_F(WindowServerTest, tellsOfACompositorThatStartsAndStops) {
    int calls = 0;
    server->setCompositingHandler([&] { ++calls; });
    const pid_t picom = session.start(kPicom);
    ASSERT_TRUE(waitUntil([&] { return calls == 1; }));
    EXPECT_TRUE(server->makeDesktopSurface(wholeScreen(), true)->isTransparent());
    EXPECT_FALSE(server->makeDesktopSurface(wholeScreen(), false)->isTransparent());
    session.stop(picom);
    ASSERT_TRUE(waitUntil([&] { return calls == 2; }));
    EXPECT_FALSE(server->makeDesktopSurface(wholeScreen(), true)->isTransparent());
}

TEST_F(WindowServerTest, knowsOfACompositorThatRanBefore) {
    int calls = 0;
    server->setCompositingHandler([&] { ++calls; });
    session.start(kPicom);
    ASSERT_TRUE(waitUntil([&] { return calls == 1; }));
    const auto another = X11WindowServer::create(*connection);
    EXPECT_TRUE(another->makeDesktopSurface(wholeScreen(), true)->isTransparent());
}

TEST_F(WindowServerTest, letsTheDesktopShineThrough) {
    int calls = 0;
    server->setCompositingHandler([&] { ++calls; });
    session.start(kPicom);
    ASSERT_TRUE(waitUntil([&] { return calls == 1; }));
    const auto surface = server->makeDesktopSurface(wholeScreen(), true);
    QImage &frame = surface->frameBuffer();
    ASSERT_EQ(frame.format(), QImage::Format_ARGB32_Premultiplied);
    frame.fill(Qt::transparent);
    for (int x = 0; x < 100; ++x) {
        for (int y = 0; y < 100; ++y) {
            frame.setPixelColor(x, y, QColor(0, 0, 255, 128));
        }
    }
    client->show({.geometry = kWholeScreen, .colour = 0xFF0000});
    surface->orderFront();
    ASSERT_TRUE(waitUntil([&] { return client->isViewable(windowOf(*surface)); }));
    client->raise(windowOf(*surface)); // without a window manager it lies below all windows
    EXPECT_TRUE(waitUntil([&] {
        const QRgb mixed = client->pixel({50, 50});
        return std::abs(qRed(mixed) - 127) <= 2 && std::abs(qBlue(mixed) - 128) <= 2;
    })) << std::hex
        << client->pixel({50, 50});
    EXPECT_EQ(client->pixel({640, 400}), 0xFF0000U);
}

TEST_F(WindowServerTest, coversNothingWithoutAWindowManager) {
    client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    const auto surface = showSurface(Qt::blue);
    EXPECT_EQ(client->pixel({200, 175}), 0xFF0000U);
    EXPECT_EQ(client->stacking().first(), windowOf(*surface));
}

TEST_F(WindowServerTest, keepsItsPlaceWhenAWindowManagerStartsLater) {
    const auto base =
        client->show({.geometry = kWholeScreen, .colour = 0x552200, .type = kDesktopType});
    const auto normal = client->show({.geometry = {100, 100, 200, 150}, .colour = 0xFF0000});
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    surface->frameBuffer().fill(Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(session.startOpenbox());
    ASSERT_TRUE(waitForPixel({640, 400}, Qt::blue));
    EXPECT_TRUE(waitForPixel(client->geometry(normal).center(), Qt::red));
    click({640, 400});
    EXPECT_TRUE(waitUntil([&] { return client->takeClicks(base) > 0; }));
}

TEST_F(WindowServerTest, tellsOnceThatTheServerWentAway) {
    int calls = 0;
    server->setLostHandler([&] { ++calls; });
    const auto surface = showSurface(Qt::blue);
    session.killServer();
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    surface->frameBuffer().fill(Qt::red);
    surface->present(kWholeScreen);
    surface->orderOut();
    surface->setScreen(screen(QString(), 1, 100, 100));
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_EQ(calls, 1);
}

TEST_F(WindowServerTest, noticesTheLossWithoutBeingAskedForAnything) {
    int calls = 0;
    server->setLostHandler([&] { ++calls; });
    session.killServer();
    EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
}

TEST_F(WindowServerTest, knowsTheDevicePixelsOfAMonitor) {
    const auto setMonitor = [&](const QString &name, const QString &geometry,
                                const QString &output) {
        return session.run({u"xrandr"_s, u"--setmonitor"_s, name, geometry, output});
    };
    ASSERT_FALSE(setMonitor(u"left"_s, u"640/100x800/100+0+0"_s, u"screen"_s).isNull());
    ASSERT_FALSE(setMonitor(u"right"_s, u"640/100x800/100+640+0"_s, u"none"_s).isNull());
    EXPECT_EQ(monitorGeometry(*connection, u"right"_s), QRect(640, 0, 640, 800));
    EXPECT_EQ(monitorGeometry(*connection, u"middle"_s), std::nullopt);
}

TEST(X11Connection, isNotMadeWithoutADisplay) {
    EXPECT_EQ(X11Connection::open(":999999"), nullptr);
}

} // namespace zeph
