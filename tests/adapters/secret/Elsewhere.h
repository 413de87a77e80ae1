// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <atomic>
#include <thread>

namespace zeph {

/// Runs `work` on another thread and the event loop until it is done; fails the test when it does
/// not end.
template <typename Work>
void elsewhere(Work work) {
    std::atomic<bool> isDone = false;
    std::thread thread([&] {
        work();
        isDone = true;
    });
    EXPECT_TRUE(eventually([&] { return isDone.load(); }, 20'000)) << "it did not end";
    thread.join();
}

} // namespace zeph
