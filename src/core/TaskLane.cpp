// SPDX-License-Identifier: MIT
#include "core/TaskLane.h"

#include "platform/TaskExecutor.h"

#include <utility>

namespace zeph {

namespace {

constexpr int sideBySide = 2;

} // namespace

void TaskLane::enter(std::function<void()> task) {
    if (isFull()) {
        m_waiting = std::move(task);
    } else {
        start(std::move(task));
    }
}

bool TaskLane::isFull() const {
    return m_running >= sideBySide;
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
