// SPDX-License-Identifier: MIT
#include "host/LaunchAtLogin.h"

#include "support/FakeShell.h"
#include "support/PrintedLines.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LaunchAtLoginTest : public testing::Test {
protected:
    /// What is told of the wanted state; absent where nothing is told.
    std::optional<bool> holdsAfter(bool wanted) {
        std::optional<bool> told;
        launchAtLogin.setEnabled(wanted, [&](bool holds) { told = holds; });
        return told;
    }

    FakeLoginItem item;
    LaunchAtLogin launchAtLogin{item};
};

TEST_F(LaunchAtLoginTest, tellsWhatTheSystemSays) {
    EXPECT_FALSE(launchAtLogin.isEnabled());
    item.enabled = true;
    EXPECT_TRUE(launchAtLogin.isEnabled());
}

TEST_F(LaunchAtLoginTest, isSwitchedOnAndOff) {
    EXPECT_EQ(holdsAfter(true), true);
    EXPECT_TRUE(item.enabled);
    EXPECT_EQ(holdsAfter(false), true);
    EXPECT_FALSE(item.enabled);
    EXPECT_THAT(item.wishes, ElementsAre(true, false));
}

TEST_F(LaunchAtLoginTest, whatHoldsAlreadyIsNotAskedOfTheSystem) {
    EXPECT_EQ(holdsAfter(false), true);
    item.enabled = true;
    EXPECT_EQ(holdsAfter(true), true);
    EXPECT_THAT(item.wishes, IsEmpty());
}

TEST_F(LaunchAtLoginTest, aFailureIsToldAndPrinted) {
    item.problem = u"the folder can't be written"_s;
    std::optional<bool> holds;
    EXPECT_EQ(printedLines([&] { holds = holdsAfter(true); }),
              QStringList(u"LaunchAtLogin: failed to enable: the folder can't be written"_s));
    EXPECT_EQ(holds, false);
    item.enabled = true;
    EXPECT_EQ(printedLines([&] { holds = holdsAfter(false); }),
              QStringList(u"LaunchAtLogin: failed to disable: the folder can't be written"_s));
    EXPECT_EQ(holds, false);
}

TEST_F(LaunchAtLoginTest, aFailureToFollowAMovedProgramIsPrinted) {
    EXPECT_EQ(printedLines([&] { launchAtLogin.renew(); }), QStringList());
    item.renewalProblem = u"the folder can't be written"_s;
    EXPECT_EQ(printedLines([&] { launchAtLogin.renew(); }),
              QStringList(u"LaunchAtLogin: failed to enable: the folder can't be written"_s));
    EXPECT_EQ(item.renewals, 2);
    EXPECT_THAT(item.wishes, IsEmpty());
}

TEST_F(LaunchAtLoginTest, nobodyNeedsToListen) {
    launchAtLogin.setEnabled(true);
    EXPECT_TRUE(item.enabled);
}

} // namespace

} // namespace zeph
