// SPDX-License-Identifier: MIT
#include "app/Restoration.h"

#include "support/FakeShell.h"
#include "support/FakeUserDefaults.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using testing::IsEmpty;

RestorationWords success(const QString &line) {
    return {line, false};
}
RestorationWords failure(const QString &line) {
    return {line, true};
}

class RestoredIconsTest : public testing::Test {
protected:
    RestoredIconsTest() {
        defaults.set(key, u"small"_s);
        shell.areShown = false;
    }

    const QString key = u"zeph.desktop.earlierIcons"_s;
    ShellStory story;
    FakeDesktopShell shell{story};
    FakeUserDefaults defaults;
};

} // namespace

TEST(RestorationWords, tellWhatIsBack) {
    EXPECT_EQ(restorationWords({}), success(u"tavi: there is no earlier picture to put back"_s));
    EXPECT_EQ(restorationWords({.picture = Restored::done}),
              success(u"tavi: the desktop has its earlier picture back"_s));
    EXPECT_EQ(restorationWords({.wallpapers = Restored::done}),
              success(u"tavi: the desktop has its earlier picture back"_s));
    EXPECT_EQ(restorationWords({.icons = Restored::done}),
              success(u"tavi: the desktop has its icons back"_s));
    EXPECT_EQ(restorationWords({.wallpapers = Restored::done, .icons = Restored::done}),
              success(u"tavi: the desktop has its earlier picture and its icons back"_s));
    EXPECT_EQ(restorationWords({.fileManager = Restored::done}),
              success(u"tavi: Nemo has its earlier settings back"_s));
}

TEST(RestorationWords, tellOfAnotherDesktopBesideThisOne) {
    EXPECT_EQ(restorationWords({.picture = Restored::done, .icons = Restored::elsewhere}),
              success(u"tavi: the desktop has its earlier picture back; icons are still hidden on "
                      "another desktop, where this can be run too"_s));
    EXPECT_TRUE(restorationWords({.wallpapers = Restored::refused, .icons = Restored::elsewhere})
                    .isFailure);
    EXPECT_EQ(restorationWords({.isRunning = true, .icons = Restored::elsewhere}),
              restorationWords({.isRunning = true}));
}

TEST(RestorationWords, tellThatTheProgramRuns) {
    EXPECT_EQ(restorationWords({.isRunning = true}),
              failure(u"tavi: it is running, and puts the earlier picture back when it ends"_s));
}

TEST(RestorationWords, aDisplayIsMissedOnlyWhereNothingElseCameBack) {
    EXPECT_EQ(restorationWords({.picture = Restored::unreachable}),
              failure(u"tavi: there is no X display to put a picture back on"_s));
    EXPECT_FALSE(restorationWords({.picture = Restored::unreachable, .wallpapers = Restored::done})
                     .isFailure);
}

TEST(RestorationWords, whatIsStillKeptIsAFailure) {
    for (const Restored odd : {Restored::notSaved, Restored::refused, Restored::unreachable}) {
        EXPECT_TRUE(restorationWords(
                        {.picture = Restored::done, .wallpapers = odd, .icons = Restored::done})
                        .isFailure);
        EXPECT_TRUE(restorationWords({.picture = Restored::done, .icons = odd}).isFailure);
        EXPECT_TRUE(restorationWords({.picture = Restored::done, .fileManager = odd}).isFailure);
    }
    EXPECT_EQ(restorationWords({.wallpapers = Restored::refused}),
              failure(u"tavi: Plasma did not take its earlier wallpapers back"_s));
    EXPECT_EQ(restorationWords({.wallpapers = Restored::unreachable, .icons = Restored::refused}),
              failure(u"tavi: Plasma's shell does not run, and would get its earlier wallpapers "
                      "back; the desktop did not show its icons again"_s));
    EXPECT_EQ(restorationWords({.icons = Restored::unreachable}),
              failure(u"tavi: nobody is there who would show the desktop's icons again"_s));
    EXPECT_EQ(
        restorationWords({.wallpapers = Restored::notSaved, .icons = Restored::notSaved}),
        failure(u"tavi: its settings could not be written, and tell as before of what is back"_s));
    EXPECT_EQ(restorationWords({.fileManager = Restored::refused}),
              failure(u"tavi: Nemo did not take its earlier settings back"_s));
    EXPECT_EQ(restorationWords({.fileManager = Restored::unreachable}),
              failure(u"tavi: nobody is there who would take Nemo's earlier settings back"_s));
}

TEST_F(RestoredIconsTest, areThoseFromBeforeTheyWereHidden) {
    EXPECT_EQ(restoreIcons(shell, defaults), Restored::done);
    EXPECT_TRUE(shell.areShown);
    EXPECT_EQ(shell.style, u"small"_s);
    EXPECT_FALSE(defaults.contains(key));
    EXPECT_EQ(restoreIcons(shell, defaults), Restored::nothingKept);
}

TEST_F(RestoredIconsTest, areStillKeptWhereThatCanNotBeNoted) {
    defaults.canSave = false;
    EXPECT_EQ(restoreIcons(shell, defaults), Restored::notSaved);
    EXPECT_TRUE(shell.areShown);
}

TEST_F(RestoredIconsTest, stayAsTheyAreWhereNothingWasKept) {
    defaults.remove(key);
    EXPECT_EQ(restoreIcons(shell, defaults), Restored::nothingKept);
    EXPECT_THAT(story, IsEmpty());
}

TEST_F(RestoredIconsTest, ofAnotherDesktopAreOutOfReach) {
    defaults.set(key, uR"({"another":"small"})"_s);
    EXPECT_EQ(restoreIcons(shell, defaults), Restored::elsewhere);
    EXPECT_THAT(story, IsEmpty());
    EXPECT_TRUE(defaults.contains(key));
}

TEST_F(RestoredIconsTest, areStillKeptWhereTheDesktopRefuses) {
    shell.outcome = ShellOutcome::refused;
    shell.deafFor = 9;
    EXPECT_EQ(restoreIcons(shell, defaults), Restored::refused);
    EXPECT_EQ(defaults.get<QString>(key), u"small"_s);
}

TEST_F(RestoredIconsTest, areStillKeptWhereNobodyDrawsThem) {
    shell.outcome = ShellOutcome::unavailable;
    shell.isReadable = false;
    shell.deafFor = 9;
    EXPECT_EQ(restoreIcons(shell, defaults), Restored::unreachable);
    EXPECT_EQ(defaults.get<QString>(key), u"small"_s);
    shell.isReadable = true;
    shell.drawerUnshown = IconDrawer::none;
    EXPECT_EQ(restoreIcons(shell, defaults), Restored::unreachable);
    EXPECT_EQ(defaults.get<QString>(key), u"small"_s);
}

} // namespace zeph
