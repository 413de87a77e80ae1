// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "ports/SecureStore.h"

#include <chrono>
#include <functional>
#include <memory>

namespace zeph {

class RunLoop;
class TaskExecutor;

/// Called on the main thread, in a later turn, with how an operation on secrets ended.
using SecretDone = std::function<void(SecretOutcome)>;

/// Works on secrets away from the main thread, one piece of work after the other in the order
/// given. Work runs even when the queue is gone, as long as the executor takes it. Main thread
/// only; the executor's tasks and the run loop outlive it.
class SecretQueue {
public:
    SecretQueue(RunLoop &runLoop, TaskExecutor &executor);

    /// Runs `work`, and then `done` unless the queue is gone. Work that throws is told as
    /// unavailable.
    void run(std::function<SecretOutcome()> work, SecretDone done);

    /// Waits until nothing is left, and tells what has ended; false when it takes longer than
    /// `patience`. From then on nothing is begun or told. For the end of the process.
    bool finish(std::chrono::milliseconds patience);

private:
    struct Line;

    bool deliver();

    RunLoop &m_runLoop;
    TaskExecutor &m_executor;
    std::shared_ptr<Line> m_line; // shared with the thread that works it off
    WorkOwner m_owner;
    bool m_isEnding = false;   // nothing is begun any more
    bool m_isFinished = false; // nor told
};

} // namespace zeph
