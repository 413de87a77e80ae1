// SPDX-License-Identifier: MIT
#pragma once

#include "ports/RunLoop.h"

#include <map>

namespace zeph {

/// A run loop without time: the timer of a chosen period ticks when told to.
class TickLoop : public RunLoop {
public:
    std::unique_ptr<RunLoopTimer> repeat(std::chrono::milliseconds period,
                                         std::function<void()> tick) override {
        m_ticks[period] = std::move(tick);
        return std::make_unique<RunLoopTimer>();
    }
    void post(std::function<void()> task) override { task(); }
    void after(std::chrono::milliseconds /*delay*/, std::function<void()> /*task*/) override {}

    /// Runs what repeats every `period`.
    void tick(std::chrono::milliseconds period) { m_ticks.at(period)(); }

private:
    std::map<std::chrono::milliseconds, std::function<void()>> m_ticks;
};

} // namespace zeph
