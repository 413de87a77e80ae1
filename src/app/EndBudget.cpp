// SPDX-License-Identifier: MIT
#include "app/EndBudget.h"

#include <algorithm>
#include <utility>

namespace zeph {

EndBudget::EndBudget(std::chrono::milliseconds whole, std::function<Clock::time_point()> now)
    : m_whole(whole), m_now(std::move(now)) {}

void EndBudget::begin() {
    if (!m_deadline) {
        m_deadline = m_now() + m_whole;
    }
}

std::chrono::milliseconds EndBudget::left() const {
    if (!m_deadline) {
        return m_whole;
    }
    const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(*m_deadline - m_now());
    return std::max(rest, std::chrono::milliseconds(0));
}

std::chrono::milliseconds EndBudget::left(std::chrono::milliseconds most) const {
    return std::min(left(), most);
}

} // namespace zeph
