// SPDX-License-Identifier: MIT
#include "AppDelegateFixture.h"
#include "adapters/bus/ApplicationRequest.h"

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// When what stands around the wallpaper is launched, and what it shares with it.
class AppDelegateShellTest : public AppDelegateTest {};

TEST_F(AppDelegateShellTest, theWallpaperIsThereBeforeTheShellIsMade) {
    launch();
    EXPECT_EQ(living().size(), 2U);
    EXPECT_THAT(told(), IsEmpty());
    loop.advance(0.1);
    EXPECT_EQ(told().front(), "shell made");
}

TEST_F(AppDelegateShellTest, whatIsAskedBeforeTheShellIsThereIsDoneOnceItIs) {
    defaults.set(u"zeph.onboarded"_s, true);
    requests.take({.kind = ApplicationRequest::Kind::activate});
    launch();
    EXPECT_THAT(told(), IsEmpty());
    loop.advance(0.1);
    EXPECT_THAT(told(), ElementsAre("shell made", "accessory", "tray", "windows made", "settings"));
}

TEST_F(AppDelegateShellTest, beingStartedAgainOpensTheSettings) {
    defaults.set(u"zeph.onboarded"_s, true);
    launch();
    loop.advance(0.1);
    told();
    requests.take({.kind = ApplicationRequest::Kind::activate});
    EXPECT_THAT(told(), ElementsAre("windows made", "settings"));
}

TEST_F(AppDelegateShellTest, quittingByTheMenuSavesAndEnds) {
    launch();
    loop.advance(0.1);
    workspace.activate(application(u"org.a"_s, u"A"_s));
    loop.advance(5);
    shell.statusBar.choose(u"Quit Tavi"_s);
    EXPECT_EQ(terminations, 1);
    const auto saved = usageStore->loadAppUsage(usageStore->dayKey(clock.now()));
    EXPECT_EQ(saved.size(), 1U);
    delegate.applicationWillTerminate();
    EXPECT_EQ(usageStore->loadAppUsage(usageStore->dayKey(clock.now())), saved)
        << "the second save writes the same";
}

TEST_F(AppDelegateShellTest, inputAllowedDuringTheOnboardingIsCountedFromItsEndOn) {
    input.trusted = false;
    launch();
    loop.advance(0.1);
    EXPECT_EQ(input.tapsMade, 0);
    input.trusted = true; // as yet untold
    shell.onboarding.onDone();
    EXPECT_EQ(input.tapsMade, 1);
}

TEST_F(AppDelegateShellTest, theTrayIsLeftAtTheEnd) {
    {
        AppDelegate other{services()};
        other.applicationDidFinishLaunching();
        loop.advance(0.1);
        EXPECT_EQ(shell.statusBar.items, 1);
    }
    EXPECT_EQ(shell.statusBar.items, 0);
    requests.take({.kind = ApplicationRequest::Kind::activate}); // nobody is there to do it
}

} // namespace
} // namespace zeph
