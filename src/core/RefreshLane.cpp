// SPDX-License-Identifier: MIT
#include "core/RefreshLane.h"

#include "platform/TaskExecutor.h"

#include <utility>

namespace zeph {

namespace {

constexpr int sideBySide = 2;

} // namespace

void RefreshLane::enter(std::function<void()> task) {
    if (m_running < sideBySide) {
        start(std::move(task));
    } else {
        m_waiting = std::move(task);
    }
}

void RefreshLane::leave() {
    --m_running;
    if (m_waiting) {
        start(std::exchange(m_waiting, nullptr));
    }
}

void RefreshLane::start(std::function<void()> task) {
    ++m_running;
    m_executor.run(std::move(task));
}

} // namespace zeph
