// SPDX-License-Identifier: MIT
#include "app/DisplayLoss.h"

#include "support/Environment.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace zeph {

namespace {

constexpr const char *kMark = "TAVI_LOST_ITS_DISPLAY";

class DisplayLossTest : public testing::Test {
protected:
    DisplayLoss loss() {
        return DisplayLoss(nullptr, [this] { return now; });
    }

    ScopedVariable mark{kMark, std::nullopt};
    DisplayLoss::Clock::time_point now;
};

} // namespace

TEST(AfterLossTest, theFirstLossIsSurvivedWheneverItComes) {
    EXPECT_EQ(afterLoss(std::nullopt), AfterLoss::startsAnew);
}

TEST(AfterLossTest, oneSoonAfterTheReturnIsTheEnd) {
    EXPECT_EQ(afterLoss(0ms), AfterLoss::endsForGood);
    EXPECT_EQ(afterLoss(9999ms), AfterLoss::endsForGood);
    EXPECT_EQ(afterLoss(10s), AfterLoss::startsAnew);
}

TEST_F(DisplayLossTest, isNoneBeforeItIsNoted) {
    DisplayLoss one = loss();
    EXPECT_FALSE(one.isToStartAnew());
    one.startAnewIfLost(false); // or this test would be over
    one.note();
    EXPECT_TRUE(one.isToStartAnew());
    one.startAnewIfLost(true);
}

TEST_F(DisplayLossTest, ofARunThatHadLostItBeforeCountsFromTheReturn) {
    mark.set("1");
    DisplayLoss one = loss();
    EXPECT_TRUE(one.isReturn());
    now += 15s; // it was waited for
    one.noteStart();
    now += 5s;
    one.note();
    EXPECT_FALSE(one.isToStartAnew());
    now += 5s;
    one.note();
    EXPECT_TRUE(one.isToStartAnew());
}

TEST_F(DisplayLossTest, theMarkIsForOneRunOnly) {
    EXPECT_FALSE(loss().isReturn());
    mark.set("1");
    EXPECT_TRUE(loss().isReturn());
    EXPECT_FALSE(qEnvironmentVariableIsSet(kMark));
    EXPECT_FALSE(loss().isReturn());
}

} // namespace zeph
