// SPDX-License-Identifier: MIT
#pragma once

#include "ports/RunLoop.h"

#include <QObject>

namespace zeph {

/// The event loop of the application object, which has to exist. Made on the main thread; what
/// is still waiting when it ends is dropped.
class QtRunLoop : public RunLoop {
public:
    std::unique_ptr<RunLoopTimer> repeat(std::chrono::milliseconds period,
                                         std::function<void()> tick) override;
    void post(std::function<void()> task) override;
    void after(std::chrono::milliseconds delay, std::function<void()> task) override;

private:
    QObject m_context; // lives on the main thread and takes posted tasks with it at the end
};

} // namespace zeph
