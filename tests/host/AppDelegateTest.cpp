// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "AppDelegateFixture.h"
#include "services/accounts/AccountCoding.h"

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(AppDelegateTest, launchMovesTheSecretsOfAnEarlierVersionAwayFromTheMainThread) {
    delegate.applicationDidFinishLaunching();
    EXPECT_FALSE(defaults.boolean(u"tavi.keychain.serviceMigrated"_s));
    executor.runAll();
    EXPECT_TRUE(defaults.boolean(u"tavi.keychain.serviceMigrated"_s));
}

TEST_F(AppDelegateTest, endpointsThatComeInLateAreAskedAlone) {
    integrations.upsertCustomAPI({QUuid::createUuid(), u"n"_s, u"https://a.org"_s, {}, {}});
    delegate.applicationDidFinishLaunching();
    settle();
    notifications.post(notifications::zephCustomAPIsLoaded);
    EXPECT_EQ(executor.waiting(), 1U);
}

TEST_F(AppDelegateTest, endpointsThatWereRefusedAtLaunchComeInWithALaterRefresh) {
    const CustomAPIConfig config{QUuid::createUuid(), u"n"_s, u"https://a.org"_s, {}, {}};
    defaults.set(u"zeph.integrations.custom.exists"_s, true);
    secrets.put(u"com.tavi.integrations"_s,
                {u"custom_apis"_s, coding::json(std::vector<CustomAPIConfig>{config})});
    secrets.answer(SecretOutcome::refused);
    IntegrationsStore late{defaults, keychain, notifications, loop, executor};
    AppServices services{platform,
                         notifications,
                         preferences,
                         *usageStore,
                         late,
                         keychain,
                         location,
                         endpoints,
                         std::chrono::minutes(10),
                         textMetrics,
                         painter,
                         requests,
                         [this]() -> const ShellPorts & { return shell.ports; },
                         [this](const WindowParts &) { return shell.makeWindows(); },
                         [] {}};
    AppDelegate asking{services};
    asking.applicationDidFinishLaunching();
    settle();
    EXPECT_TRUE(late.customAPIs().empty());
    secrets.answer(SecretOutcome::done);
    loop.advance(600);
    settle();
    EXPECT_EQ(late.customAPIs(), std::vector{config});
}

TEST_F(AppDelegateTest, theRatingsSourceIsNamedAsTheAccountSays) {
    delegate.applicationDidFinishLaunching();
    IntegrationConnection account = integrations.addConnection(u"ahrefs"_s, {}, u"a.org"_s);
    settle();
    SimpleIntegrationStats rating;
    rating.id = account.id;
    rating.provider = u"ahrefs"_s;
    rating.updated = clock.now();
    delegate.state().simpleStats = std::vector{rating};
    loop.drain();
    const auto painted = living().front()->presentedPixels;
    account.showAhrefsAttribution = false;
    integrations.updateConnection(account);
    loop.drain();
    EXPECT_GT(living().front()->presentedPixels, painted) << "the line has gone from the card";
}

TEST_F(AppDelegateTest, launchMakesOneVisibleWindowAScreen) {
    launch();
    ASSERT_EQ(living().size(), 2U);
    for (const auto &log : living()) {
        EXPECT_TRUE(log->visible);
        EXPECT_GT(log->presentedPixels, 0);
    }
    EXPECT_EQ(delegate.builtScreenIDs(), QStringList({u"A"_s, u"B"_s}));
}

TEST_F(AppDelegateTest, theEndTakesTheWallpaperOffTheDesktop) {
    delegate.applicationDidFinishLaunching();
    ASSERT_TRUE(windowServer.logs.front()->visible);
    delegate.takeDownWallpaper();
    EXPECT_FALSE(windowServer.logs.front()->visible);
    EXPECT_THAT(delegate.desktopWindows(), IsEmpty());
}

TEST_F(AppDelegateTest, theFirstPictureIsPaintedBeforeItIsShown) {
    delegate.applicationDidFinishLaunching();
    ASSERT_GE(windowServer.story->size(), 6U);
    windowServer.story->resize(6);
    EXPECT_THAT(*windowServer.story, ElementsAre("0 made", "0 presented", "0 shown", "1 made",
                                                 "1 presented", "1 shown"));
}

TEST_F(AppDelegateTest, aResolutionChangeKeepsTheWindows) {
    launch();
    const auto before = living();
    screens.change({screen(u"A"_s, 1, 800, 600), screen(u"B"_s, 2, 640, 400, 800)});
    loop.drain();
    ASSERT_EQ(living(), before);
    EXPECT_EQ(before[0]->screen.frame.size(), QSizeF(800, 600));
    EXPECT_EQ(before[0]->lastFrame.size(), QSize(800, 600));
}

TEST_F(AppDelegateTest, aSwappedOrderRebuildsAllWindows) {
    launch();
    const auto before = living();
    screens.change({screen(u"B"_s, 2, 640, 400), screen(u"A"_s, 1, 640, 400, 640)});
    for (const auto &log : before) {
        EXPECT_FALSE(log->alive);
    }
    EXPECT_EQ(living().size(), 2U);
    EXPECT_EQ(delegate.builtScreenIDs(), QStringList({u"B"_s, u"A"_s}));
}

TEST_F(AppDelegateTest, unpluggingTheSelectedDisplayFallsBackAndPluggingItInReturns) {
    preferences.setDisplaySelection(OneScreen{u"B"_s});
    launch();
    EXPECT_EQ(delegate.builtScreenIDs(), QStringList({u"B"_s}));
    const auto both = screens.screens;
    screens.change({both[0]});
    EXPECT_EQ(delegate.builtScreenIDs(), QStringList({u"A"_s}));
    screens.change(both);
    EXPECT_EQ(delegate.builtScreenIDs(), QStringList({u"B"_s}));
    EXPECT_EQ(living().size(), 1U);
}

TEST_F(AppDelegateTest, aChangedSelectionRebuilds) {
    launch();
    preferences.setDisplaySelection(OneScreen{u"B"_s});
    EXPECT_EQ(delegate.builtScreenIDs(), QStringList({u"B"_s}));
    EXPECT_EQ(living().size(), 1U);
}

TEST_F(AppDelegateTest, noScreensAtAllClosesTheWindowsAndLeavesTheInsets) {
    screens.screens = {screen(u"A"_s, 1, 640, 400, 0, 1, 30)};
    launch();
    const EdgeInsets insets = *delegate.state().dockInsets;
    EXPECT_DOUBLE_EQ(insets.top, 30);
    screens.change({});
    EXPECT_TRUE(living().empty());
    EXPECT_TRUE(delegate.builtScreenIDs().isEmpty());
    EXPECT_EQ(*delegate.state().dockInsets, insets);
    screens.change({screen(u"A"_s, 1, 640, 400)});
    EXPECT_EQ(living().size(), 1U);
}

TEST_F(AppDelegateTest, launchingWithoutAScreenWaitsForOne) {
    screens.screens.clear();
    launch();
    EXPECT_TRUE(living().empty());
    screens.change({screen(u"A"_s, 1, 640, 400)});
    ASSERT_EQ(living().size(), 1U);
    EXPECT_TRUE(living().front()->visible);
}

TEST_F(AppDelegateTest, insetsAreThePrimaryScreensAndNeverNegative) {
    Screen first = screen(u"A"_s, 1, 640, 400);
    first.visibleFrame = QRectF(20, 30, 640, 360); // reaches past the right edge
    screens.screens = {first, screen(u"B"_s, 2, 640, 400, 640, 1, 99)};
    launch();
    EXPECT_EQ(*delegate.state().dockInsets, (EdgeInsets{30, 20, 10, 0}));
}

TEST_F(AppDelegateTest, noInsetIsNegativeWhereverTheVisibleFrameLies) {
    Screen first = screen(u"A"_s, 1, 640, 400);
    first.visibleFrame = QRectF(-5, -5, 700, 500);
    screens.screens = {first};
    launch();
    EXPECT_EQ(*delegate.state().dockInsets, EdgeInsets());
}

TEST_F(AppDelegateTest, insetsAreThoseOfTheChosenDisplay) {
    screens.screens = {screen(u"A"_s, 1, 640, 400, 0, 1, 30),
                       screen(u"B"_s, 2, 640, 400, 640, 1, 99)};
    preferences.setDisplaySelection(OneScreen{u"B"_s});
    launch();
    EXPECT_EQ(*delegate.state().dockInsets, (EdgeInsets{99, 0, 0, 0}));
}

TEST_F(AppDelegateTest, aDisplayWithoutAnIdentityHasAWindow) {
    screens.screens = {screen({}, 77, 640, 400)};
    launch();
    EXPECT_EQ(delegate.builtScreenIDs(), QStringList{u"77"_s});
    ASSERT_EQ(living().size(), 1U);
    EXPECT_TRUE(living().front()->visible);
}

TEST_F(AppDelegateTest, withoutWindowsTheInsetsAreTheMainScreens) {
    screens.screens.clear();
    screens.mainAlone = screen(u"A"_s, 1, 640, 400, 0, 1, 30);
    launch();
    EXPECT_TRUE(delegate.desktopWindows().empty());
    EXPECT_EQ(*delegate.state().dockInsets, (EdgeInsets{30, 0, 0, 0}));
}

TEST_F(AppDelegateTest, insetsFollowAPanelOnAWindowThatStays) {
    screens.screens = {screen(u"A"_s, 1, 640, 400)};
    launch();
    const auto before = living();
    EXPECT_EQ(*delegate.state().dockInsets, EdgeInsets());
    screens.change({screen(u"A"_s, 1, 640, 400, 0, 1, 30)});
    EXPECT_EQ(living(), before);
    EXPECT_EQ(*delegate.state().dockInsets, (EdgeInsets{30, 0, 0, 0}));
}

TEST_F(AppDelegateTest, anotherScaleOfTheSamePixelsRepaintsAllOfThem) {
    screens.screens = {screen(u"A"_s, 1, 640, 400)};
    launch();
    const auto log = living().front();
    const qint64 painted = log->presentedPixels;
    screens.change({screen(u"A"_s, 1, 320, 200, 0, 2)});
    loop.drain();
    ASSERT_EQ(living(), std::vector{log});
    EXPECT_GE(log->presentedPixels - painted, 640LL * 400);
    const QImage scaled = log->lastFrame;
    screens.change({});
    screens.change({screen(u"A"_s, 1, 320, 200, 0, 2)});
    loop.drain();
    ASSERT_EQ(living().size(), 1U);
    EXPECT_EQ(living().front()->lastFrame, scaled) << "a new window looks the same";
}

TEST_F(AppDelegateTest, aWindowIsHiddenBeforeItGoes) {
    screens.screens = {screen(u"A"_s, 1, 640, 400)};
    launch();
    windowServer.story->clear();
    screens.change({});
    EXPECT_THAT(*windowServer.story, ElementsAre("0 hidden", "0 gone"));
}

TEST_F(AppDelegateTest, insetsAreAssignedOnEveryRebuildChangedOrNot) {
    launch();
    int changes = 0;
    const Subscription counting = delegate.state().objectWillChange.subscribe([&] { ++changes; });
    screens.change(screens.screens);
    EXPECT_EQ(changes, 1);
}

TEST_F(AppDelegateTest, manyAssignmentsInOneTurnMakeOneRedraw) {
    launch();
    const int before = living().front()->presents;
    delegate.state().currentAppName = u"One"_s;
    delegate.state().currentAppName = u"Two"_s;
    delegate.state().load = SystemLoad{0.5, 1, 2, 0.5};
    EXPECT_EQ(living().front()->presents, before) << "nothing is drawn inside the assignment";
    loop.drain();
    EXPECT_EQ(living().front()->presents, before + 1);
}

TEST_F(AppDelegateTest, anEqualStatePresentsNothing) {
    launch();
    const int before = living().front()->presents;
    delegate.state().load = *delegate.state().load;
    loop.drain();
    EXPECT_EQ(living().front()->presents, before);
}

TEST_F(AppDelegateTest, anHourWithoutNewsPresentsOnlyTheClockAndItsLine) {
    input.idleSeconds = 10;
    launch();
    loop.advance(60);
    const auto log = living().front();
    const qint64 before = log->presentedPixels;
    const int presents = log->presents;
    loop.advance(3600);
    EXPECT_GE(log->presents - presents, 60) << "the clock shows every minute";
    const qint64 whole = 640LL * 400;
    EXPECT_LT(log->presentedPixels - before, 3600 * whole / 100)
        << "less than a hundredth of what repainting everything each second would present";
}

TEST_F(AppDelegateTest, aPreferenceRedraws) {
    launch();
    const int before = living().front()->presents;
    preferences.set(WidgetPlacement::off, WidgetKind::machine);
    loop.drain();
    EXPECT_GT(living().front()->presents, before);
}

TEST_F(AppDelegateTest, transparentModeMakesTheSurfacesAnewAndFollowsTheCompositor) {
    launch();
    EXPECT_FALSE(living().front()->wantsTransparency);
    windowServer.compositing = true;
    preferences.setBackgroundMode(BackgroundMode::transparent);
    loop.drain();
    ASSERT_EQ(living().size(), 2U);
    EXPECT_TRUE(living().front()->wantsTransparency);
    EXPECT_TRUE(living().front()->visible);
    EXPECT_EQ(qAlpha(living().front()->lastFrame.pixel(2, 2)), 0);
    windowServer.setCompositing(false);
    loop.drain();
    ASSERT_EQ(living().size(), 2U);
    EXPECT_EQ(qAlpha(living().front()->lastFrame.pixel(2, 2)), 255)
        << "without a compositor the solid backdrop stands in";
}

TEST_F(AppDelegateTest, anOpaqueWallpaperTakesNoNoticeOfACompositor) {
    launch();
    windowServer.story->clear();
    for (const bool isRunning : {true, false}) {
        windowServer.setCompositing(isRunning);
        loop.drain();
    }
    EXPECT_THAT(*windowServer.story, IsEmpty());
}

TEST_F(AppDelegateTest, anotherMechanismMakesTheSurfacesAnewWithoutAFlash) {
    screens.screens = {screen(u"A"_s, 1, 640, 400)};
    launch();
    windowServer.story->clear();
    windowServer.setDrawingWay({DrawingMechanism::loweredOverride, u"Another manager came."_s});
    const std::vector<std::string> changeOver{"1 made", "1 presented", "1 shown", "0 hidden",
                                              "0 gone"};
    EXPECT_EQ(*windowServer.story, changeOver);
}

TEST_F(AppDelegateTest, anotherReasonForTheSameMechanismLeavesTheSurfaces) {
    launch();
    windowServer.story->clear();
    windowServer.setDrawingWay({windowServer.drawingWay().mechanism, u"Another manager came."_s});
    loop.drain();
    EXPECT_THAT(*windowServer.story, IsEmpty());
}

TEST_F(AppDelegateTest, theNewSurfaceShowsBeforeTheOldOneGoes) {
    screens.screens = {screen(u"A"_s, 1, 640, 400)};
    preferences.setBackgroundMode(BackgroundMode::transparent);
    launch();
    windowServer.story->clear();
    windowServer.setCompositing(true);
    const std::vector<std::string> changeOver{"1 made", "1 presented", "1 shown", "0 hidden",
                                              "0 gone"};
    EXPECT_EQ(*windowServer.story, changeOver);
    windowServer.story->clear();
    preferences.setBackgroundMode(BackgroundMode::solid);
    loop.drain();
    const std::vector<std::string> changeBack{"2 made", "2 presented", "2 shown", "1 hidden",
                                              "1 gone"};
    EXPECT_EQ(*windowServer.story, changeBack);
}

TEST_F(AppDelegateTest, terminationPersistsAndTwiceIsHarmless) {
    delegate.applicationWillTerminate();
    EXPECT_FALSE(usageStore->loadDailyStats(usageStore->dayKey(clock.now())))
        << "before the launch there is nothing to save";
    launch();
    workspace.activate(application(u"org.a"_s, u"A"_s));
    loop.advance(5);
    delegate.applicationWillTerminate();
    delegate.applicationWillTerminate();
    EXPECT_EQ(usageStore->loadAppUsage(usageStore->dayKey(clock.now())).size(), 1U);
}

} // namespace
} // namespace zeph
