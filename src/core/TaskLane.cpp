// SPDX-License-Identifier: MIT
#include "core/TaskLane.h"

#include "platform/TaskExecutor.h"

#include <utility>

namespace zeph {

namespace {

constexpr int sideBySide = 2;

} // namespace

void TaskLane::enter(std::function<void()> task) {
    if (m_running < sideBySide) {
        start(std::move(task));
    } else {
        m_waiting = std::move(task);
    }
}

void TaskLane::leave() {
    --m_running;
    if (m_waiting) {
        start(std::exchange(m_waiting, nullptr));
    }
}

void TaskLane::start(std::function<void()> task) {
    ++m_running;
    m_executor.run(std::move(task));
}

} // namespace zeph
