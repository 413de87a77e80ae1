// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <chrono>
#include <functional>
#include <memory>

namespace zeph {

/// A repeating timer; its end stops it.
class RunLoopTimer : public Port {};

/// The main thread's event loop.
class RunLoop : public Port {
public:
    /// Runs `tick` on the main thread every `period`, first one period from now.
    [[nodiscard]] virtual std::unique_ptr<RunLoopTimer> repeat(std::chrono::milliseconds period,
                                                               std::function<void()> tick) = 0;

    /// Runs `task` on the main thread in the next turn of the loop. Callable from any thread.
    virtual void post(std::function<void()> task) = 0;

    /// Runs `task` on the main thread once, `delay` from now.
    virtual void after(std::chrono::milliseconds delay, std::function<void()> task) = 0;
};

} // namespace zeph
