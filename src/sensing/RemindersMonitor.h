// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace zeph {

class Calendar;
class Clock;
class EventStore;
struct RemindersSummary;

/// Reads the incomplete reminders that are due by the end of today. It only reads; titles always,
/// whatever the preference for calendar titles says. Main thread only.
class RemindersMonitor {
public:
    /// Everything given outlives every answer of the store, also one that comes after the
    /// monitor's end.
    RemindersMonitor(const Clock &clock, const Calendar &calendar, EventStore &store);

    /// Calls `completion` later with a fresh summary; not at all without access or without an
    /// answer of the store.
    void sample(std::function<void(const RemindersSummary &)> completion);

    /// Asks for access and calls `completion` later with whether it is granted.
    void requestAccess(std::function<void(bool)> completion);

private:
    const Clock &m_clock;
    const Calendar &m_calendar;
    EventStore &m_store;
};

} // namespace zeph
