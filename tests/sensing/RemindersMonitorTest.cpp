// SPDX-License-Identifier: MIT
#include "sensing/RemindersMonitor.h"

#include "adapters/locale/IcuCalendar.h"
#include "model/RemindersSummary.h"
#include "support/FakeEventStore.h"
#include "support/ManualClock.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// 2023-11-14 in Berlin, which is an hour ahead of UTC.
constexpr Date midnight{1'699'916'400.0};
constexpr Date nextMidnight{1'700'002'800.0};

class RemindersMonitorTest : public testing::Test {
protected:
    RemindersMonitorTest() {
        clock.set(midnight + 10 * 3600.0);
        store.access[EntityType::reminder] = EventAccess::fullAccess;
    }

    /// The summary of a sample that the store answers with `reminders`.
    RemindersSummary answered(std::optional<std::vector<Reminder>> reminders) {
        std::optional<RemindersSummary> summary;
        monitor.sample([&](const RemindersSummary &fresh) { summary = fresh; });
        EXPECT_FALSE(summary) << "the answer comes later";
        EXPECT_FALSE(store.fetches.empty());
        store.fetches.back().completion(std::move(reminders));
        EXPECT_TRUE(summary);
        return summary.value_or(RemindersSummary{});
    }

    ManualClock clock;
    IcuCalendar calendar{u"en_US"_s, u"Europe/Berlin"_s};
    FakeEventStore store;
    RemindersMonitor monitor{clock, calendar, store};
};

} // namespace

TEST_F(RemindersMonitorTest, oneDueAtMidnightTodayIsDueTodayAndOneOfTheMinuteBeforeIsOverdue) {
    const RemindersSummary summary =
        answered({{{midnight, u"Today"_s}, {midnight - 60, u"Yesterday"_s}}});
    EXPECT_EQ(summary.dueToday, 1);
    EXPECT_EQ(summary.overdue, 1);
    EXPECT_EQ(summary.topTitles, (QStringList{u"Yesterday"_s, u"Today"_s}));
}

TEST_F(RemindersMonitorTest, aTimeEarlierTodayIsDueTodayNotOverdue) {
    const RemindersSummary summary = answered({{{clock.now() - 3600, u"Call"_s}}});
    EXPECT_EQ(summary.dueToday, 1);
    EXPECT_EQ(summary.overdue, 0);
}

TEST_F(RemindersMonitorTest, anUntitledReminderUsesUpAPlace) {
    const RemindersSummary summary = answered({{{midnight + 1, u"One"_s},
                                                {midnight + 2, std::nullopt},
                                                {midnight + 3, u"Three"_s},
                                                {midnight + 4, u"Four"_s},
                                                {midnight + 5, u"Five"_s}}});
    EXPECT_EQ(summary.topTitles, (QStringList{u"One"_s, u"Three"_s}));
    EXPECT_EQ(summary.dueToday, 5);
}

TEST_F(RemindersMonitorTest, theCountsExceedTheThreeTitles) {
    std::vector<Reminder> reminders;
    for (int i = 0; i < 4; ++i) {
        reminders.push_back({midnight - 100.0 * i, u"Old %1"_s.arg(i)});
        reminders.push_back({midnight + 100.0 * (i + 1), u"New %1"_s.arg(i)});
    }
    const RemindersSummary summary = answered(reminders);
    EXPECT_EQ(summary.overdue, 3); // the one at midnight itself is due today
    EXPECT_EQ(summary.dueToday, 5);
    EXPECT_EQ(summary.topTitles, (QStringList{u"Old 3"_s, u"Old 2"_s, u"Old 1"_s}));
}

TEST_F(RemindersMonitorTest, oneWithoutADateSortsLastAndIsInNeitherCount) {
    const RemindersSummary summary =
        answered({{{std::nullopt, u"Someday"_s}, {midnight + 60, u"Today"_s}}});
    EXPECT_EQ(summary.dueToday, 1);
    EXPECT_EQ(summary.overdue, 0);
    EXPECT_EQ(summary.topTitles, (QStringList{u"Today"_s, u"Someday"_s}));
}

TEST_F(RemindersMonitorTest, remindersOfTheSameTimeKeepTheStoresOrder) {
    const RemindersSummary summary =
        answered({{{midnight + 60, u"b"_s}, {midnight + 60, u"a"_s}, {midnight + 60, u"c"_s}}});
    EXPECT_EQ(summary.topTitles, (QStringList{u"b"_s, u"a"_s, u"c"_s}));
}

TEST_F(RemindersMonitorTest, anAbsentAnswerIsAnEmptySummaryOfNow) {
    const RemindersSummary summary = answered(std::nullopt);
    RemindersSummary expected;
    expected.updated = clock.now();
    EXPECT_EQ(summary, expected);
}

TEST_F(RemindersMonitorTest, updatedIsWhenTheAnswerCame) {
    std::optional<RemindersSummary> summary;
    monitor.sample([&](const RemindersSummary &fresh) { summary = fresh; });
    clock.advance(30);
    store.fetches.back().completion(std::vector<Reminder>{});
    ASSERT_TRUE(summary);
    EXPECT_EQ(summary->updated, clock.now());
}

TEST_F(RemindersMonitorTest, anAnswerAfterMidnightCountsByTheDayOfTheQuestion) {
    std::optional<RemindersSummary> summary;
    monitor.sample([&](const RemindersSummary &fresh) { summary = fresh; });
    clock.set(nextMidnight + 5);
    store.fetches.back().completion(std::vector<Reminder>{{midnight + 60, u"Today"_s}});
    ASSERT_TRUE(summary);
    EXPECT_EQ(summary->dueToday, 1);
}

TEST_F(RemindersMonitorTest, asksForAllThatIsDueBeforeTomorrow) {
    monitor.sample([](const RemindersSummary &) {});
    ASSERT_EQ(store.fetches.size(), 1U);
    EXPECT_EQ(store.fetches.front().dueBefore, nextMidnight);
}

TEST_F(RemindersMonitorTest, withoutAccessNotOneReadReachesTheStore) {
    store.access[EntityType::event] = EventAccess::fullAccess;
    for (const EventAccess access :
         {EventAccess::notDetermined, EventAccess::restricted, EventAccess::denied}) {
        store.access[EntityType::reminder] = access;
        monitor.sample([](const RemindersSummary &) { ADD_FAILURE() << "must not be called"; });
    }
    EXPECT_EQ(store.readingCalls(), 0U);
}

TEST_F(RemindersMonitorTest, anAnswerMayComeAfterTheMonitorsEnd) {
    int answers = 0;
    {
        RemindersMonitor passing(clock, calendar, store);
        passing.sample([&](const RemindersSummary &) { ++answers; });
    }
    store.fetches.back().completion(std::vector<Reminder>{});
    EXPECT_EQ(answers, 1);
}

TEST_F(RemindersMonitorTest, accessIsAskedForRemindersAndTheAnswerPassedOn) {
    std::optional<bool> granted;
    monitor.requestAccess([&](bool answer) { granted = answer; });
    ASSERT_EQ(store.requests.size(), 1U);
    EXPECT_EQ(store.requests.front().type, EntityType::reminder);
    EXPECT_FALSE(granted);
    store.requests.front().completion(true);
    EXPECT_EQ(granted, true);
}

} // namespace zeph
