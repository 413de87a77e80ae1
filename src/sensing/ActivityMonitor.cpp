// SPDX-License-Identifier: MIT
#include "sensing/ActivityMonitor.h"

#include "history/UsageStore.h"
#include "ports/Clock.h"
#include "ports/InputEvents.h"
#include "sensing/TickGap.h"

namespace zeph {

ActivityMonitor::ActivityMonitor(const Clock &clock, const InputEvents &events,
                                 const UsageStore &days)
    : m_clock(clock),
      m_events(events),
      m_days(days),
      m_lastTickDate(clock.now()),
      m_loadedDay(days.dayKey(m_lastTickDate)) {}

void ActivityMonitor::restore(const ActivitySummary &stored) {
    m_summary.activeSeconds += stored.activeSeconds;
    m_summary.machineOnSeconds += stored.machineOnSeconds;
    m_summary.appSwitches += stored.appSwitches;
    if (stored.longestFocusSeconds >= m_summary.longestFocusSeconds) {
        m_summary.longestFocusSeconds = stored.longestFocusSeconds;
        m_summary.longestFocusApp = stored.longestFocusApp;
    }
    if (stored.firstActive) {
        m_summary.firstActive = stored.firstActive;
    }
    if (!m_summary.lastActive) {
        m_summary.lastActive = stored.lastActive;
    }
}

void ActivityMonitor::tick(const std::optional<QString> &currentApp,
                           const std::optional<QString> &appName) {
    rolloverIfNeeded();
    const Date now = m_clock.now();
    const double gap = now - m_lastTickDate;
    m_lastTickDate = now;
    m_summary.isIdle = m_events.isQuietForMoreThan(idleThreshold);
    if (!isTickGap(gap)) {
        return; // the streak stands: a sleep does not break it
    }
    m_summary.machineOnSeconds += gap;
    if (m_summary.isIdle) {
        endStreak();
        return;
    }
    const Date moment = m_clock.now();
    if (!m_summary.firstActive) {
        m_summary.firstActive = moment;
    }
    m_summary.lastActive = moment;
    m_summary.activeSeconds += gap;
    extendStreak(currentApp, appName, gap);
}

void ActivityMonitor::extendStreak(const std::optional<QString> &currentApp,
                                   const std::optional<QString> &appName, double seconds) {
    if (currentApp && currentApp == m_streakApp) {
        m_streakSeconds += seconds;
    } else {
        m_streakApp = currentApp;
        m_streakSeconds = seconds;
    }
    if (m_summary.longestFocusSeconds < m_streakSeconds) {
        m_summary.longestFocusSeconds = m_streakSeconds;
        m_summary.longestFocusApp = appName ? appName : currentApp;
    }
}

void ActivityMonitor::endStreak() {
    m_streakApp.reset();
    m_streakSeconds = 0;
}

void ActivityMonitor::rolloverIfNeeded() {
    const QString today = m_days.dayKey(m_clock.now());
    if (today == m_loadedDay) {
        return;
    }
    m_summary = {};
    endStreak();
    m_loadedDay = today;
}

} // namespace zeph
