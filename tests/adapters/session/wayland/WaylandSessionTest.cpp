// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandSession.h"

#include "FakeCompositor.h"
#include "WaylandClient.h"

#include "adapters/session/wayland/UnknownParts.h"
#include "support/Environment.h"

using namespace Qt::StringLiterals;

namespace zeph {

TEST(WaylandSession, offersSurfacesAndScreensInEveryVersionOfTheLayers) {
    for (const std::uint32_t version : {1U, 2U, 3U, 4U}) {
        FakeCompositor compositor({.shellVersion = version});
        const auto opened = WaylandSession::open({}, compositor.socket());
        ASSERT_TRUE(opened.session) << version;
        const auto screens = opened.session->screens().all();
        ASSERT_EQ(screens.size(), 1U);
        EXPECT_TRUE(opened.session->windowServer().makeDesktopSurface(screens[0], false));
    }
}

TEST(WaylandSession, knowsNothingOfWhatTheDesktopDoesNotTell) {
    FakeCompositor compositor;
    const auto opened = WaylandSession::open({}, compositor.socket());
    ASSERT_TRUE(opened.session);
    EXPECT_EQ(opened.session->workspace().frontmostApplication(), std::nullopt);
    EXPECT_FALSE(opened.session->inputEvents().isTrusted());
    EXPECT_EQ(opened.session->inputEvents().makeTap([](const InputEvent &) {}), nullptr);
}

TEST(WaylandSession, drawsOnALayerAndSaysWhy) {
    FakeCompositor compositor;
    const auto opened = WaylandSession::open({}, compositor.socket());
    ASSERT_TRUE(opened.session);
    const DrawingWay way = opened.session->windowServer().drawingWay();
    EXPECT_EQ(way.mechanism, DrawingMechanism::layerSurface);
    EXPECT_FALSE(way.reason.isEmpty());
}

TEST(WaylandSession, handsPicturesToPlasmaOnceThatIsAllowed) {
    const ScopedVariable desktop("XDG_CURRENT_DESKTOP", "KDE");
    FakeCompositor compositor;
    const auto opened = WaylandSession::open({}, compositor.socket());
    ASSERT_TRUE(opened.session);
    WaylandWindowServer &server = opened.session->windowServer();
    int changes = 0;
    const Subscription ways = server.subscribeToDrawingWay([&] { ++changes; });
    EXPECT_EQ(server.drawingWay().mechanism, DrawingMechanism::layerSurface);
    server.permitPlasma({true, {}});
    EXPECT_EQ(server.drawingWay().mechanism, DrawingMechanism::plasmaPictures);
    EXPECT_EQ(changes, 1);
    server.permitPlasma({true, {}});
    EXPECT_EQ(changes, 1);
    server.permitPlasma({false, u"Plasma's shell does not run"_s});
    EXPECT_EQ(server.drawingWay().mechanism, DrawingMechanism::layerSurface);
    EXPECT_EQ(changes, 2);
}

TEST(WaylandSession, saysWhyInOtherWordsWhereTheWallpaperIsTransparent) {
    const ScopedVariable desktop("XDG_CURRENT_DESKTOP", "KDE");
    FakeCompositor compositor;
    const WaylandClient client(compositor.socket());
    int calls = 0;
    const Subscription told = client.server->subscribeToDrawingWay([&] { ++calls; });
    const QString opaque = client.server->drawingWay().reason;
    const auto first = client.makeSurface();
    EXPECT_EQ(client.server->drawingWay().reason, opaque);
    const auto second = client.makeSurface(true);
    EXPECT_TRUE(client.server->drawingWay().reason.contains(u"shine through it"_s));
    EXPECT_EQ(calls, 0) << "the surface is being made";
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
    const auto third = client.makeSurface();
    EXPECT_EQ(client.server->drawingWay().reason, opaque);
}

namespace {

/// A bar of 30 points at the top of the output, until the test takes it away.
struct BarParts : UnknownParts, UsableAreas {
    UsableAreas *usableAreas() override { return this; }
    std::optional<QRectF> usableArea(const QString &outputName, const QRectF & /*frame*/) override {
        return outputName == u"DP-1"_s && hasBar ? std::optional(area) : std::nullopt;
    }
    Subscription subscribe(std::function<void()> handler) override {
        return changes.subscribe(std::move(handler));
    }

    bool hasBar = true;
    QRectF area{0, 30, 400, 270};
    ChangePublisher changes;
};

} // namespace

TEST(WaylandSession, takesThePartsOfTheDesktop) {
    FakeCompositor compositor;
    BarParts *parts = nullptr;
    const auto makeParts = [&parts](WaylandConnection &, WaylandOutputs &outputs) {
        EXPECT_EQ(outputs.all().size(), 1U);
        auto made = std::make_unique<BarParts>();
        parts = made.get();
        return made;
    };
    const auto opened = WaylandSession::open(makeParts, compositor.socket());
    ASSERT_TRUE(opened.session);
    EXPECT_EQ(&opened.session->workspace(), &parts->workspace());
    Screens &screens = opened.session->screens();
    EXPECT_EQ(screens.all()[0].visibleFrame, QRectF(0, 30, 400, 270));
    int changes = 0;
    const Subscription subscription = screens.subscribe([&] { ++changes; });
    parts->hasBar = false;
    parts->changes.send();
    ASSERT_TRUE(waitUntil([&] { return changes == 1; }));
    EXPECT_EQ(screens.all()[0].visibleFrame, QRectF(0, 0, 400, 300));
    parts->hasBar = true;
    parts->area = QRectF(5000, 0, 100, 100);
    parts->changes.send();
    QCoreApplication::processEvents();
    EXPECT_EQ(screens.all()[0].visibleFrame, QRectF(0, 0, 400, 300)) << "somewhere else";
    EXPECT_EQ(changes, 1);
}

TEST(WaylandSession, saysThatThereIsNoPlaceForAWallpaper) {
    FakeCompositor withoutLayers({.shellVersion = 0});
    FakeCompositor withoutSurfaces({.compositorVersion = 0});
    for (FakeCompositor *compositor : {&withoutLayers, &withoutSurfaces}) {
        const auto opened = WaylandSession::open({}, compositor->socket());
        EXPECT_FALSE(opened.session);
        EXPECT_EQ(opened.refusal, u"the Wayland compositor has no place for a wallpaper"_s);
    }
}

TEST(WaylandSession, saysThatThereIsNoCompositor) {
    const auto opened = WaylandSession::open({}, "/nonexistent/display");
    EXPECT_FALSE(opened.session);
    EXPECT_EQ(opened.refusal, u"there is no Wayland compositor to draw on"_s);
}

} // namespace zeph
