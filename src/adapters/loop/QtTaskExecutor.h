// SPDX-License-Identifier: MIT
#pragma once

#include "ports/TaskExecutor.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

namespace zeph {

/// Threads of its own, made when needed and ended when no task waits. Its end waits for the
/// tasks under way, so whoever can cut those short does that before. The threads are not the
/// toolkit's: each of those opens descriptors for an event loop that no task needs, and where there
/// are no more the process is aborted.
class QtTaskExecutor : public TaskExecutor {
public:
    /// Whether tasks run as they come, or wait for `release`, so that none takes a processor from
    /// what is more urgent.
    enum class Start { atOnce, whenReleased };

    /// Most tasks wait for a server, so that there may be more of them than processors.
    explicit QtTaskExecutor(int threads = 16, Start start = Start::atOnce);
    ~QtTaskExecutor() override;

    void run(std::function<void()> task) override;

    void release();

    /// Drops the tasks that have not begun, and from now on every new one.
    void beginShutdown();

    /// The same, and waits for those under way; false when `patience` was not enough.
    bool finish(std::chrono::milliseconds patience);

private:
    struct Worker {
        std::thread thread;
        bool hasEnded = false;
    };

    void work(Worker &self);
    void joinEnded();

    const std::size_t m_most;
    std::mutex m_mutex; // for all below
    std::condition_variable m_ended;
    std::deque<std::function<void()>> m_waiting;
    std::vector<std::function<void()>> m_held;
    bool m_isHolding;
    std::list<Worker> m_workers;
    bool m_isEnding = false;
};

} // namespace zeph
