// SPDX-License-Identifier: MIT
#pragma once

#include "model/ActivitySummary.h"

#include <QString>

#include <optional>

namespace zeph {

class Clock;
class InputEvents;
class UsageStore;

/// Keeps the shape of the day: active time, first and last moment, the longest stay in one
/// application. Main thread only.
class ActivityMonitor {
public:
    /// Seconds without input above which the user is idle; the one definition of idle.
    static constexpr double idleThreshold = 90.0;

    /// `days` names the calendar days.
    ActivityMonitor(const Clock &clock, const InputEvents &events, const UsageStore &days);

    /// Adds the time since the last tick. `currentApp` identifies the application in front,
    /// `appName` is its display name; both may be absent.
    void tick(const std::optional<QString> &currentApp, const std::optional<QString> &appName);

    const ActivitySummary &summary() const { return m_summary; }

    /// Adds what was stored of today, which is the earlier part of it; the idle flag is not taken
    /// over.
    void restore(const ActivitySummary &stored);

    /// Takes over the count that the usage monitor keeps.
    void setAppSwitches(qint64 count) { m_summary.appSwitches = count; }

private:
    void rolloverIfNeeded();
    void endStreak();
    void extendStreak(const std::optional<QString> &currentApp,
                      const std::optional<QString> &appName, double seconds);

    const Clock &m_clock;
    const InputEvents &m_events;
    const UsageStore &m_days;
    ActivitySummary m_summary;
    Date m_lastTickDate;
    QString m_loadedDay;
    std::optional<QString> m_streakApp;
    double m_streakSeconds = 0;
};

} // namespace zeph
