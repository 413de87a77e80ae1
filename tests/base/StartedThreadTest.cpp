// SPDX-License-Identifier: MIT
#include "base/StartedThread.h"

#include <gtest/gtest.h>

#include <atomic>

namespace zeph {

namespace {

TEST(StartedThread, runsTheWork) {
    std::atomic<bool> hasRun = false;
    auto thread = startedThread([&] { hasRun = true; });
    ASSERT_TRUE(thread);
    thread->join();
    EXPECT_TRUE(hasRun);
}

/// As std::thread where the system has no more threads.
struct RefusedThread {
    template <typename Work>
    explicit RefusedThread(Work && /*work*/) {
        throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
    }
};

TEST(StartedThread, isAbsentWhereTheSystemHasNoMoreThreads) {
    EXPECT_FALSE(startedThread<RefusedThread>([] { ADD_FAILURE(); }));
}

} // namespace

} // namespace zeph
