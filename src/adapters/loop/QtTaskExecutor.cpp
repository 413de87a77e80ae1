// SPDX-License-Identifier: MIT
#include "adapters/loop/QtTaskExecutor.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace zeph {

QtTaskExecutor::QtTaskExecutor(int threads, Start start)
    : m_most(static_cast<std::size_t>(threads)), m_isHolding(start == Start::whenReleased) {}

QtTaskExecutor::~QtTaskExecutor() {
    beginShutdown();
    for (Worker &worker : m_workers) {
        worker.thread.join();
    }
}

void QtTaskExecutor::run(std::function<void()> task) {
    const std::lock_guard lock(m_mutex);
    if (m_isEnding) {
        return;
    }
    if (m_isHolding) {
        m_held.push_back(std::move(task));
        return;
    }
    joinEnded();
    m_waiting.push_back(std::move(task));
    if (m_workers.size() < m_most) {
        Worker &worker = m_workers.emplace_back();
        try {
            worker.thread = std::thread([this, &worker] { work(worker); });
        } catch (const std::system_error &) {
            m_workers.pop_back(); // the system has no more threads: another one takes the task
        }
    }
}

void QtTaskExecutor::release() {
    std::vector<std::function<void()>> held;
    {
        const std::lock_guard lock(m_mutex);
        m_isHolding = false;
        held.swap(m_held);
    }
    for (auto &task : held) {
        run(std::move(task));
    }
}

void QtTaskExecutor::work(Worker &self) {
    std::unique_lock lock(m_mutex);
    // Tasks come together and then not for some seconds: whoever waited for the next one would wake
    // the processor to end.
    while (!m_waiting.empty()) {
        auto task = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        task();
        task = nullptr; // what it holds ends here, without the lock
        lock.lock();
    }
    self.hasEnded = true;
    m_ended.notify_all();
}

/// What has ended takes no more than a moment to be joined.
void QtTaskExecutor::joinEnded() {
    m_workers.remove_if([](Worker &worker) {
        if (worker.hasEnded) {
            worker.thread.join();
        }
        return worker.hasEnded;
    });
}

void QtTaskExecutor::beginShutdown() {
    std::deque<std::function<void()>> dropped; // end after the lock
    std::vector<std::function<void()>> held;
    const std::lock_guard lock(m_mutex);
    m_isEnding = true;
    dropped.swap(m_waiting);
    held.swap(m_held);
}

bool QtTaskExecutor::finish(std::chrono::milliseconds patience) {
    beginShutdown();
    std::unique_lock lock(m_mutex);
    return m_ended.wait_for(lock, patience, [this] {
        return std::all_of(m_workers.begin(), m_workers.end(),
                           [](const Worker &worker) { return worker.hasEnded; });
    });
}

} // namespace zeph
