// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace zeph {

/// A heartbeat on the main loop that tells the longest time for which code held the main thread,
/// busy or blocked. Time in which the thread was ready but got no processor does not count: how
/// long that is depends on what else the machine does.
class MainThreadWatch {
public:
    MainThreadWatch() {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_timer.start(std::chrono::milliseconds(1));
    }

    double longestHoldMs() const { return m_longest; }
    int beats() const { return m_beats; }

private:
    using Clock = std::chrono::steady_clock;

    static double waitedForProcessorMs() {
        unsigned long long ran = 0;
        unsigned long long waited = 0;
        std::FILE *const file = std::fopen("/proc/thread-self/schedstat", "r");
        const bool read = file != nullptr && std::fscanf(file, "%llu %llu", &ran, &waited) == 2;
        if (file != nullptr) {
            std::fclose(file);
        }
        return read ? static_cast<double>(waited) / 1e6 : 0;
    }

    void beat() {
        const auto now = Clock::now();
        const double waited = waitedForProcessorMs();
        if (m_beats++ > 0) {
            const double gap = std::chrono::duration<double, std::milli>(now - m_last).count();
            m_longest = std::max(m_longest, gap - 1.0 - (waited - m_lastWaited));
        }
        m_last = now;
        m_lastWaited = waited;
    }

    QTimer m_timer;
    Clock::time_point m_last;
    double m_lastWaited = 0;
    double m_longest = 0;
    int m_beats = 0;
};

} // namespace zeph
