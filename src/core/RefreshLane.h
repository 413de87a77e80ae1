// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace zeph {

class TaskExecutor;

/// The runs of one family of accounts. Runs that come close together run side by side; while a
/// password prompt holds several, only the newest of the further ones is kept waiting, so that a
/// prompt that stays open for a night takes no more than two threads a family. Main thread only.
class RefreshLane {
public:
    explicit RefreshLane(TaskExecutor &executor) : m_executor(executor) {}

    /// Starts the task or keeps it waiting in place of the one that waits.
    void enter(std::function<void()> task);

    /// One that was started has ended.
    void leave();

private:
    void start(std::function<void()> task);

    TaskExecutor &m_executor;
    int m_running = 0;
    std::function<void()> m_waiting;
};

} // namespace zeph
