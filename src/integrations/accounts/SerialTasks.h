// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace zeph {

class TaskExecutor;

/// Runs tasks away from the main thread one after the other, in the order given; one that fails
/// with an exception ends alone. Tasks that were given run even when this is gone, as long as the
/// executor takes them.
class SerialTasks {
public:
    explicit SerialTasks(TaskExecutor &executor);

    void run(std::function<void()> task);

    /// Waits until no task is left; false when that takes longer than `patience`.
    bool waitUntilIdle(std::chrono::milliseconds patience);

    /// Drops what has not begun.
    void dropWaiting();

private:
    struct Line;

    TaskExecutor &m_executor;
    std::shared_ptr<Line> m_line; // shared with the thread that works it off
};

} // namespace zeph
