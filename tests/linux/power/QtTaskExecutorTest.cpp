// SPDX-License-Identifier: MIT
#include "platform/linux/qt/QtTaskExecutor.h"

#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <thread>
#include <vector>

namespace zeph {

namespace {

TEST(QtTaskExecutor, runsATaskAwayFromTheThreadThatGivesIt) {
    QtTaskExecutor executor;
    std::promise<QThread *> thread;
    executor.run([&] { thread.set_value(QThread::currentThread()); });
    EXPECT_NE(thread.get_future().get(), QThread::currentThread());
}

TEST(QtTaskExecutor, runsTasksSideBySideThoughTheyBlock) {
    QtTaskExecutor executor;
    std::promise<void> go;
    const std::shared_future<void> start = go.get_future().share();
    std::vector<std::promise<void>> waiting(10);
    for (std::promise<void> &begun : waiting) {
        executor.run([&begun, start] {
            begun.set_value();
            start.wait();
        });
    }
    for (std::promise<void> &begun : waiting) {
        EXPECT_EQ(begun.get_future().wait_for(std::chrono::seconds(20)), std::future_status::ready);
    }
    go.set_value();
}

TEST(QtTaskExecutor, takesTasksFromAnyThreadAndFromTasks) {
    std::atomic<int> count = 0;
    std::promise<void> last;
    {
        QtTaskExecutor executor;
        executor.run([&] {
            ++count;
            executor.run([&] {
                ++count;
                last.set_value();
            });
        });
        last.get_future().wait();
    }
    EXPECT_EQ(count, 2);
}

TEST(QtTaskExecutor, waitsAtItsEndForTheTasksUnderWay) {
    std::atomic<bool> isDone = false;
    std::promise<void> begun;
    std::promise<void> go;
    std::thread releasing;
    {
        QtTaskExecutor executor;
        executor.run([&] {
            begun.set_value();
            go.get_future().wait();
            isDone = true;
        });
        begun.get_future().wait();
        releasing = std::thread([&] { go.set_value(); });
    }
    EXPECT_TRUE(isDone);
    releasing.join();
}

TEST(QtTaskExecutor, dropsTasksOnceTheEndHasBegun) {
    std::atomic<int> count = 0;
    const auto token = std::make_shared<int>();
    std::promise<void> begun;
    std::promise<void> go;
    {
        QtTaskExecutor executor(1);
        executor.run([&] {
            begun.set_value();
            go.get_future().wait();
            ++count;
        });
        begun.get_future().wait();
        executor.run([&count, token] { ++count; }); // waits for the only thread
        executor.beginShutdown();
        EXPECT_EQ(token.use_count(), 1) << "what a dropped task holds is let go";
        executor.run([&count] { ++count; });
        go.set_value();
    }
    EXPECT_EQ(count, 1);
}

} // namespace

} // namespace zeph
