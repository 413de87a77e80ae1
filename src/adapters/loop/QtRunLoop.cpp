// SPDX-License-Identifier: MIT
#include "adapters/loop/QtRunLoop.h"

#include <QTimer>

#include <utility>

namespace zeph {

namespace {

class QtRunLoopTimer : public RunLoopTimer {
public:
    QtRunLoopTimer(std::chrono::milliseconds period, std::function<void()> tick) {
        // Coarse timers may be 5 % early, which would make a one-second tick fire within the
        // same displayed second twice.
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(period);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, std::move(tick));
        m_timer.start();
    }

private:
    QTimer m_timer;
};

} // namespace

std::unique_ptr<RunLoopTimer> QtRunLoop::repeat(std::chrono::milliseconds period,
                                                std::function<void()> tick) {
    return std::make_unique<QtRunLoopTimer>(period, std::move(tick));
}

void QtRunLoop::post(std::function<void()> task) {
    QMetaObject::invokeMethod(&m_context, std::move(task), Qt::QueuedConnection);
}

void QtRunLoop::after(std::chrono::milliseconds delay, std::function<void()> task) {
    QTimer::singleShot(delay, Qt::PreciseTimer, &m_context, std::move(task));
}

} // namespace zeph
