// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <functional>

namespace zeph {

/// Runs the event loop until `condition` holds, and answers whether it came to hold before the
/// deadline. For tests against real servers only.
inline bool waitUntil(const std::function<bool()> &condition,
                      std::chrono::milliseconds deadline = std::chrono::seconds(10)) {
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer poll;
    if (QCoreApplication::instance()) {
        poll.start(std::chrono::milliseconds(2));
    }
    while (!condition()) {
        if (elapsed.hasExpired(deadline.count())) {
            return false;
        }
        if (QCoreApplication::instance()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        } else {
            QThread::msleep(2);
        }
    }
    return true;
}

/// Runs the event loop for a while in which something must not happen.
inline void runLoopFor(std::chrono::milliseconds duration) {
    waitUntil([] { return false; }, duration);
}

} // namespace zeph
