// SPDX-License-Identifier: MIT
#include "integrations/accounts/SerialTasks.h"

#include "platform/TaskExecutor.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <utility>

namespace zeph {

struct SerialTasks::Line {
    void workOff() {
        std::unique_lock lock(mutex);
        while (!waiting.empty()) {
            const auto task = std::exchange(waiting.front(), nullptr);
            waiting.pop_front();
            lock.unlock();
            try {
                task();
            } catch (const std::exception &) {
                // Such as a library without memory. Those that wait are not to blame.
            }
            lock.lock();
        }
        isWorking = false;
        idle.notify_all();
    }

    std::mutex mutex;
    std::condition_variable idle;
    std::deque<std::function<void()>> waiting;
    bool isWorking = false;
};

SerialTasks::SerialTasks(TaskExecutor &executor)
    : m_executor(executor), m_line(std::make_shared<Line>()) {}

void SerialTasks::run(std::function<void()> task) {
    {
        const std::lock_guard guard(m_line->mutex);
        m_line->waiting.push_back(std::move(task));
        if (std::exchange(m_line->isWorking, true)) {
            return;
        }
    }
    m_executor.run([line = m_line] { line->workOff(); });
}

bool SerialTasks::waitUntilIdle(std::chrono::milliseconds patience) {
    std::unique_lock lock(m_line->mutex);
    return m_line->idle.wait_for(lock, patience, [this] { return !m_line->isWorking; });
}

void SerialTasks::dropWaiting() {
    const std::lock_guard guard(m_line->mutex);
    m_line->waiting.clear();
}

} // namespace zeph
