// SPDX-License-Identifier: MIT
#include "app/EndBudget.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace zeph {

namespace {

class EndBudgetTest : public testing::Test {
protected:
    EndBudget::Clock::time_point now;
    EndBudget budget{400ms, [this] { return now; }};
};

TEST_F(EndBudgetTest, whatWaitsIsGivenWhatIsLeft) {
    budget.begin();
    EXPECT_EQ(budget.left(), 400ms);
    now += 150ms;
    EXPECT_EQ(budget.left(), 250ms);
    now += 250ms;
    EXPECT_EQ(budget.left(), 0ms);
}

TEST_F(EndBudgetTest, runsFromTheFirstBeginOn) {
    now += 1h;
    EXPECT_EQ(budget.left(), 400ms);
    budget.begin();
    now += 100ms;
    budget.begin();
    EXPECT_EQ(budget.left(), 300ms);
}

TEST_F(EndBudgetTest, anOverdrawnBudgetLeavesNothing) {
    budget.begin();
    now += 900ms;
    EXPECT_EQ(budget.left(), 0ms);
    EXPECT_EQ(budget.left(50ms), 0ms);
}

TEST_F(EndBudgetTest, aShareIsNoMoreThanWhatIsLeft) {
    budget.begin();
    EXPECT_EQ(budget.left(150ms), 150ms);
    now += 300ms;
    EXPECT_EQ(budget.left(150ms), 100ms);
}

TEST_F(EndBudgetTest, partsOfAMillisecondAreNotGivenAway) {
    budget.begin();
    now += 399ms + 1us;
    EXPECT_EQ(budget.left(), 0ms);
}

} // namespace

} // namespace zeph
