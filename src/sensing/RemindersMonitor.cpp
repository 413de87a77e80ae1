// SPDX-License-Identifier: MIT
#include "sensing/RemindersMonitor.h"

#include "model/RemindersSummary.h"
#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "ports/EventStore.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace zeph {

namespace {

constexpr std::size_t topTitleCount = 3;
constexpr Date distantFuture{std::numeric_limits<double>::infinity()};

RemindersSummary summarize(const std::vector<Reminder> &reminders, Date today) {
    std::vector<const Reminder *> sorted;
    sorted.reserve(reminders.size());
    for (const Reminder &reminder : reminders) {
        sorted.push_back(&reminder);
    }
    std::stable_sort(sorted.begin(), sorted.end(), [](const Reminder *a, const Reminder *b) {
        return a->due.value_or(distantFuture) < b->due.value_or(distantFuture);
    });
    RemindersSummary summary;
    for (const Reminder *reminder : sorted) {
        if (reminder->due) {
            ++(*reminder->due < today ? summary.overdue : summary.dueToday);
        }
    }
    // An untitled reminder uses up its place.
    for (std::size_t i = 0; i < std::min(sorted.size(), topTitleCount); ++i) {
        if (sorted[i]->title) {
            summary.topTitles.append(*sorted[i]->title);
        }
    }
    return summary;
}

} // namespace

RemindersMonitor::RemindersMonitor(const Clock &clock, const Calendar &calendar, EventStore &store)
    : m_clock(clock), m_calendar(calendar), m_store(store) {}

void RemindersMonitor::sample(std::function<void(const RemindersSummary &)> completion) {
    if (m_store.authorizationStatus(EntityType::reminder) != EventAccess::fullAccess) {
        return;
    }
    const Date today = m_calendar.startOfDay(m_clock.now());
    const Date tomorrow = m_calendar.adding(CalendarUnit::day, 1, today).value_or(today + 86'400.0);
    m_store.fetchIncompleteReminders(
        tomorrow, [&clock = m_clock, today, completion = std::move(completion)](
                      const std::optional<std::vector<Reminder>> &reminders) {
            RemindersSummary summary =
                reminders ? summarize(*reminders, today) : RemindersSummary();
            summary.updated = clock.now();
            completion(summary);
        });
}

void RemindersMonitor::requestAccess(std::function<void(bool)> completion) {
    m_store.requestFullAccess(EntityType::reminder, AccessWish::ofProgram, std::move(completion));
}

} // namespace zeph
