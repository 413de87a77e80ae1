// SPDX-License-Identifier: MIT
#include "host/DesktopIconsManager.h"

#include "base/Background.h"
#include "host/EarlierIcons.h"
#include "support/FakeShell.h"
#include "support/FakeUserDefaults.h"
#include "support/LoggedLines.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <gmock/gmock.h>

namespace zeph {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DesktopIconsManagerTest : public testing::Test {
protected:
    void settle() {
        do {
            executor.runAll();
            loop.drain();
        } while (executor.waiting() > 0);
    }

    std::optional<QString> kept() { return EarlierIcons(defaults).of(shell.desktop); }
    void apply(bool hidden) {
        manager.applyHidden(hidden);
        settle();
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    ShellStory story;
    FakeDesktopShell shell{story};
    FakeUserDefaults defaults;
    DesktopIconsManager manager{shell, defaults, background};
};

const QString smallIcons = QStringLiteral("small");

TEST_F(DesktopIconsManagerTest, tellsWhetherTheIconsAreVisible) {
    for (const bool areShown : {true, false}) {
        shell.areShown = areShown;
        std::optional<bool> told;
        manager.systemIconsVisible([&](bool areVisible) { told = areVisible; });
        EXPECT_FALSE(told) << "the desktop is not asked on the main thread";
        settle();
        EXPECT_EQ(told, areShown);
    }
}

TEST_F(DesktopIconsManagerTest, writesTheSettingAndHasTheDesktopReadIt) {
    manager.applyHidden(true);
    EXPECT_THAT(story, IsEmpty()) << "the desktop's tools don't run on the main thread";
    settle();
    EXPECT_THAT(story, ElementsAre("hide icons", "relaunch"));
    EXPECT_FALSE(shell.areShown);
    story.clear();
    manager.applyHidden(false);
    settle();
    EXPECT_THAT(story, ElementsAre("show icons", "relaunch"));
    EXPECT_TRUE(shell.areShown);
}

TEST_F(DesktopIconsManagerTest, aWriteThatDoesNotStickIsRepeatedOnce) {
    shell.deafFor = 1;
    manager.applyHidden(true);
    settle();
    EXPECT_THAT(story, ElementsAre("hide icons", "relaunch", "hide icons", "relaunch"));
    EXPECT_FALSE(shell.areShown);
}

TEST_F(DesktopIconsManagerTest, thereIsNoThirdTry) {
    shell.deafFor = 9;
    manager.applyHidden(true);
    settle();
    EXPECT_THAT(story, ElementsAre("hide icons", "relaunch", "hide icons", "relaunch"));
    EXPECT_TRUE(shell.areShown);
}

TEST_F(DesktopIconsManagerTest, ofManyChangesTheLastHolds) {
    manager.applyHidden(true);
    manager.applyHidden(false);
    manager.applyHidden(true);
    settle();
    EXPECT_FALSE(shell.areShown);
}

TEST_F(DesktopIconsManagerTest, countsIconsAsVisibleWhereNobodyCanTell) {
    shell.areShown = false;
    shell.isReadable = false;
    std::optional<bool> told;
    manager.systemIconsVisible([&](bool areVisible) { told = areVisible; });
    settle();
    EXPECT_EQ(told, true);
    shell.canHideUnread = true;
    apply(true);
    EXPECT_THAT(story, ElementsAre("hide icons", "relaunch", "hide icons", "relaunch"));
}

TEST_F(DesktopIconsManagerTest, iconsStayWhereASettingThatLastsCannotBeRead) {
    shell.isReadable = false;
    const QStringList logged = loggedLines(QStringLiteral("zeph.system"), [this] { apply(true); });
    EXPECT_THAT(story, IsEmpty());
    EXPECT_EQ(logged.size(), 1);
    EXPECT_FALSE(kept().has_value());
}

TEST_F(DesktopIconsManagerTest, iconsStayWhereTheSettingCannotBeSaved) {
    defaults.canSave = false;
    const QStringList logged = loggedLines(QStringLiteral("zeph.system"), [this] { apply(true); });
    EXPECT_THAT(story, IsEmpty());
    EXPECT_EQ(logged.size(), 1);
    EXPECT_FALSE(kept().has_value()) << "nothing was hidden";
    defaults.canSave = true;
    apply(true);
    EXPECT_FALSE(shell.areShown);
    EXPECT_EQ(kept(), FakeDesktopShell::plain);
}

TEST_F(DesktopIconsManagerTest, eachDesktopHasASettingOfItsOwn) {
    shell.style = smallIcons;
    apply(true);
    shell.desktop = QStringLiteral("another");
    shell.areShown = true;
    shell.style = FakeDesktopShell::plain;
    EXPECT_FALSE(manager.keepsEarlier());
    EXPECT_TRUE(manager.keepsAny());
    apply(true);
    apply(false);
    EXPECT_EQ(shell.style, FakeDesktopShell::plain);
    EXPECT_FALSE(manager.keepsEarlier());
    shell.desktop = QStringLiteral("fake");
    shell.areShown = false;
    apply(false);
    EXPECT_EQ(shell.style, smallIcons);
    EXPECT_FALSE(manager.keepsAny());
}

TEST_F(DesktopIconsManagerTest, whatAnotherDesktopHasOffIsNotMissedHere) {
    apply(true);
    shell.desktop = QStringLiteral("another");
    shell.drawerUnshown = IconDrawer::off;
    story.clear();
    apply(false);
    EXPECT_THAT(story, IsEmpty());
}

TEST_F(DesktopIconsManagerTest, theSettingOfTheUserComesBack) {
    shell.style = smallIcons;
    EXPECT_FALSE(kept().has_value());
    manager.applyHidden(true);
    settle();
    EXPECT_EQ(kept(), smallIcons);
    EXPECT_TRUE(kept().has_value());
    shell.style.clear();
    manager.applyHidden(false);
    settle();
    EXPECT_EQ(shell.style, smallIcons);
    EXPECT_FALSE(kept().has_value()) << "it is the user's own again";
}

TEST_F(DesktopIconsManagerTest, theSettingIsKeptBeforeItIsWrittenOver) {
    shell.style = smallIcons;
    shell.deafFor = 9;
    shell.outcome = ShellOutcome::refused;
    manager.applyHidden(true);
    settle();
    EXPECT_EQ(kept(), smallIcons);
}

TEST_F(DesktopIconsManagerTest, whatIsHiddenOrCannotBeReadTakesNoKeptSettingsPlace) {
    shell.style = smallIcons;
    manager.applyHidden(true);
    settle();
    manager.applyHidden(true);
    settle();
    EXPECT_EQ(kept(), smallIcons);
    shell.isReadable = false;
    shell.canHideUnread = true;
    manager.applyHidden(true);
    settle();
    EXPECT_EQ(kept(), smallIcons);
}

TEST_F(DesktopIconsManagerTest, aNewerSettingOfTheUserTakesTheKeptOnesPlace) {
    manager.applyHidden(true);
    settle();
    shell.areShown = true;
    shell.style = smallIcons;
    manager.applyHidden(true);
    settle();
    EXPECT_EQ(kept(), smallIcons);
}

TEST_F(DesktopIconsManagerTest, aNewerSettingOfAPartIsKeptBesideThoseOfTheOthers) {
    shell.isOfParts = true;
    manager.applyHidden(true);
    settle();
    EXPECT_EQ(kept(), FakeDesktopShell::plain);
    shell.areShown = true;
    shell.style = smallIcons;
    manager.applyHidden(true);
    settle();
    EXPECT_EQ(kept(), FakeDesktopShell::plain + u'+' + smallIcons);
}

TEST_F(DesktopIconsManagerTest, iconsThatNothingDrawsCountAsVisibleAndAreLeftAlone) {
    shell.areShown = false;
    for (const IconDrawer drawer : {IconDrawer::off, IconDrawer::none}) {
        shell.drawerUnshown = drawer;
        std::optional<bool> told;
        manager.systemIconsVisible([&](bool areVisible) { told = areVisible; });
        manager.applyHidden(true);
        manager.applyHidden(false);
        const QStringList logged = loggedLines(QStringLiteral("zeph.system"), [this] { settle(); });
        EXPECT_EQ(told, true) << "none are missed";
        EXPECT_THAT(story, IsEmpty());
        EXPECT_THAT(logged, IsEmpty());
        EXPECT_FALSE(kept().has_value());
    }
}

TEST_F(DesktopIconsManagerTest, whatWeSwitchedOffComesBack) {
    shell.drawerUnshown = IconDrawer::off;
    shell.style = smallIcons;
    manager.applyHidden(true);
    const QStringList logged = loggedLines(QStringLiteral("zeph.system"), [this] { settle(); });
    EXPECT_THAT(story, ElementsAre("hide icons", "relaunch"));
    EXPECT_THAT(logged, IsEmpty());
    std::optional<bool> told;
    manager.systemIconsVisible([&](bool areVisible) { told = areVisible; });
    settle();
    EXPECT_EQ(told, false);
    story.clear();
    manager.applyHidden(false);
    settle();
    EXPECT_THAT(story, ElementsAre("show icons", "relaunch"));
    EXPECT_EQ(shell.style, smallIcons);
}

TEST_F(DesktopIconsManagerTest, nothingIsShownWhereNoDesktopIsLeftThatShowsIcons) {
    manager.applyHidden(true);
    settle();
    story.clear();
    shell.drawerUnshown = IconDrawer::none;
    std::optional<bool> told;
    manager.systemIconsVisible([&](bool areVisible) { told = areVisible; });
    manager.applyHidden(false);
    settle();
    EXPECT_EQ(told, true);
    EXPECT_THAT(story, IsEmpty());
    EXPECT_TRUE(kept().has_value()) << "should it come back";
}

TEST_F(DesktopIconsManagerTest, iconsThatWereHiddenUnreadComeBackAsTheDesktopShowsThem) {
    shell.isReadable = false;
    shell.canHideUnread = true;
    manager.applyHidden(true);
    settle();
    EXPECT_TRUE(kept().has_value());
    shell.isReadable = true;
    shell.style = smallIcons;
    manager.applyHidden(false);
    settle();
    EXPECT_EQ(shell.style, FakeDesktopShell::plain);
    EXPECT_FALSE(kept().has_value());
}

TEST_F(DesktopIconsManagerTest, iconsThatTheUserHidAreNotKeptAsHidden) {
    shell.areShown = false;
    manager.applyHidden(true);
    settle();
    EXPECT_FALSE(kept().has_value());
    manager.applyHidden(false);
    settle();
    EXPECT_TRUE(shell.areShown) << "that is what the switch says";
}

TEST_F(DesktopIconsManagerTest, aSettingThatDidNotComeBackIsKeptForTheNextTry) {
    shell.style = smallIcons;
    manager.applyHidden(true);
    settle();
    shell.deafFor = 2;
    manager.applyHidden(false);
    settle();
    EXPECT_EQ(kept(), smallIcons);
    shell.outcome = ShellOutcome::refused;
    manager.applyHidden(false);
    settle();
    EXPECT_EQ(kept(), smallIcons) << "it says that it did not take it";
    shell.outcome = ShellOutcome::done;
    manager.applyHidden(false);
    settle();
    EXPECT_FALSE(kept().has_value());
}

TEST_F(DesktopIconsManagerTest, tellsWhetherTheDesktopHasSuchASetting) {
    EXPECT_TRUE(manager.canHide());
}

} // namespace

} // namespace zeph
