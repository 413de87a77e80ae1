// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/NemoDesktop.h"

#include "FakeNemo.h"
#include "base/Background.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double kLonger = 2.1; // than it waits for Nemo

class NemoDesktopTest : public testing::Test {
protected:
    void open(bool isOfSession = true) {
        desktop.emplace(isOfSession,
                        NemoDesktop::Surroundings{background, runLoop, nemo.settings(defaults)});
    }
    void work() {
        while (executor.waiting() > 0) {
            executor.runAll();
            runLoop.drain();
        }
    }
    void follow(const std::vector<xcb_window_t> &icons, bool areCovered) {
        desktop->follow({icons, areCovered});
        work();
    }
    /// How often it was asked to make its windows anew.
    qsizetype tries() const { return nemo.written.count(u"desktop-layout "_s + kOther); }

    ManualClock clock;
    ManualRunLoop runLoop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, runLoop);
    FakeUserDefaults defaults;
    FakeNemo nemo;
    std::optional<NemoDesktop> desktop;
};

} // namespace

TEST_F(NemoDesktopTest, isToldOfUsAtOnceWhereItBelongsToTheSession) {
    open();
    work();
    EXPECT_EQ(nemo.handlers(), u"['conky', 'tavi']"_s);
    follow({1}, false);
    EXPECT_EQ(nemo.written.size(), 1);
}

TEST_F(NemoDesktopTest, isToldOfUsElsewhereOnceItRuns) {
    open(false);
    follow({}, false);
    EXPECT_TRUE(nemo.written.isEmpty());
    follow({1}, false);
    EXPECT_EQ(nemo.handlers(), u"['conky', 'tavi']"_s);
}

TEST_F(NemoDesktopTest, getsBackElsewhereWhatAKilledRunHasChanged) {
    nemo.settings(defaults).getAlong();
    nemo.settings(defaults).changeLayout();
    open(false);
    work();
    EXPECT_EQ(nemo.handlers(), u"['conky']"_s);
    EXPECT_EQ(nemo.layout(), kUsual);
}

TEST_F(NemoDesktopTest, getsBackTheLayoutThatAKilledRunHasChanged) {
    nemo.settings(defaults).changeLayout();
    open();
    work();
    EXPECT_EQ(nemo.layout(), kUsual);
}

TEST_F(NemoDesktopTest, makesItsWindowsAnewWhereOursCoverThem) {
    open();
    follow({1, 2}, false);
    EXPECT_EQ(nemo.layout(), kUsual);
    follow({1, 2}, true);
    EXPECT_EQ(nemo.layout(), kOther);
    follow({2}, true);
    EXPECT_EQ(nemo.layout(), kOther) << "one of the old ones is still there";
    follow({}, false);
    EXPECT_EQ(nemo.layout(), kUsual);
    follow({3, 4}, false);
    EXPECT_EQ(tries(), 1);
}

TEST_F(NemoDesktopTest, newWindowsMayComeBeforeTheWriteIsDone) {
    open();
    work();
    desktop->follow({{1}, true});
    desktop->follow({{2}, false});
    work();
    EXPECT_EQ(tries(), 1);
    EXPECT_EQ(nemo.layout(), kUsual);
}

TEST_F(NemoDesktopTest, givesTheLayoutBackThoughNothingHappens) {
    open();
    follow({1}, true);
    runLoop.advance(1.9);
    work();
    EXPECT_EQ(nemo.layout(), kOther);
    runLoop.advance(0.2);
    executor.runAll();
    EXPECT_EQ(nemo.layout(), kUsual);
}

TEST_F(NemoDesktopTest, isNotAskedAThirdTimeWhereTwoDidNotHelp) {
    open();
    follow({1}, true);
    for (int i = 0; i < 5; ++i) {
        runLoop.advance(kLonger);
        work();
    }
    follow({1, 2}, true);
    EXPECT_EQ(tries(), 2);
    EXPECT_EQ(nemo.layout(), kUsual);
}

TEST_F(NemoDesktopTest, isNotAskedForEverByWindowsThatAlwaysCoverItAnew) {
    open();
    for (xcb_window_t icons = 1; icons < 30; ++icons) {
        follow({icons}, true);
        follow({icons + 1}, false);
    }
    EXPECT_EQ(tries(), 6);
    EXPECT_EQ(nemo.layout(), kUsual);
}

TEST_F(NemoDesktopTest, oneWhoseIconsAreHiddenIsLeftAlone) {
    nemo.layout() = u"'false::false'"_s;
    open();
    follow({1}, true);
    EXPECT_EQ(nemo.layout(), u"'false::false'"_s);
    EXPECT_EQ(tries(), 0);
}

TEST_F(NemoDesktopTest, iconsThatAreHiddenMeanwhileStayHidden) {
    open();
    follow({1}, true);
    nemo.layout() = u"'false::false'"_s;
    follow({2}, false);
    EXPECT_EQ(nemo.layout(), u"'false::false'"_s);
}

TEST_F(NemoDesktopTest, isLeftAloneAfterOurEnd) {
    open();
    follow({1}, true);
    desktop.reset();
    runLoop.advance(kLonger);
    work();
    EXPECT_EQ(nemo.layout(), kOther) << "whoever ended it gives back what is kept";
    EXPECT_TRUE(nemo.settings(defaults).keepsAnything());
}

} // namespace zeph
