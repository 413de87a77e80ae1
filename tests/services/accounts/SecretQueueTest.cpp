// SPDX-License-Identifier: MIT
#include "services/accounts/SecretQueue.h"

#include "ports/TaskExecutor.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

/// A thread for every task; joined at the end.
class ThreadExecutor : public TaskExecutor {
public:
    ~ThreadExecutor() override {
        for (std::thread &thread : m_threads) {
            thread.join();
        }
    }
    void run(std::function<void()> task) override { m_threads.emplace_back(std::move(task)); }

private:
    std::vector<std::thread> m_threads;
};

/// A loop that is never run: nothing is told but by `finish`.
class StoppedRunLoop : public RunLoop {
public:
    std::unique_ptr<RunLoopTimer> repeat(std::chrono::milliseconds /*period*/,
                                         std::function<void()> /*tick*/) override {
        return nullptr;
    }
    void post(std::function<void()> /*task*/) override {}
    void after(std::chrono::milliseconds /*delay*/, std::function<void()> /*task*/) override {}
};

class SecretQueueTest : public testing::Test {
protected:
    /// Work that writes its number down, and then how that was told.
    void give(int number, SecretOutcome outcome = SecretOutcome::done) {
        queue->run(
            [this, number, outcome] {
                order.push_back(number);
                return outcome;
            },
            [this](SecretOutcome ended) { told.push_back(ended); });
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    std::unique_ptr<SecretQueue> queue = std::make_unique<SecretQueue>(loop, executor);
    std::vector<int> order;
    std::vector<SecretOutcome> told;
};

TEST_F(SecretQueueTest, worksInTheOrderGivenAndTellsHowEachPieceEnded) {
    give(1, SecretOutcome::refused);
    give(2);
    give(3, SecretOutcome::unavailable);
    EXPECT_EQ(executor.waiting(), 1U);
    executor.runAll();
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
    EXPECT_THAT(told, IsEmpty()) << "told away from the main thread";
    loop.drain();
    EXPECT_THAT(
        told, ElementsAre(SecretOutcome::refused, SecretOutcome::done, SecretOutcome::unavailable));
    give(4);
    executor.runAll();
    EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
}

TEST_F(SecretQueueTest, aPieceThatIsToldOfMayGiveTheNextOrEndTheQueue) {
    queue->run([] { return SecretOutcome::done; }, [this](SecretOutcome /*outcome*/) { give(1); });
    executor.runAll();
    loop.drain();
    queue->run([] { return SecretOutcome::done; },
               [this](SecretOutcome /*outcome*/) { queue.reset(); });
    executor.runAll();
    loop.drain();
    EXPECT_THAT(order, ElementsAre(1));
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done));
    EXPECT_FALSE(queue);
}

TEST_F(SecretQueueTest, workThatThrowsIsUnavailableAndHoldsUpNoOther) {
    queue->run([]() -> SecretOutcome { throw std::runtime_error("no memory"); },
               [this](SecretOutcome ended) { told.push_back(ended); });
    give(1);
    executor.runAll();
    loop.drain();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::unavailable, SecretOutcome::done));
}

TEST_F(SecretQueueTest, worksOnWhenItIsGoneButTellsNobody) {
    give(1);
    queue.reset();
    executor.runAll();
    loop.drain();
    EXPECT_THAT(order, ElementsAre(1));
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SecretQueueTest, nothingIsBegunOrToldAfterTheEnd) {
    give(1);
    EXPECT_FALSE(queue->finish(std::chrono::milliseconds(0)));
    give(2);
    executor.runAll();
    loop.drain();
    EXPECT_THAT(order, IsEmpty());
    EXPECT_THAT(told, IsEmpty());
}

TEST(SecretQueue, theEndTellsWhatIsDoneByThen) {
    StoppedRunLoop loop;
    ManualTaskExecutor executor;
    SecretQueue queue(loop, executor);
    std::vector<SecretOutcome> told;
    const auto tell = [&](SecretOutcome ended) { told.push_back(ended); };
    queue.run([] { return SecretOutcome::done; }, tell);
    queue.run([] { return SecretOutcome::refused; }, tell);
    executor.runAll();
    EXPECT_TRUE(queue.finish(std::chrono::milliseconds(0)));
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done, SecretOutcome::refused));
}

TEST(SecretQueue, aPieceThatTheEndTellsOfBeginsNoOther) {
    StoppedRunLoop loop;
    ManualTaskExecutor executor;
    SecretQueue queue(loop, executor);
    bool isTold = false;
    queue.run([] { return SecretOutcome::done; },
              [&](SecretOutcome /*outcome*/) {
                  isTold = true;
                  queue.run([] { return SecretOutcome::done; }, {});
              });
    executor.runAll();
    EXPECT_TRUE(queue.finish(std::chrono::milliseconds(0)));
    EXPECT_TRUE(isTold);
    EXPECT_EQ(executor.waiting(), 0U);
}

TEST(SecretQueue, neverWorksOnTwoThingsAtOnce) {
    StoppedRunLoop loop;
    ThreadExecutor executor;
    SecretQueue queue(loop, executor);
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    std::atomic<int> done = 0;
    for (int piece = 0; piece < 200; ++piece) {
        queue.run(
            [&] {
                most = std::max(most.load(), ++inside);
                --inside;
                ++done;
                return SecretOutcome::done;
            },
            {});
    }
    EXPECT_TRUE(queue.finish(std::chrono::seconds(20)));
    EXPECT_EQ(done, 200);
    EXPECT_EQ(most, 1);
}

TEST(SecretQueue, theEndDoesNotWaitForAPieceThatTakesTooLong) {
    StoppedRunLoop loop;
    ThreadExecutor executor;
    SecretQueue queue(loop, executor);
    std::promise<void> release;
    queue.run(
        [&] {
            release.get_future().wait();
            return SecretOutcome::done;
        },
        {});
    EXPECT_FALSE(queue.finish(std::chrono::milliseconds(1)));
    release.set_value();
}

} // namespace

} // namespace zeph
