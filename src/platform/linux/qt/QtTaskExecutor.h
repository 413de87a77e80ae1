// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TaskExecutor.h"

#include <QMutex>
#include <QThreadPool>

#include <chrono>

namespace zeph {

/// Threads of its own, made when needed and ended after some idle seconds. Its end waits for the
/// tasks under way, so whoever can cut those short does that before.
class QtTaskExecutor : public TaskExecutor {
public:
    /// Most tasks wait for a server, so that there may be more of them than processors.
    explicit QtTaskExecutor(int threads = 16);
    ~QtTaskExecutor() override;

    void run(std::function<void()> task) override;

    /// Drops the tasks that have not begun, and from now on every new one.
    void beginShutdown();

    /// The same, and waits for those under way; false when `patience` was not enough.
    bool finish(std::chrono::milliseconds patience);

private:
    QThreadPool m_pool;
    QMutex m_mutex; // no task is let in once the pool was cleared for the end
    bool m_isEnding = false;
};

} // namespace zeph
