// SPDX-License-Identifier: MIT
#pragma once

#include "ports/EventStore.h"

#include <map>
#include <utility>

namespace zeph {

/// Calendars and reminders that the test makes up, with a count of every call and of every title
/// that is handed out.
class FakeEventStore : public EventStore {
public:
    struct Fetch {
        Date dueBefore;
        std::function<void(std::optional<std::vector<Reminder>>)> completion;
    };
    struct Request {
        EntityType type;
        AccessWish wish;
        std::function<void(bool)> completion;
    };
    struct Window {
        Date start;
        Date end;
        bool withTitles = false;
    };

    EventAccess authorizationStatus(EntityType type) override {
        ++statusCalls;
        return access[type];
    }

    std::optional<std::vector<CalendarEvent>> events(Date start, Date end,
                                                     bool withTitles) override {
        windows.push_back({start, end, withTitles});
        if (silent) {
            return std::nullopt;
        }
        std::vector<CalendarEvent> answer;
        for (const CalendarEvent &event : stored) {
            CalendarEvent &copy = answer.emplace_back();
            copy.isAllDay = event.isAllDay;
            copy.start = event.start;
            if (withTitles) {
                ++titleReads;
                copy.title = event.title;
            }
        }
        return answer;
    }

    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override {
        return changes.subscribe(std::move(handler));
    }

    void fetchIncompleteReminders(
        Date dueBefore,
        std::function<void(std::optional<std::vector<Reminder>>)> completion) override {
        fetches.push_back({dueBefore, std::move(completion)});
    }

    void requestFullAccess(EntityType type, AccessWish wish,
                           std::function<void(bool)> completion) override {
        requests.push_back({type, wish, std::move(completion)});
    }

    /// Everything but the look at the access state.
    std::size_t readingCalls() const { return windows.size() + fetches.size() + requests.size(); }

    std::map<EntityType, EventAccess> access; // an absent one is not determined
    std::vector<CalendarEvent> stored;
    bool silent = false;
    ChangePublisher changes;
    std::vector<Window> windows;
    std::vector<Fetch> fetches;
    std::vector<Request> requests;
    int statusCalls = 0;
    int titleReads = 0;
};

} // namespace zeph
