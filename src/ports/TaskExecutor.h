// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <functional>

namespace zeph {

/// Runs tasks away from the main thread, side by side. A task may block; it posts its result to
/// the main thread by value.
class TaskExecutor : public Port {
public:
    /// Callable from any thread. A task given after the end of the process began is dropped.
    virtual void run(std::function<void()> task) = 0;
};

} // namespace zeph
