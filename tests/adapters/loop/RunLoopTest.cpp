// SPDX-License-Identifier: MIT
#include "adapters/loop/QtRunLoop.h"

#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <thread>

namespace zeph {

using std::chrono::milliseconds;

TEST(QtRunLoop, repeatsUntilTheTimerEnds) {
    QtRunLoop loop;
    int ticks = 0;
    auto timer = loop.repeat(milliseconds(5), [&] { ++ticks; });
    EXPECT_EQ(ticks, 0);
    ASSERT_TRUE(waitUntil([&] { return ticks >= 3; }));
    timer.reset();
    const int last = ticks;
    runLoopFor(milliseconds(30));
    EXPECT_EQ(ticks, last);
}

TEST(QtRunLoop, aTimerMayEndItself) {
    QtRunLoop loop;
    int ticks = 0;
    std::unique_ptr<RunLoopTimer> timer;
    timer = loop.repeat(milliseconds(1), [&] {
        ++ticks;
        timer.reset();
    });
    ASSERT_TRUE(waitUntil([&] { return ticks > 0; }));
    runLoopFor(milliseconds(20));
    EXPECT_EQ(ticks, 1);
}

TEST(QtRunLoop, runsPostedTasksInOrderInTheNextTurn) {
    QtRunLoop loop;
    std::vector<int> order;
    loop.post([&] { order.push_back(1); });
    loop.post([&] { order.push_back(2); });
    EXPECT_TRUE(order.empty());
    ASSERT_TRUE(waitUntil([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST(QtRunLoop, takesTasksFromOtherThreads) {
    QtRunLoop loop;
    std::thread::id where;
    std::thread other([&] { loop.post([&] { where = std::this_thread::get_id(); }); });
    other.join();
    ASSERT_TRUE(waitUntil([&] { return where != std::thread::id(); }));
    EXPECT_EQ(where, std::this_thread::get_id());
}

TEST(QtRunLoop, runsATaskOnceAfterItsDelay) {
    QtRunLoop loop;
    int runs = 0;
    QElapsedTimer elapsed;
    elapsed.start();
    loop.after(milliseconds(40), [&] { ++runs; });
    ASSERT_TRUE(waitUntil([&] { return runs > 0; }));
    EXPECT_GE(elapsed.elapsed(), 39);
    runLoopFor(milliseconds(60));
    EXPECT_EQ(runs, 1);
}

TEST(QtRunLoop, dropsWhatIsWaitingAtItsEnd) {
    int runs = 0;
    {
        QtRunLoop loop;
        loop.post([&] { ++runs; });
        loop.after(milliseconds(1), [&] { ++runs; });
    }
    runLoopFor(milliseconds(20));
    EXPECT_EQ(runs, 0);
}

} // namespace zeph
