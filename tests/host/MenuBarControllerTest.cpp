// SPDX-License-Identifier: MIT
#include "host/MenuBarController.h"

#include "support/FakeShell.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using testing::ElementsAre;

class MenuBarControllerTest : public testing::Test {
protected:
    ShellStory story;
    ShellStory calls;
    FakeStatusBar statusBar{story};
    MenuBarController controller{statusBar,
                                 {.openSettings = [this] { calls.emplace_back("settings"); },
                                  .checkForUpdates = [this] { calls.emplace_back("check"); },
                                  .quit = [this] { calls.emplace_back("quit"); }}};
};

TEST_F(MenuBarControllerTest, theItemIsACircleOfDotsCalledTavi) {
    EXPECT_EQ(statusBar.symbol, u"circle.dotted.circle"_s);
    EXPECT_EQ(statusBar.description, u"Tavi"_s);
    EXPECT_EQ(statusBar.items, 1);
}

TEST_F(MenuBarControllerTest, theItemLeavesTheTrayWithTheController) {
    {
        const MenuBarController other(statusBar, {});
        EXPECT_EQ(statusBar.items, 2);
    }
    EXPECT_EQ(statusBar.items, 1);
}

TEST_F(MenuBarControllerTest, theMenuHasItsLinesInOrder) {
    QStringList lines;
    for (const MenuItem &item : statusBar.menu) {
        lines.append(item.text);
    }
    EXPECT_EQ(lines, QStringList({u"Tavi"_s,
                                  {},
                                  u"Settings & Permissions…"_s,
                                  u"Check for Updates…"_s,
                                  {},
                                  u"Everything stays on your computer"_s,
                                  {},
                                  u"Quit Tavi"_s}));
}

TEST_F(MenuBarControllerTest, onlySettingsAndQuitHaveKeys) {
    QStringList keys;
    for (const MenuItem &item : statusBar.menu) {
        keys.append(item.key);
    }
    EXPECT_EQ(keys, QStringList({{}, {}, u","_s, {}, {}, {}, {}, u"q"_s}));
}

TEST_F(MenuBarControllerTest, whatOnlyTellsCannotBeChosen) {
    QStringList choices;
    for (const MenuItem &item : statusBar.menu) {
        if (item.action) {
            choices.append(item.text);
        }
    }
    EXPECT_EQ(choices,
              QStringList({u"Settings & Permissions…"_s, u"Check for Updates…"_s, u"Quit Tavi"_s}));
}

TEST_F(MenuBarControllerTest, eachChoiceDoesWhatItSays) {
    statusBar.choose(u"Settings & Permissions…"_s);
    statusBar.choose(u"Check for Updates…"_s);
    statusBar.choose(u"Quit Tavi"_s);
    EXPECT_THAT(calls, ElementsAre("settings", "check", "quit"));
}

} // namespace

} // namespace zeph
