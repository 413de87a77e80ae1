// SPDX-License-Identifier: MIT
#include "base/Background.h"

#include "support/ManualClock.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace zeph {

namespace {

class BackgroundTest : public testing::Test {
protected:
    void give(WorkOwner &owner, int number) {
        background.run(
            owner, [number] { return number; },
            [this](int result) { delivered.push_back(result); });
    }

    ManualClock clock;
    ManualRunLoop runLoop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, runLoop);
    std::vector<int> delivered;
};

TEST_F(BackgroundTest, deliversOnTheMainThreadWhatWorkAwayFromItMade) {
    WorkOwner owner;
    give(owner, 7);
    EXPECT_EQ(executor.waiting(), 1U);
    executor.runAll();
    EXPECT_TRUE(delivered.empty());
    runLoop.drain();
    EXPECT_EQ(delivered, std::vector{7});
}

TEST_F(BackgroundTest, deliversTheEndOfWorkThatMakesNothing) {
    WorkOwner owner;
    int ends = 0;
    background.run(
        owner, [] {}, [&] { ++ends; });
    executor.runAll();
    runLoop.drain();
    EXPECT_EQ(ends, 1);
}

TEST_F(BackgroundTest, deliversNothingAfterTheEndOfTheOwner) {
    auto owner = std::make_unique<WorkOwner>();
    give(*owner, 1);
    executor.runAll();
    owner.reset();
    runLoop.drain();
    EXPECT_TRUE(delivered.empty());
}

TEST_F(BackgroundTest, deliversNothingOfWorkThatThrows) {
    WorkOwner owner(1);
    background.run(
        owner, []() -> int { throw std::runtime_error("no"); },
        [this](int result) { delivered.push_back(result); });
    background.run(
        owner, [] { throw std::runtime_error("no"); }, [this] { delivered.push_back(0); });
    give(owner, 2);
    while (executor.waiting() > 0) {
        executor.runAll();
        runLoop.drain();
    }
    EXPECT_EQ(delivered, std::vector{2});
}

TEST_F(BackgroundTest, runsPiecesOfOneOwnerSideBySide) {
    WorkOwner owner(2);
    give(owner, 1);
    EXPECT_FALSE(owner.isBusy());
    give(owner, 2);
    EXPECT_TRUE(owner.isBusy());
    EXPECT_EQ(executor.waiting(), 2U);
    executor.runAt(1);
    executor.runAt(0);
    runLoop.drain();
    EXPECT_EQ(delivered, (std::vector{2, 1}));
    EXPECT_FALSE(owner.isBusy());
}

TEST_F(BackgroundTest, keepsOnlyTheNewestWaitingBeyondTheLimit) {
    WorkOwner owner(1);
    for (const int number : {1, 2, 3}) {
        give(owner, number);
    }
    EXPECT_EQ(executor.waiting(), 1U);
    executor.runAll();
    runLoop.drain();
    EXPECT_EQ(executor.waiting(), 1U);
    executor.runAll();
    runLoop.drain();
    EXPECT_EQ(delivered, (std::vector{1, 3}));
    EXPECT_FALSE(owner.isBusy());
}

TEST_F(BackgroundTest, startsNothingThatWasForgottenOrWhoseOwnerEnded) {
    auto owner = std::make_unique<WorkOwner>(1);
    give(*owner, 1);
    give(*owner, 2);
    owner->forgetWaiting();
    executor.runAll();
    runLoop.drain();
    EXPECT_EQ(executor.waiting(), 0U);
    give(*owner, 3);
    give(*owner, 4);
    owner.reset();
    executor.runAll();
    runLoop.drain();
    EXPECT_EQ(executor.waiting(), 0U);
    EXPECT_EQ(delivered, std::vector{1});
}

TEST_F(BackgroundTest, lastsThroughADeliveryThatEndsTheOwner) {
    auto owner = std::make_unique<WorkOwner>();
    background.run(
        *owner, [] { return 1; }, [&](int) { owner.reset(); });
    executor.runAll();
    runLoop.drain();
    EXPECT_EQ(owner, nullptr);
}

TEST_F(BackgroundTest, wrapsAnActionThatEndsWithTheOwner) {
    int calls = 0;
    auto owner = std::make_unique<WorkOwner>();
    const auto action = owner->whileAlive([&] { ++calls; });
    const std::function<void(int, int)> adding =
        owner->whileAlive([&](int one, int other) { calls += one + other; });
    action();
    adding(10, 20);
    owner.reset();
    action();
    adding(10, 20);
    EXPECT_EQ(calls, 31);
}

} // namespace

} // namespace zeph
