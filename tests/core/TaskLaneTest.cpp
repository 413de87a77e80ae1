// SPDX-License-Identifier: MIT
#include "core/TaskLane.h"

#include "support/ManualTaskExecutor.h"

#include <gmock/gmock.h>

namespace zeph {

namespace {

class TaskLaneTest : public testing::Test {
protected:
    void enter(int number) {
        lane.enter([this, number] { ran.push_back(number); });
    }

    ManualTaskExecutor executor;
    TaskLane lane{executor};
    std::vector<int> ran;
};

TEST_F(TaskLaneTest, twoRunSideBySide) {
    enter(1);
    enter(2);
    EXPECT_EQ(executor.waiting(), 2U);
}

TEST_F(TaskLaneTest, ofThoseBeyondTwoTheNewestRunsWhenOneHasEnded) {
    for (const int number : {1, 2, 3, 4}) {
        enter(number);
    }
    executor.runAll();
    EXPECT_THAT(ran, testing::ElementsAre(1, 2));
    lane.leave();
    executor.runAll();
    EXPECT_THAT(ran, testing::ElementsAre(1, 2, 4));
    lane.leave();
    lane.leave();
    EXPECT_EQ(executor.waiting(), 0U);
}

TEST_F(TaskLaneTest, isFreeAgainAfterItsRuns) {
    for (int round = 0; round < 3; ++round) {
        enter(round);
        executor.runAll();
        lane.leave();
    }
    EXPECT_THAT(ran, testing::ElementsAre(0, 1, 2));
}

} // namespace

} // namespace zeph
