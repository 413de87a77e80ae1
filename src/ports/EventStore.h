// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/Date.h"
#include "ports/Port.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

/// The two kinds of entry that a store gives access to; the numbers are the platform's.
enum class EntityType { event = 0, reminder = 1 };

/// Only `fullAccess` lets anything be read; the numbers are part of the stored state.
enum class EventAccess { notDetermined = 0, restricted = 1, denied = 2, fullAccess = 3 };

/// Who wants access: the user, by a press on "allow", or the program, which only can have it asked.
enum class AccessWish { ofUser, ofProgram };

/// One occurrence of an event. The title is absent where it was not asked for or there is none.
struct CalendarEvent {
    bool isAllDay = false;
    Date start;
    std::optional<QString> title;

    bool operator==(const CalendarEvent &) const = default;
};

/// An incomplete task. A due date without a time is the midnight at which that day begins.
struct Reminder {
    std::optional<Date> due;
    std::optional<QString> title;

    bool operator==(const Reminder &) const = default;
};

/// The user's calendars and task lists, read only. Main thread only; nothing here waits for the
/// store, which may be slow, hung or gone.
class EventStore : public Port {
public:
    /// Found withdrawn, whatever was being read of that kind ends and is forgotten.
    virtual EventAccess authorizationStatus(EntityType type) = 0;

    /// The occurrences that overlap the span from `start` up to `end`, of all calendars, in the
    /// store's order, as of the store's last word. Absent without access and until the store has
    /// answered for that span. With `withTitles` false no title is read.
    virtual std::optional<std::vector<CalendarEvent>> events(Date start, Date end,
                                                             bool withTitles) = 0;

    /// Calls `handler` on the main thread once `events` can answer a question that it had to
    /// refuse, and when access to events is given, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;

    /// Answers later, on the main thread, with the incomplete reminders due before `dueBefore`;
    /// absent when the store refuses. Not at all without access, while the store is silent, or
    /// when a later question overtakes this one.
    virtual void fetchIncompleteReminders(
        Date dueBefore, std::function<void(std::optional<std::vector<Reminder>>)> completion) = 0;

    /// Asks the user where the system has a question of its own; where it has none, a wish of the
    /// user is the answer, unless it was denied before, and one of the program changes nothing.
    /// Answers later, on the main thread, with whether access is granted.
    virtual void requestFullAccess(EntityType type, AccessWish wish,
                                   std::function<void(bool)> completion) = 0;
};

} // namespace zeph
