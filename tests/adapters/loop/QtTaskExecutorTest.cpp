// SPDX-License-Identifier: MIT
#include "adapters/loop/QtTaskExecutor.h"

#include <QDir>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <latch>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace zeph {

using namespace Qt::StringLiterals;

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

TEST(QtTaskExecutor, holdsTasksUntilTheyAreReleased) {
    QtTaskExecutor executor(4, QtTaskExecutor::Start::whenReleased);
    std::atomic<int> runs = 0;
    std::promise<void> last;
    executor.run([&] { ++runs; });
    executor.run([&] { ++runs; });
    EXPECT_EQ(runs, 0);
    executor.release();
    executor.run([&] { last.set_value(); });
    last.get_future().wait();
    EXPECT_TRUE(executor.finish(std::chrono::seconds(20)));
    EXPECT_EQ(runs, 2);
}

TEST(QtTaskExecutor, dropsHeldTasksAtTheEnd) {
    std::atomic<int> runs = 0;
    QtTaskExecutor executor(4, QtTaskExecutor::Start::whenReleased);
    executor.run([&] { ++runs; });
    EXPECT_TRUE(executor.finish(std::chrono::seconds(20)));
    executor.release();
    EXPECT_EQ(runs, 0);
}

std::size_t openDescriptors() {
    return static_cast<std::size_t>(QDir(u"/proc/self/fd"_s).count());
}

TEST(QtTaskExecutor, needsNoDescriptorsForItsThreads) {
    QtTaskExecutor executor;
    std::promise<void> go;
    const std::shared_future<void> start = go.get_future().share();
    const std::size_t before = openDescriptors();
    std::latch begun(10);
    for (int task = 0; task < 10; ++task) {
        executor.run([&begun, start] {
            begun.count_down();
            start.wait();
        });
    }
    begun.wait();
    EXPECT_EQ(openDescriptors(), before);
    go.set_value();
}

/// Whether a task runs on a thread that has run none before.
bool meetsAFreshThread(QtTaskExecutor &executor) {
    std::promise<bool> isFresh;
    executor.run([&] {
        thread_local bool hasRun = false;
        isFresh.set_value(!std::exchange(hasRun, true));
    });
    return isFresh.get_future().get();
}

TEST(QtTaskExecutor, keepsNoThreadForTheTaskAfterNext) {
    QtTaskExecutor executor(1);
    EXPECT_TRUE(meetsAFreshThread(executor));
    bool isFresh = false;
    // Where it is asked while the thread of the last task is about to end, that takes the next one.
    for (int round = 0; round < 1000 && !isFresh; ++round) {
        std::this_thread::yield();
        isFresh = meetsAFreshThread(executor);
    }
    EXPECT_TRUE(isFresh);
}

TEST(QtTaskExecutor, runsNoMoreSideBySideThanItHasThreads) {
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    std::latch done(200);
    QtTaskExecutor executor(3);
    for (int task = 0; task < 200; ++task) {
        executor.run([&] {
            const int now = ++inside;
            int known = most;
            while (known < now && !most.compare_exchange_weak(known, now)) {
            }
            std::this_thread::yield();
            --inside;
            done.count_down();
        });
    }
    done.wait();
    EXPECT_GE(most, 1);
    EXPECT_LE(most, 3);
}

TEST(QtTaskExecutor, tellsWhetherTheTasksUnderWayEndedInTime) {
    std::promise<void> begun;
    std::promise<void> go;
    QtTaskExecutor executor;
    executor.run([&] {
        begun.set_value();
        go.get_future().wait();
    });
    begun.get_future().wait();
    EXPECT_FALSE(executor.finish(std::chrono::milliseconds(1)));
    go.set_value();
    EXPECT_TRUE(executor.finish(std::chrono::seconds(20)));
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
