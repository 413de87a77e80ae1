// SPDX-License-Identifier: MIT
#include "ScreensFixture.h"

#include "adapters/session/identity/EdidBlock.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Displays that tell of changes, with panels.
class PanelScreensTest : public FollowedScreensTest {
protected:
    PanelScreensTest() {
        if (!session.startOpenbox()) {
            throw std::runtime_error("openbox did not start");
        }
    }

    /// A panel that keeps its own place free.
    xcb_window_t showPanel(const QRect &place, const QList<std::uint32_t> &strut) {
        const xcb_window_t window =
            client->show({.geometry = place, .type = "_NET_WM_WINDOW_TYPE_DOCK", .name = "Panel"});
        client->setNumbers(window, "_NET_WM_STRUT_PARTIAL", strut);
        return window;
    }

    bool waitForFrames(const std::vector<QRectF> &frames) {
        return waitUntil([&] {
            const auto all = screens.all();
            return std::equal(all.begin(), all.end(), frames.begin(), frames.end(),
                              [](const Screen &screen, const QRectF &frame) {
                                  return screen.visibleFrame == frame;
                              });
        });
    }
};

} // namespace

TEST_F(ScreensTest, describesTheDisplay) {
    const X11Screens screens(*connection);
    const auto all = screens.all();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].frame, QRectF(0, 0, 1280, 800));
    EXPECT_EQ(all[0].visibleFrame, all[0].frame);
    EXPECT_EQ(all[0].deviceFrame, QRect(0, 0, 1280, 800));
    EXPECT_EQ(all[0].scale, 1);
    EXPECT_EQ(all[0].persistentID, u"screen"_s);
    EXPECT_EQ(all[0].name, u"screen"_s);
    EXPECT_EQ(all[0].connector, u"screen"_s);
    EXPECT_NE(all[0].displayID.value_or(0), 0U);
    EXPECT_EQ(screens.main(), all[0]);
}

TEST_F(ScreensTest, knowsADisplayByItsOwnWords) {
    setEdid(edidBlock("Panel 24", "SN-0042"));
    const X11Screens screens(*connection);
    EXPECT_EQ(screens.main()->persistentID, u"ACM Panel 24 SN-0042"_s);
    EXPECT_EQ(screens.main()->name, u"Panel 24"_s);
}

TEST_F(ScreensTest, putsThePrimaryDisplayFirst) {
    setMonitor(u"left"_s, u"640/100x800/100+0+0"_s, u"screen"_s);
    setMonitor(u"*right"_s, u"640/100x800/100+640+0"_s, u"none"_s);
    const X11Screens screens(*connection);
    ASSERT_EQ(screens.all().size(), 2U);
    EXPECT_EQ(screens.main()->persistentID, u"right"_s);
    EXPECT_EQ(screens.all()[1].persistentID, u"left"_s);
}

TEST_F(ScreensTest, takesMirrorsForOneDisplay) {
    setMonitor(u"one"_s, u"1280/300x800/200+0+0"_s, u"screen"_s);
    setMonitor(u"other"_s, u"1280/300x800/200+0+0"_s, u"none"_s);
    EXPECT_EQ(X11Screens(*connection).all().size(), 1U);
}

TEST_F(ScreensTest, takesASmallerMirrorForTheSameDisplay) {
    setMonitor(u"*beamer"_s, u"800/200x600/150+0+0"_s, u"screen"_s);
    setMonitor(u"laptop"_s, u"1280/300x800/200+0+0"_s, u"none"_s);
    const X11Screens screens(*connection);
    ASSERT_EQ(screens.all().size(), 1U);
    EXPECT_EQ(screens.main()->persistentID, u"laptop"_s);
}

TEST_F(ScreensTest, keepsDisplaysThatOverlapInPart) {
    setMonitor(u"one"_s, u"800/300x800/200+0+0"_s, u"screen"_s);
    setMonitor(u"other"_s, u"800/300x800/200+480+0"_s, u"none"_s);
    EXPECT_EQ(X11Screens(*connection).all().size(), 2U);
}

TEST_F(ScreensTest, hasPointsOfTheSizeThatTheResourcesSay) {
    setResources("Xcursor.size:\t24\nXft.dpi:\t144\n");
    const X11Screens screens(*connection);
    EXPECT_EQ(screens.main()->scale, 1.5);
    EXPECT_EQ(screens.main()->frame, QRectF(0, 0, 853, 533));
    EXPECT_EQ(screens.main()->deviceFrame, QRect(0, 0, 1280, 800));
}

TEST_F(FollowedScreensTest, tellsOfAnotherScale) {
    setResources("Xft.dpi:\t192\n");
    EXPECT_TRUE(waitUntil([&] { return calls == 1 && screens.main()->scale == 2; }));
    EXPECT_EQ(screens.main()->frame, QRectF(0, 0, 640, 400));
    setResources("Xft.dpi:\t192\nXcursor.size:\t24\n");
    setResources("Xft.dpi:\t96\n");
    EXPECT_TRUE(waitUntil([&] { return screens.main()->scale == 1; }));
    EXPECT_EQ(calls, 2) << "nothing of the screens had changed in between";
}

TEST_F(FollowedScreensTest, tellsOfAnotherIdentity) {
    setEdid(edidBlock("Panel 24", "SN-0042"));
    EXPECT_TRUE(waitUntil(
        [&] { return calls == 1 && screens.main()->persistentID == u"ACM Panel 24 SN-0042"_s; }));
}

TEST_F(FollowedScreensTest, tellsOfANewSize) {
    xrandr({u"--newmode"_s, u"small"_s, u"0"_s, u"1024"_s, u"0"_s, u"0"_s, u"1024"_s, u"768"_s,
            u"0"_s, u"0"_s, u"768"_s});
    xrandr({u"--addmode"_s, u"screen"_s, u"small"_s});
    ASSERT_FALSE(xrandr({u"--output"_s, u"screen"_s, u"--mode"_s, u"small"_s}).isNull());
    ASSERT_TRUE(waitUntil([&] {
        const auto main = screens.main();
        return calls > 0 && main && main->deviceFrame == QRect(0, 0, 1024, 768);
    }));
    EXPECT_EQ(screens.all()[0].frame, QRectF(0, 0, 1024, 768));
}

TEST_F(FollowedScreensTest, tellsOfDisplaysThatComeAndGo) {
    splitTheScreen();
    const auto both = screens.all();
    EXPECT_NE(both[0].persistentID, both[1].persistentID);
    EXPECT_NE(both[0].displayID, both[1].displayID);
    const int callsBefore = calls;
    xrandr({u"--delmonitor"_s, u"right"_s});
    EXPECT_TRUE(waitUntil([&] { return screens.all().size() == 1 && calls > callsBefore; }));
}

TEST_F(FollowedScreensTest, hasNoScreenWhileTheOnlyDisplayIsOff) {
    xrandr({u"--output"_s, u"screen"_s, u"--off"_s});
    ASSERT_TRUE(waitUntil([&] { return screens.all().empty(); }));
    EXPECT_EQ(screens.main(), std::nullopt);
    xrandr({u"--output"_s, u"screen"_s, u"--auto"_s});
    EXPECT_TRUE(waitUntil([&] { return screens.all().size() == 1; }));
    EXPECT_EQ(calls, 2);
}

TEST_F(FollowedScreensTest, tellsSeveralListeners) {
    int others = 0;
    const Subscription other = screens.subscribe([&] { ++others; });
    setResources("Xft.dpi:\t192\n");
    EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
    EXPECT_EQ(others, 1);
}

TEST_F(PanelScreensTest, leavesOutAPanelOfALoneDisplay) {
    const xcb_window_t panel =
        showPanel({0, 0, 1280, 30}, {0, 0, 30, 0, 0, 0, 0, 0, 0, 1279, 0, 0});
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 1280, 770)}));
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    client->destroy(panel);
    EXPECT_TRUE(waitForFrames({QRectF(0, 0, 1280, 800)}));
}

TEST_F(PanelScreensTest, leavesOutThePanelsOfEachOfTwoDisplays) {
    splitTheScreen();
    const int callsBefore = calls;
    showPanel({0, 0, 640, 30}, {0, 0, 30, 0, 0, 0, 0, 0, 0, 639, 0, 0});
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 0, 640, 800)}));
    EXPECT_TRUE(waitUntil([&] { return calls > callsBefore; }));
    const xcb_window_t other =
        showPanel({640, 760, 640, 40}, {0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 640, 1279});
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 0, 640, 760)}));
    client->destroy(other);
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 0, 640, 800)}));
}

TEST_F(PanelScreensTest, keepsTheFrameUnderAPanelThatLeavesNoRoom) {
    splitTheScreen();
    showPanel({0, 0, 640, 790}, {0, 0, 790, 0, 0, 0, 0, 0, 0, 639, 0, 0});
    showPanel({640, 0, 640, 20}, {0, 0, 20, 0, 0, 0, 0, 0, 640, 1279, 0, 0});
    EXPECT_TRUE(waitForFrames({QRectF(0, 0, 640, 800), QRectF(640, 20, 640, 780)}));
}

TEST_F(PanelScreensTest, isNotToldOfWindowsThatLeaveTheVisibleFramesAsTheyAre) {
    splitTheScreen();
    showPanel({0, 0, 640, 30}, {0, 0, 30, 0, 0, 0, 0, 0, 0, 639, 0, 0});
    ASSERT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 0, 640, 800)}));
    const int before = calls;
    // Shallower than the one that is there.
    showPanel({0, 0, 640, 20}, {0, 0, 20, 0, 0, 0, 0, 0, 0, 639, 0, 0});
    showPanel({640, 0, 640, 25}, {0, 0, 25, 0, 0, 0, 0, 0, 640, 1279, 0, 0});
    EXPECT_TRUE(waitForFrames({QRectF(0, 30, 640, 770), QRectF(640, 25, 640, 775)}));
    EXPECT_EQ(calls, before + 1);
}

// A work area is told where panels are no windows too.
TEST_F(FollowedScreensTest, leavesOutWhatIsNoWorkAreaOfALoneDisplay) {
    client->setNumbers(client->root(), "_NET_WORKAREA", {10, 60, 1250, 700});
    EXPECT_TRUE(
        waitUntil([&] { return screens.main()->visibleFrame == QRectF(10, 60, 1250, 700); }));
    splitTheScreen();
    EXPECT_EQ(screens.main()->visibleFrame, screens.main()->frame);
}

// As GNOME tells it: without a panel of its own in any list of windows.
TEST_F(FollowedScreensTest, leavesOutWhatIsNoWorkAreaOfEachDisplay) {
    splitTheScreen();
    const xcb_atom_t hint = connection->intern("_GTK_WORKAREAS");
    xcb_change_property(connection->xcb(), XCB_PROP_MODE_REPLACE, connection->root(),
                        connection->intern("_NET_SUPPORTED"), XCB_ATOM_ATOM, 32, 1, &hint);
    client->setNumbers(client->root(), "_NET_WORKAREA", {0, 0, 1280, 800});
    client->setNumbers(client->root(), "_GTK_WORKAREAS_D0", {0, 32, 640, 768, 640, 0, 600, 800});
    EXPECT_TRUE(waitUntil([&] {
        const auto all = screens.all();
        return all[0].visibleFrame == QRectF(0, 32, 640, 768) &&
               all[1].visibleFrame == QRectF(640, 0, 600, 800);
    }));
    // They are of the whole monitor, whatever its points are.
    setResources("Xft.dpi:\t192\n");
    EXPECT_TRUE(
        waitUntil([&] { return screens.all()[0].visibleFrame == QRectF(0, 16, 320, 384); }));
}

namespace {

class NoMonitorsTest : public ScreensTest {
protected:
    NoMonitorsTest() : ScreensTest({.serverArguments = {u"-extension"_s, u"RANDR"_s}}) {}
};

} // namespace

TEST_F(NoMonitorsTest, aServerThatKnowsNoMonitorsHasOneScreen) {
    const X11Screens screens(*connection);
    ASSERT_EQ(screens.all().size(), 1U);
    EXPECT_EQ(screens.main()->deviceFrame, QRect(0, 0, 1280, 800));
    EXPECT_EQ(screens.main()->persistentID, u"screen"_s);
}

} // namespace zeph
