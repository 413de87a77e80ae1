// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace zeph {

class TaskExecutor;

/// Runs of the same task. Runs that come close together go side by side; while the system or a
/// password prompt holds two, only the newest of the further ones is kept waiting, so that what
/// hangs for a night takes no more than two threads. Main thread only.
class TaskLane {
public:
    explicit TaskLane(TaskExecutor &executor) : m_executor(executor) {}

    /// Starts the task or keeps it waiting in place of the one that waits.
    void enter(std::function<void()> task);

    /// One that was started has ended.
    void leave();

    /// Whether the next to enter would have to wait.
    bool isFull() const;

    /// What waits is no longer wanted.
    void forgetWaiting() { m_waiting = nullptr; }

private:
    void start(std::function<void()> task);

    TaskExecutor &m_executor;
    int m_running = 0;
    std::function<void()> m_waiting;
};

} // namespace zeph
