// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/EdsEventStore.h"
#include "adapters/kernel/SystemClock.h"
#include "adapters/locale/IcuCalendar.h"
#include "adapters/loop/QtRunLoop.h"
#include "settings/Consents.h"
#include "support/FakeUserDefaults.h"
#include "support/WaitUntil.h"

#include <QDateTime>
#include <QString>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace zeph {

/// The store with both consents given. Everything is asked of fixed days, so that no test depends
/// on today.
class EdsFixture : public testing::Test {
protected:
    EdsFixture() {
        consent(3, 3);
        makeStore();
    }

    void consent(int toCalendar, int toReminders) {
        consents.calendar.set(ConsentState(toCalendar));
        consents.reminders.set(ConsentState(toReminders));
    }

    /// A time of day in Berlin, where the tests are.
    static Date at(int year, int month, int day, int hour = 0, int minute = 0) {
        const QDateTime time(QDate(year, month, day), QTime(hour, minute),
                             QTimeZone("Europe/Berlin"));
        return {double(time.toSecsSinceEpoch())};
    }

    std::optional<std::vector<CalendarEvent>> eventsOf(int year, int month, int day,
                                                       bool withTitles = true) {
        const Date start = at(year, month, day);
        return store->events(start, calendar.adding(CalendarUnit::day, 1, start).value(),
                             withTitles);
    }

    template <typename T>
    static bool sameInAnyOrder(const std::vector<T> &a, const std::vector<T> &b) {
        return std::is_permutation(a.begin(), a.end(), b.begin(), b.end());
    }

    /// Waits until the day holds exactly these events, in whatever order, and answers whether it
    /// came to.
    bool becomes(int year, int month, int day, const std::vector<CalendarEvent> &expected) {
        const bool became = waitUntil(
            [&] {
                const auto events = eventsOf(year, month, day);
                return events && sameInAnyOrder(*events, expected);
            },
            std::chrono::seconds(20));
        if (!became) {
            describe(eventsOf(year, month, day));
        }
        return became;
    }

    static void describe(const std::optional<std::vector<CalendarEvent>> &events) {
        if (!events) {
            ADD_FAILURE() << "no answer";
            return;
        }
        for (const CalendarEvent &event : *events) {
            ADD_FAILURE() << "got " << qint64(event.start.secondsSince1970)
                          << (event.isAllDay ? " all day " : " ")
                          << event.title.value_or(QStringLiteral("(untitled)")).toStdString();
        }
    }

    /// The reminders due before `dueBefore`, or absent when no answer came.
    std::optional<std::vector<Reminder>> reminders(Date dueBefore) {
        auto answer = std::make_shared<std::optional<std::vector<Reminder>>>();
        store->fetchIncompleteReminders(
            dueBefore, [answer](std::optional<std::vector<Reminder>> due) { *answer = due; });
        waitUntil([&] { return answer->has_value(); }, std::chrono::seconds(20));
        return *answer;
    }

    void makeStore(const EdsPacing &pacing = quickPacing()) {
        store = std::make_unique<EdsEventStore>(clock, calendar, loop, consents.calendar,
                                                consents.reminders, QStringLiteral(ZEPH_EDS_PLUGIN),
                                                pacing);
    }

    /// As the program's own, only that what failed is tried again soon.
    static EdsPacing quickPacing() {
        EdsPacing pacing;
        pacing.firstRetry = std::chrono::milliseconds(20);
        pacing.firstReconnect = std::chrono::milliseconds(20);
        pacing.coalescing = std::chrono::milliseconds(5);
        return pacing;
    }

    SystemClock clock;
    QtRunLoop loop;
    IcuCalendar calendar{QStringLiteral("en_US"), QStringLiteral("Europe/Berlin")};
    FakeUserDefaults defaults;
    Consents consents{defaults};
    std::unique_ptr<EdsEventStore> store;
};

} // namespace zeph
