// SPDX-License-Identifier: MIT
#include "host/DesktopIconsManager.h"

#include "base/Background.h"
#include "support/FakeShell.h"
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

    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    ShellStory story;
    FakeDesktopShell shell{story};
    DesktopIconsManager manager{shell, background};
};

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

TEST_F(DesktopIconsManagerTest, tellsWhetherTheDesktopHasSuchASetting) {
    EXPECT_TRUE(manager.canHide());
}

} // namespace

} // namespace zeph
