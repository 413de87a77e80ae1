// SPDX-License-Identifier: MIT
#pragma once

#include "ports/TaskExecutor.h"

#include <deque>
#include <utility>

namespace zeph {

/// Keeps tasks until the test runs them, on the test's thread and in any order. Main thread only.
class ManualTaskExecutor : public TaskExecutor {
public:
    void run(std::function<void()> task) override { m_waiting.push_back(std::move(task)); }

    std::size_t waiting() const { return m_waiting.size(); }

    /// Runs the task at `index`, counted from the oldest; it has to be there.
    void runAt(std::size_t index) {
        const auto place = m_waiting.begin() + static_cast<std::ptrdiff_t>(index);
        const auto task = std::move(*place);
        m_waiting.erase(place);
        task();
    }

    /// Runs everything that waits, and what that starts.
    void runAll() {
        while (!m_waiting.empty()) {
            runAt(0);
        }
    }

    /// Drops what waits, as the end of a process does.
    void forgetAll() { m_waiting.clear(); }

private:
    std::deque<std::function<void()>> m_waiting;
};

} // namespace zeph
