// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The program on four workspaces of a window manager, of which the second was chosen.
class WorkspacesTest : public TaviTest {
protected:
    WorkspacesTest() {
        startWindowManager();
        session.run({u"wmctrl"_s, u"-n"_s, u"4"_s});
        writeSettings(R"({"zeph.desktop.selection": "2"})");
    }

    /// Counts from one, as people do.
    void goTo(int workspace) {
        ASSERT_FALSE(session.run({u"wmctrl"_s, u"-s"_s, QString::number(workspace - 1)}).isNull());
    }

    /// Whether the wallpaper is on the screen to its corners. Its middle may be covered by the
    /// window manager's greeting.
    bool becomesVisible(bool wanted) const {
        const QList<QPoint> spots{{2, 2}, {1277, 2}, {2, 797}, {1277, 797}};
        return waitUntil(
            [&] {
                return std::all_of(spots.begin(), spots.end(), [&](QPoint spot) {
                    return ((client->pixel(spot) & 0xFFFFFF) != kBareScreen) == wanted;
                });
            },
            kPatience);
    }

    bool hasWallpaper() const {
        return waitUntil([this] { return client->find("Tavi") != 0; }, kPatience);
    }

    quint32 activeWindow() const {
        return client->numbers(client->root(), "_NET_ACTIVE_WINDOW").value(0);
    }
};

} // namespace

TEST_F(WorkspacesTest, theWallpaperIsOnTheChosenOneAlone) {
    const Program tavi(environment());
    ASSERT_TRUE(hasWallpaper());
    EXPECT_TRUE(becomesVisible(false));
    for (const int workspace : {2, 1, 3, 2, 4, 2}) {
        goTo(workspace);
        EXPECT_TRUE(becomesVisible(workspace == 2)) << workspace;
    }
    EXPECT_TRUE(tavi.isRunning());
}

TEST_F(WorkspacesTest, fastSwitchesEndRight) {
    const auto base = client->show({.geometry = {0, 0, 1280, 800},
                                    .colour = kBareScreen,
                                    .type = "_NET_WM_WINDOW_TYPE_DESKTOP"});
    const Program tavi(environment());
    ASSERT_TRUE(hasWallpaper());
    for (const int last : {2, 3, 2, 1}) {
        for (const int workspace : {1, 2, 3, 2, 4, 2, last}) {
            goTo(workspace);
        }
        EXPECT_TRUE(becomesVisible(last == 2)) << last;
    }
    // What comes back is as good as new: clicks go through, and it is below other windows.
    goTo(2);
    ASSERT_TRUE(becomesVisible(true));
    client->takeClicks(base);
    EXPECT_TRUE(waitUntil([&] {
        session.run({u"xdotool"_s, u"mousemove"_s, u"900"_s, u"600"_s, u"click"_s, u"1"_s});
        return client->takeClicks(base) > 0;
    }));
    EXPECT_TRUE(becomesVisible(true));
    const auto window = client->show({.geometry = {300, 200, 200, 150}, .colour = 0x00FF00});
    EXPECT_TRUE(waitUntil([&] {
        return client->pixel(client->geometry(window).center()) == 0x00FF00;
    })) << "the wallpaper hides other windows";
}

TEST_F(WorkspacesTest, theFocusStaysWhereItWas) {
    const Program tavi(environment());
    ASSERT_TRUE(hasWallpaper());
    const auto window = client->show({.geometry = {300, 200, 200, 150}, .colour = 0x00FF00});
    client->activate(window);
    ASSERT_TRUE(waitUntil([&] { return activeWindow() == window; }));
    const auto wallpaper = client->find("Tavi");
    client->watchFocus(wallpaper);
    for (const int workspace : {2, 3, 2, 1}) {
        goTo(workspace);
        EXPECT_TRUE(becomesVisible(workspace == 2)) << workspace;
        EXPECT_NE(activeWindow(), wallpaper) << workspace;
    }
    EXPECT_TRUE(waitUntil([&] { return activeWindow() == window; }));
    EXPECT_EQ(client->focusCount(wallpaper), 0);
}

TEST_F(WorkspacesTest, isOnAllOfThemWhenTheChosenOneGoes) {
    const Program tavi(environment());
    ASSERT_TRUE(hasWallpaper());
    EXPECT_TRUE(becomesVisible(false));
    session.run({u"wmctrl"_s, u"-n"_s, u"1"_s});
    EXPECT_TRUE(becomesVisible(true));
    session.run({u"wmctrl"_s, u"-n"_s, u"3"_s});
    EXPECT_TRUE(becomesVisible(false));
}

} // namespace zeph
