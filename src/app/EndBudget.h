// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace zeph {

/// The time that the end of the program may take: each that waits is given what the ones before
/// it have left.
class EndBudget {
public:
    using Clock = std::chrono::steady_clock;

    explicit EndBudget(std::chrono::milliseconds whole,
                       std::function<Clock::time_point()> now = Clock::now);

    /// The end has begun. Only the first call counts.
    void begin();

    /// What is left, in whole milliseconds; never less than nothing, and all before the end.
    std::chrono::milliseconds left() const;

    /// The same, and no more than `most`.
    std::chrono::milliseconds left(std::chrono::milliseconds most) const;

private:
    std::chrono::milliseconds m_whole;
    std::function<Clock::time_point()> m_now;
    std::optional<Clock::time_point> m_deadline; ///< absent before the end
};

} // namespace zeph
