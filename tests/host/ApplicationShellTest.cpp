// SPDX-License-Identifier: MIT
#include "app/ApplicationShell.h"

#include "base/Background.h"
#include "support/FakeInputEvents.h"
#include "support/FakeShell.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/PrintedLines.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ApplicationShellTest : public testing::Test {
protected:
    void onboard() { defaults.set(u"zeph.onboarded"_s, true); }

    void settle() {
        do {
            executor.runAll();
            loop.drain();
        } while (executor.waiting() > 0);
    }

    void launch() {
        application.launch();
        settle();
    }

    /// What happened since the last call.
    ShellStory told() { return std::exchange(shell.story, {}); }

    FakeShell shell;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    FakeUserDefaults defaults;
    FakeInputEvents input;
    ApplicationShell application{{.ports = shell.ports,
                                  .defaults = defaults,
                                  .background = background,
                                  .inputEvents = input,
                                  .makeWindows = [this] { return shell.makeWindows(); },
                                  .startInput = [this] { shell.story.emplace_back("input"); },
                                  .persist = [this] { shell.story.emplace_back("persist"); },
                                  .terminate = [this] { shell.story.emplace_back("terminate"); }}};
};

TEST_F(ApplicationShellTest, aLaunchOfAnOnboardedProgramOpensNoWindow) {
    onboard();
    launch();
    EXPECT_THAT(told(), ElementsAre("accessory", "tray"));
}

TEST_F(ApplicationShellTest, aFirstLaunchShowsTheOnboardingInFront) {
    launch();
    EXPECT_THAT(told(), ElementsAre("regular", "tray", "regular", "windows made", "onboarding"));
    EXPECT_FALSE(defaults.boolean(u"zeph.onboarded"_s));
}

TEST_F(ApplicationShellTest, everyLaunchFollowsAProgramThatWasMoved) {
    onboard();
    launch();
    launch();
    EXPECT_EQ(shell.loginItem.renewals, 2);
}

TEST_F(ApplicationShellTest, launchAtLoginIsSwitchedOnOnceForAll) {
    launch();
    EXPECT_TRUE(shell.loginItem.enabled);
    EXPECT_TRUE(defaults.boolean(u"zeph.launchAtLogin.didSetDefault"_s));
    shell.loginItem.enabled = false; // the user's choice
    launch();
    EXPECT_FALSE(shell.loginItem.enabled);
}

TEST_F(ApplicationShellTest, launchAtLoginIsNotTriedAgainWhenItFailed) {
    shell.loginItem.problem = u"no"_s;
    const QStringList printed = printedLines([this] { launch(); });
    EXPECT_EQ(printed, QStringList(u"LaunchAtLogin: failed to enable: no"_s));
    launch();
    EXPECT_EQ(shell.loginItem.wishes.size(), 1U);
}

TEST_F(ApplicationShellTest, iconsThatAreAsWantedAreLeftAlone) {
    onboard();
    launch();
    EXPECT_TRUE(shell.desktopShell.areShown);
    shell.desktopShell.areShown = false;
    defaults.set(u"zeph.desktop.hideIcons"_s, true);
    launch();
    EXPECT_THAT(told(), Not(Contains(AnyOf("show icons", "hide icons", "relaunch"))));
}

TEST_F(ApplicationShellTest, iconsThatAreNotAsWantedAreBroughtThere) {
    onboard();
    defaults.set(u"zeph.desktop.hideIcons"_s, true);
    launch();
    EXPECT_THAT(told(), ElementsAre("accessory", "tray", "hide icons", "relaunch"));
    defaults.set(u"zeph.desktop.hideIcons"_s, false);
    launch();
    EXPECT_THAT(told(), ElementsAre("accessory", "tray", "show icons", "relaunch"));
}

TEST_F(ApplicationShellTest, theSwitchOfTheSettingsSaysWhetherIconsShow) {
    onboard();
    shell.desktopShell.areShown = false;
    launch();
    EXPECT_THAT(told(), ElementsAre("accessory", "tray", "show icons", "relaunch"))
        << "also those that were hidden by the desktop's own setting";
}

TEST_F(ApplicationShellTest, nothingIsStartedForIconsThatTheUserNeverHad) {
    onboard();
    shell.desktopShell.areShown = false;
    shell.desktopShell.drawerUnshown = IconDrawer::off;
    for (const bool hide : {false, true}) {
        defaults.set(u"zeph.desktop.hideIcons"_s, hide);
        launch();
        EXPECT_THAT(told(), ElementsAre("accessory", "tray"));
    }
}

TEST_F(ApplicationShellTest, iconsThatWeTookAwayComeBackWithTheSwitch) {
    onboard();
    shell.desktopShell.drawerUnshown = IconDrawer::off;
    defaults.set(u"zeph.desktop.hideIcons"_s, true);
    launch();
    told();
    launch();
    EXPECT_THAT(told(), ElementsAre("accessory", "tray")) << "they are away";
    defaults.set(u"zeph.desktop.hideIcons"_s, false);
    launch();
    EXPECT_THAT(told(), ElementsAre("accessory", "tray", "show icons", "relaunch"));
}

TEST_F(ApplicationShellTest, iconsThatComeAfterTheLaunchAreHiddenToo) {
    onboard();
    defaults.set(u"zeph.desktop.hideIcons"_s, true);
    launch();
    told();
    shell.desktopShell.drawerUnshown = IconDrawer::off;
    launch();
    EXPECT_THAT(told(), ElementsAre("accessory", "tray")) << "nothing is there that draws any";
    shell.desktopShell.bringDrawer();
    settle();
    EXPECT_THAT(told(), ElementsAre("hide icons", "relaunch"));
    shell.desktopShell.drawers.send();
    settle();
    EXPECT_THAT(told(), IsEmpty()) << "they are away";
}

TEST_F(ApplicationShellTest, iconsThatComeLaterStayWhereTheyAreWanted) {
    onboard();
    launch();
    told();
    shell.desktopShell.bringDrawer();
    settle();
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(ApplicationShellTest, aSessionThatInsistsOnItsIconsIsNotFoughtForEver) {
    onboard();
    defaults.set(u"zeph.desktop.hideIcons"_s, true);
    launch();
    told();
    for (int i = 0; i < 20; ++i) {
        shell.desktopShell.bringDrawer();
        settle();
    }
    EXPECT_EQ(told().size(), 2U * 5U);
}

TEST_F(ApplicationShellTest, aSwitchWorkedWhileTheDesktopAnswersCounts) {
    onboard();
    defaults.set(u"zeph.desktop.hideIcons"_s, true);
    application.launch();
    defaults.set(u"zeph.desktop.hideIcons"_s, false);
    settle();
    EXPECT_THAT(told(), ElementsAre("accessory", "tray"));
}

TEST_F(ApplicationShellTest, anEndWhileTheDesktopAnswersIsHarmless) {
    defaults.set(u"zeph.desktop.hideIcons"_s, true);
    {
        ApplicationShell other({.ports = shell.ports,
                                .defaults = defaults,
                                .background = background,
                                .inputEvents = input,
                                .makeWindows = [this] { return shell.makeWindows(); },
                                .startInput = [] {},
                                .persist = [] {},
                                .terminate = [] {}});
        other.launch();
    }
    told();
    settle();
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(ApplicationShellTest, theEndOfTheOnboardingIsKeptAndLeavesTheTaskBar) {
    input.trusted = false;
    launch();
    told();
    shell.onboarding.onDone();
    EXPECT_TRUE(defaults.boolean(u"zeph.onboarded"_s));
    EXPECT_THAT(told(), ElementsAre("onboarding closed", "accessory"));
}

TEST_F(ApplicationShellTest, inputAllowedInTheOnboardingStartsAtItsEnd) {
    launch();
    told();
    shell.onboarding.onDone();
    EXPECT_THAT(told(), ElementsAre("onboarding closed", "accessory", "input"));
}

TEST_F(ApplicationShellTest, anOnboardingThatIsClosedIsNotFinished) {
    launch();
    told();
    shell.onboarding.onClosed();
    EXPECT_FALSE(defaults.boolean(u"zeph.onboarded"_s));
    EXPECT_THAT(told(), ElementsAre("accessory"));
    application.handle(UserRequest::reopen);
    EXPECT_THAT(told(), ElementsAre("regular", "onboarding")) << "in the same windows";
    launch();
    EXPECT_THAT(told(), Contains("onboarding")) << "and at the next launch";
}

TEST_F(ApplicationShellTest, aStartDuringTheOnboardingBringsItToTheFront) {
    launch();
    told();
    application.handle(UserRequest::reopen);
    EXPECT_THAT(told(), ElementsAre("regular", "onboarding"));
}

TEST_F(ApplicationShellTest, aSecondStartOpensTheSettings) {
    onboard();
    launch();
    told();
    application.handle(UserRequest::reopen);
    EXPECT_THAT(told(), ElementsAre("windows made", "settings")) << "and stays out of the task bar";
    application.handle(UserRequest::reopen);
    EXPECT_THAT(told(), ElementsAre("settings"));
}

TEST_F(ApplicationShellTest, theMenuOpensTheSettingsAlsoDuringTheOnboarding) {
    launch();
    told();
    shell.statusBar.choose(u"Settings & Permissions…"_s);
    EXPECT_THAT(told(), ElementsAre("settings"));
}

TEST_F(ApplicationShellTest, updatesAreSoughtAndShown) {
    onboard();
    launch();
    told();
    shell.statusBar.choose(u"Check for Updates…"_s);
    EXPECT_THAT(told(), ElementsAre("check", "windows made", "updates"));
    application.handle(UserRequest::checkForUpdates);
    EXPECT_THAT(told(), ElementsAre("check", "updates"));
}

TEST_F(ApplicationShellTest, quittingSavesBeforeItEnds) {
    onboard();
    launch();
    told();
    shell.statusBar.choose(u"Quit Tavi"_s);
    EXPECT_THAT(told(), ElementsAre("persist", "terminate"));
    application.handle(UserRequest::quit);
    EXPECT_THAT(told(), ElementsAre("persist", "terminate"));
}

TEST_F(ApplicationShellTest, theActionOfTheDesktopEntryOpensTheSettings) {
    onboard();
    launch();
    told();
    application.handle(UserRequest::openSettings);
    EXPECT_THAT(told(), ElementsAre("windows made", "settings"));
}

} // namespace

} // namespace zeph
