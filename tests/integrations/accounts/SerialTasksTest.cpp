// SPDX-License-Identifier: MIT
#include "integrations/accounts/SerialTasks.h"

#include "platform/TaskExecutor.h"
#include "support/ManualTaskExecutor.h"

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <thread>

using testing::ElementsAre;

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

TEST(SerialTasks, runInTheOrderGiven) {
    ManualTaskExecutor executor;
    SerialTasks tasks(executor);
    std::vector<int> order;
    tasks.run([&] { order.push_back(1); });
    tasks.run([&] {
        order.push_back(2);
        tasks.run([&] { order.push_back(4); });
    });
    tasks.run([&] { order.push_back(3); });
    EXPECT_EQ(executor.waiting(), 1U);
    executor.runAll();
    EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
    tasks.run([&] { order.push_back(5); });
    executor.runAll();
    EXPECT_THAT(order, ElementsAre(1, 2, 3, 4, 5));
}

TEST(SerialTasks, neverOverlap) {
    ThreadExecutor executor;
    SerialTasks tasks(executor);
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    std::atomic<int> done = 0;
    for (int task = 0; task < 200; ++task) {
        tasks.run([&] {
            most = std::max(most.load(), ++inside);
            --inside;
            ++done;
        });
    }
    EXPECT_TRUE(tasks.waitUntilIdle(std::chrono::seconds(20)));
    EXPECT_EQ(done, 200);
    EXPECT_EQ(most, 1);
}

TEST(SerialTasks, waitingEndsWhenATaskTakesTooLong) {
    ThreadExecutor executor;
    SerialTasks tasks(executor);
    std::promise<void> release;
    tasks.run([&] { release.get_future().wait(); });
    EXPECT_FALSE(tasks.waitUntilIdle(std::chrono::milliseconds(1)));
    release.set_value();
    EXPECT_TRUE(tasks.waitUntilIdle(std::chrono::seconds(20)));
}

TEST(SerialTasks, nothingToWaitForIsNoWait) {
    ManualTaskExecutor executor;
    SerialTasks tasks(executor);
    EXPECT_TRUE(tasks.waitUntilIdle(std::chrono::milliseconds(0)));
}

TEST(SerialTasks, runEvenWhenTheLineIsGone) {
    ManualTaskExecutor executor;
    bool ran = false;
    {
        SerialTasks tasks(executor);
        tasks.run([&] { ran = true; });
    }
    executor.runAll();
    EXPECT_TRUE(ran);
}

} // namespace

} // namespace zeph
