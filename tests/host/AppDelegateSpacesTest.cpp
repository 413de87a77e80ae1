// SPDX-License-Identifier: MIT
#include "AppDelegateFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The wallpaper on three workspaces that both displays share, of which the first is in sight.
class AppDelegateSpacesTest : public AppDelegateTest {
protected:
    AppDelegateSpacesTest() { virtualDesktops.displays = {display(3, 1)}; }

    void choose(const std::set<int> &numbers) {
        preferences.setDesktopSelection(SomeDesktops{numbers});
    }
    void goToOneOfTwo(quint64 space) { virtualDesktops.change({display(2, space)}); }
    void goTo(quint64 space) { virtualDesktops.change({display(3, space)}); }

    std::vector<bool> visible() const {
        std::vector<bool> visible;
        for (const auto &log : living()) {
            visible.push_back(log->visible);
        }
        return visible;
    }

    /// What happened to the surfaces since the last call.
    SurfaceStory surfaces() { return std::exchange(*windowServer.story, {}); }
};

TEST_F(AppDelegateSpacesTest, aChoiceTakesEffectAtOnce) {
    launch();
    choose({2, 3});
    EXPECT_THAT(visible(), ElementsAre(false, false));
    EXPECT_EQ(delegate.desktopWindows()[0]->spaceBehavior(), SpaceBehavior::pinned);
    preferences.setDesktopSelection(AllDesktops{});
    EXPECT_THAT(visible(), ElementsAre(true, true));
    EXPECT_EQ(delegate.desktopWindows()[0]->spaceBehavior(), SpaceBehavior::allSpaces);
}

TEST_F(AppDelegateSpacesTest, theWallpaperComesAndGoesWithTheWorkspace) {
    launch();
    choose({2});
    for (const quint64 space : {2, 1, 3, 2, 1, 2}) {
        goTo(space);
        EXPECT_THAT(visible(), ElementsAre(space == 2, space == 2)) << space;
    }
    EXPECT_EQ(loop.timerCount(), 5U) << "the coordinator's";
}

TEST_F(AppDelegateSpacesTest, aChosenWorkspaceThatGoesLeavesItOnAllOfThem) {
    launch();
    choose({3});
    EXPECT_THAT(visible(), ElementsAre(false, false));
    virtualDesktops.change({display(2, 1)});
    EXPECT_THAT(visible(), ElementsAre(true, true));
    virtualDesktops.change({display(3, 1)});
    EXPECT_THAT(visible(), ElementsAre(false, false));
}

TEST_F(AppDelegateSpacesTest, withOneOfTheChosenWorkspacesGoneASwitchIsSettledAtOnce) {
    launch();
    choose({1, 3});
    virtualDesktops.change({display(2, 1)});
    goToOneOfTwo(2);
    EXPECT_THAT(visible(), ElementsAre(false, false));
    EXPECT_EQ(loop.timerCount(), 5U) << "the coordinator's";
}

TEST_F(AppDelegateSpacesTest, onAllWorkspacesASwitchTouchesNothing) {
    launch();
    surfaces();
    goTo(2);
    EXPECT_THAT(surfaces(), IsEmpty());
    delegate.desktopWindows().front()->orderOut();
    surfaces();
    goTo(3);
    EXPECT_THAT(surfaces(), IsEmpty()) << "not even what is out of sight";
}

TEST_F(AppDelegateSpacesTest, anEmptyChoiceMeansAll) {
    launch();
    choose({});
    EXPECT_THAT(visible(), ElementsAre(true, true));
    EXPECT_EQ(delegate.desktopWindows()[0]->spaceBehavior(), SpaceBehavior::allSpaces);
}

TEST_F(AppDelegateSpacesTest, ofDisplaysWithTheirOwnWorkspacesEachDecidesForItself) {
    virtualDesktops.displays = {display(2, 11, u"A"_s, 11), display(2, 22, u"B"_s, 21)};
    launch();
    choose({2});
    EXPECT_THAT(visible(), ElementsAre(false, true));
    virtualDesktops.change({display(2, 12, u"A"_s, 11), display(2, 21, u"B"_s, 21)});
    EXPECT_THAT(visible(), ElementsAre(true, false));
}

TEST_F(AppDelegateSpacesTest, windowsThatAreMadeForAnotherWorkspaceAreNeverShown) {
    choose({2});
    launch();
    EXPECT_THAT(visible(), ElementsAre(false, false));
    EXPECT_THAT(surfaces(), ElementsAre("0 made", "0 presented", "1 made", "1 presented"));
    EXPECT_EQ(delegate.desktopWindows()[1]->spaceBehavior(), SpaceBehavior::pinned);
    preferences.setDisplaySelection(OneScreen{u"B"_s});
    EXPECT_THAT(visible(), ElementsAre(false));
    goTo(2);
    EXPECT_THAT(visible(), ElementsAre(true));
}

TEST_F(AppDelegateSpacesTest, workspacesThatAreKnownLateHideWhatWasShown) {
    virtualDesktops.displays = {};
    choose({2});
    launch();
    EXPECT_THAT(visible(), ElementsAre(true, true)) << "the first frame waits for nothing";
    virtualDesktops.change({display(3, 1)});
    EXPECT_THAT(visible(), ElementsAre(false, false));
}

TEST_F(AppDelegateSpacesTest, aScreenThatWasOfAnotherSizeMeanwhileIsPaintedWhole) {
    launch();
    choose({2});
    const auto before = screens.screens;
    const qint64 presented = living()[0]->presentedPixels;
    screens.change({screen(u"A"_s, 1, 800, 600), screen(u"B"_s, 2, 640, 400, 800)});
    loop.drain();
    screens.change(before);
    loop.drain();
    goTo(2);
    EXPECT_EQ(living()[0]->presentedPixels - presented, 640 * 400) << "new pixels show nothing yet";
}

TEST_F(AppDelegateSpacesTest, screensThatChangeInPlaceStayHidden) {
    launch();
    choose({2});
    screens.change({screen(u"A"_s, 1, 800, 600), screen(u"B"_s, 2, 640, 400, 800)});
    loop.drain();
    EXPECT_THAT(visible(), ElementsAre(false, false));
    goTo(2);
    EXPECT_THAT(visible(), ElementsAre(true, true));
    EXPECT_EQ(living()[0]->lastFrame.size(), QSize(800, 600));
}

TEST_F(AppDelegateSpacesTest, aHiddenWallpaperIsNotPaintedUntilItComesBack) {
    launch();
    choose({2});
    const auto log = living().front();
    const int presents = log->presents;
    const QImage before = log->lastFrame;
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setBackgroundHex(u"#336699"_s);
    loop.drain();
    EXPECT_EQ(log->presents, presents);
    surfaces();
    goTo(2);
    EXPECT_THAT(surfaces(), ElementsAre("0 presented", "0 shown", "1 presented", "1 shown"))
        << "painted before it is seen";
    EXPECT_NE(log->lastFrame, before);
    goTo(1);
    goTo(2);
    EXPECT_EQ(log->presents, presents + 1) << "nothing has changed meanwhile";
}

TEST_F(AppDelegateSpacesTest, aHiddenWallpaperComesBackTransparentWhenThatWasChosen) {
    windowServer.compositing = true;
    launch();
    choose({2});
    preferences.setBackgroundMode(BackgroundMode::transparent);
    loop.drain();
    goTo(2);
    ASSERT_THAT(visible(), ElementsAre(true, true));
    EXPECT_TRUE(living().front()->wantsTransparency);
}

TEST_F(AppDelegateSpacesTest, aHiddenWallpaperStaysHiddenWhenACompositorComes) {
    preferences.setBackgroundMode(BackgroundMode::transparent);
    launch();
    choose({2});
    windowServer.setCompositing(true);
    EXPECT_THAT(visible(), ElementsAre(false, false));
    goTo(2);
    EXPECT_THAT(visible(), ElementsAre(true, true));
}

} // namespace
} // namespace zeph
