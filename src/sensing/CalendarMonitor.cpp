// SPDX-License-Identifier: MIT
#include "sensing/CalendarMonitor.h"

#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "ports/EventStore.h"
#include "ports/UserDefaults.h"

using namespace Qt::StringLiterals;

namespace zeph {

CalendarMonitor::CalendarMonitor(const Clock &clock, const Calendar &calendar,
                                 const UserDefaults &defaults, EventStore &store)
    : m_clock(clock), m_calendar(calendar), m_defaults(defaults), m_store(store) {}

void CalendarMonitor::sample() {
    if (m_store.authorizationStatus(EntityType::event) != EventAccess::fullAccess) {
        return;
    }
    m_includeTitles = m_defaults.boolean(u"zeph.calendar.titles"_s);
    const Date now = m_clock.now();
    const Date today = m_calendar.startOfDay(now);
    const auto tomorrow = m_calendar.adding(CalendarUnit::day, 1, today);
    if (!tomorrow) {
        return;
    }
    const auto events = m_store.events(today, *tomorrow, m_includeTitles);
    if (!events) {
        return;
    }
    m_summary = {};
    const CalendarEvent *next = nullptr;
    for (const CalendarEvent &event : *events) {
        if (event.isAllDay) {
            continue;
        }
        ++m_summary.eventsToday;
        // One that starts at this very moment is in progress, not next; of those that start
        // together the store's first is.
        if (event.start > now && (next == nullptr || event.start < next->start)) {
            next = &event;
        }
    }
    if (next == nullptr) {
        return;
    }
    m_summary.nextEventStart = next->start;
    if (m_includeTitles) {
        m_summary.nextEventTitle = next->title;
    }
    m_summary.minutesUntilNext = static_cast<qint64>((next->start - now) / 60.0);
}

} // namespace zeph
