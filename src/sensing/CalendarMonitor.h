// SPDX-License-Identifier: MIT
#pragma once

#include "model/CalendarSummary.h"

namespace zeph {

class Calendar;
class Clock;
class EventStore;
class UserDefaults;

/// Counts today's timed events and finds the next one. It only reads, and reads no title unless
/// "zeph.calendar.titles" is on. Main thread only.
class CalendarMonitor {
public:
    CalendarMonitor(const Clock &clock, const Calendar &calendar, const UserDefaults &defaults,
                    EventStore &store);

    /// Renews the summary. Without access, or while the store can't answer, it stays as it was.
    void sample();

    const CalendarSummary &summary() const { return m_summary; }

private:
    const Clock &m_clock;
    const Calendar &m_calendar;
    const UserDefaults &m_defaults;
    EventStore &m_store;
    CalendarSummary m_summary;
    bool m_includeTitles = false;
};

} // namespace zeph
