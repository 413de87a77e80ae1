// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandSession.h"

#include "WaylandFixture.h"

#include "adapters/session/wayland/UnknownParts.h"

using namespace Qt::StringLiterals;

namespace zeph {

TEST(WaylandSession, offersSurfacesAndScreensInEveryVersionOfTheLayers) {
    for (const std::uint32_t version : {1U, 2U, 3U, 4U}) {
        FakeCompositor compositor({.shellVersion = version});
        const OpenedSession opened = WaylandSession::open({}, compositor.socket());
        ASSERT_TRUE(opened.session) << version;
        const auto screens = opened.session->screens().all();
        ASSERT_EQ(screens.size(), 1U);
        EXPECT_TRUE(opened.session->windowServer().makeDesktopSurface(screens[0], false));
    }
}

TEST(WaylandSession, knowsNothingOfWhatTheDesktopDoesNotTell) {
    FakeCompositor compositor;
    const OpenedSession opened = WaylandSession::open({}, compositor.socket());
    ASSERT_TRUE(opened.session);
    EXPECT_EQ(opened.session->workspace().frontmostApplication(), std::nullopt);
    EXPECT_FALSE(opened.session->inputEvents().isTrusted());
    EXPECT_EQ(opened.session->inputEvents().makeTap([](const InputEvent &) {}), nullptr);
}

TEST(WaylandSession, takesThePartsOfTheDesktop) {
    struct OwnWorkspace : UnknownWorkspace {};
    FakeCompositor compositor;
    WaylandSession::Surroundings surroundings;
    surroundings.makeWorkspace = [](WaylandConnection &) {
        return std::make_unique<OwnWorkspace>();
    };
    const OpenedSession opened = WaylandSession::open(surroundings, compositor.socket());
    ASSERT_TRUE(opened.session);
    EXPECT_TRUE(dynamic_cast<OwnWorkspace *>(&opened.session->workspace()));
}

TEST(WaylandSession, saysThatThereIsNoPlaceForAWallpaper) {
    FakeCompositor withoutLayers({.shellVersion = 0});
    FakeCompositor withoutSurfaces({.compositorVersion = 0});
    for (FakeCompositor *compositor : {&withoutLayers, &withoutSurfaces}) {
        const OpenedSession opened = WaylandSession::open({}, compositor->socket());
        EXPECT_FALSE(opened.session);
        EXPECT_EQ(opened.refusal, u"the Wayland compositor has no place for a wallpaper"_s);
    }
}

TEST(WaylandSession, saysThatThereIsNoCompositor) {
    const OpenedSession opened = WaylandSession::open({}, "/nonexistent/display");
    EXPECT_FALSE(opened.session);
    EXPECT_EQ(opened.refusal, u"there is no Wayland compositor to draw on"_s);
}

} // namespace zeph
