// SPDX-License-Identifier: MIT
#include "sensing/CalendarMonitor.h"

#include "adapters/locale/IcuCalendar.h"
#include "support/FakeEventStore.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualClock.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// 2023-11-14 in Berlin, which is an hour ahead of UTC.
constexpr Date midnight{1'699'916'400.0};
constexpr Date nextMidnight{1'700'002'800.0};
constexpr Date tenInTheMorning{1'699'952'400.0};

class CalendarMonitorTest : public testing::Test {
protected:
    CalendarMonitorTest() {
        clock.set(tenInTheMorning);
        store.access[EntityType::event] = EventAccess::fullAccess;
    }

    void add(double secondsFromNow, const QString &title = u"Standup"_s, bool isAllDay = false) {
        store.stored.push_back({isAllDay, clock.now() + secondsFromNow, title});
    }

    const CalendarSummary &sampled() {
        monitor.sample();
        return monitor.summary();
    }

    ManualClock clock;
    IcuCalendar calendar{u"en_US"_s, u"Europe/Berlin"_s};
    FakeUserDefaults defaults;
    FakeEventStore store;
    CalendarMonitor monitor{clock, calendar, defaults, store};
};

} // namespace

TEST_F(CalendarMonitorTest, startsEmpty) {
    EXPECT_EQ(monitor.summary(), CalendarSummary{});
}

TEST_F(CalendarMonitorTest, ofTenEventsWithTwoAllDayEightCount) {
    for (int i = 0; i < 8; ++i) {
        add(-7200 + i * 3600);
    }
    add(-36'000, u"Holiday"_s, true);
    add(-36'000, u"Birthday"_s, true);
    EXPECT_EQ(sampled().eventsToday, 8);
}

TEST_F(CalendarMonitorTest, anAllDayEventIsNeverNext) {
    add(60, u"Holiday"_s, true);
    add(600);
    EXPECT_EQ(sampled().nextEventStart, clock.now() + 600);
}

TEST_F(CalendarMonitorTest, eventsThatAreOverStillCountButNoneIsNext) {
    add(-7200);
    add(-3600);
    const CalendarSummary &summary = sampled();
    EXPECT_EQ(summary.eventsToday, 2);
    EXPECT_EQ(summary.nextEventStart, std::nullopt);
    EXPECT_EQ(summary.nextEventTitle, std::nullopt);
    EXPECT_EQ(summary.minutesUntilNext, std::nullopt);
}

TEST_F(CalendarMonitorTest, ninetySecondsAheadIsOneMinute) {
    add(90);
    EXPECT_EQ(sampled().minutesUntilNext, 1);
}

TEST_F(CalendarMonitorTest, lessThanAMinuteAheadIsZeroMinutes) {
    add(59);
    EXPECT_EQ(sampled().minutesUntilNext, 0);
    EXPECT_EQ(sampled().nextEventStart, clock.now() + 59);
}

TEST_F(CalendarMonitorTest, anEventThatStartsAtThisVeryMomentIsNotNext) {
    add(0, u"Now"_s);
    add(1800, u"Later"_s);
    EXPECT_EQ(sampled().nextEventStart, clock.now() + 1800);
    EXPECT_EQ(sampled().eventsToday, 2);
}

TEST_F(CalendarMonitorTest, ofTwoAtTheSameSecondTheFirstOfTheStoreIsNext) {
    defaults.set(u"zeph.calendar.titles"_s, true);
    add(7200, u"Last"_s);
    add(3600, u"First of the store"_s);
    add(3600, u"Second of the store"_s);
    EXPECT_EQ(sampled().nextEventTitle, u"First of the store"_s);
}

TEST_F(CalendarMonitorTest, withThePreferenceOffTheStartIsKnownAndNoTitleIsRead) {
    add(3600, u"Secret"_s);
    const CalendarSummary &summary = sampled();
    EXPECT_EQ(summary.nextEventStart, clock.now() + 3600);
    EXPECT_EQ(summary.nextEventTitle, std::nullopt);
    EXPECT_EQ(store.titleReads, 0);
    ASSERT_EQ(store.windows.size(), 1U);
    EXPECT_FALSE(store.windows.front().withTitles);
}

TEST_F(CalendarMonitorTest, thePreferenceIsReadAtEachSample) {
    add(3600, u"Planning"_s);
    defaults.set(u"zeph.calendar.titles"_s, true);
    EXPECT_EQ(sampled().nextEventTitle, u"Planning"_s);
    EXPECT_EQ(store.titleReads, 1);
    defaults.set(u"zeph.calendar.titles"_s, false);
    EXPECT_EQ(sampled().nextEventTitle, std::nullopt);
    EXPECT_EQ(store.titleReads, 1);
}

TEST_F(CalendarMonitorTest, aPreferenceThatIsNoBooleanCountsAsOff) {
    defaults.set(u"zeph.calendar.titles"_s, 1.0);
    add(3600, u"Secret"_s);
    EXPECT_EQ(sampled().nextEventTitle, std::nullopt);
    EXPECT_EQ(store.titleReads, 0);
}

TEST_F(CalendarMonitorTest, asksForTodayFromMidnightToMidnight) {
    monitor.sample();
    ASSERT_EQ(store.windows.size(), 1U);
    EXPECT_EQ(store.windows.front().start, midnight);
    EXPECT_EQ(store.windows.front().end, nextMidnight);
}

TEST_F(CalendarMonitorTest, aDayWithAClockChangeIsCoveredWhole) {
    clock.set({1'698'570'000.0}); // 2023-10-29 10:00 in Berlin, 25 hours long
    monitor.sample();
    ASSERT_EQ(store.windows.size(), 1U);
    EXPECT_EQ(store.windows.front().end - store.windows.front().start, 25 * 3600.0);
}

TEST_F(CalendarMonitorTest, withoutAccessNotOneReadReachesTheStore) {
    add(3600);
    for (const EventAccess access :
         {EventAccess::notDetermined, EventAccess::restricted, EventAccess::denied}) {
        store.access[EntityType::event] = access;
        EXPECT_EQ(sampled(), CalendarSummary{});
    }
    EXPECT_EQ(store.readingCalls(), 0U);
    EXPECT_EQ(store.titleReads, 0);
}

TEST_F(CalendarMonitorTest, accessToRemindersIsNoAccessToEvents) {
    store.access[EntityType::event] = EventAccess::denied;
    store.access[EntityType::reminder] = EventAccess::fullAccess;
    monitor.sample();
    EXPECT_EQ(store.readingCalls(), 0U);
}

TEST_F(CalendarMonitorTest, accessWithdrawnWhileRunningLeavesTheLastSummary) {
    add(3600);
    const CalendarSummary before = sampled();
    store.access[EntityType::event] = EventAccess::denied;
    store.stored.clear();
    EXPECT_EQ(sampled(), before);
}

TEST_F(CalendarMonitorTest, aStoreThatCannotAnswerYetLeavesTheLastSummary) {
    add(3600);
    const CalendarSummary before = sampled();
    store.silent = true;
    clock.advance(60);
    EXPECT_EQ(sampled(), before);
}

} // namespace zeph
