// SPDX-License-Identifier: MIT
#include "sensing/DayFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class ActivityMonitorDay : public DayFixture {
protected:
    const ActivitySummary &summary() const { return activity->summary(); }
};

TEST_F(ActivityMonitorDay, startsWithAnEmptyRecord) {
    EXPECT_EQ(summary(), ActivitySummary{});
}

TEST_F(ActivityMonitorDay, countsAGapOfNinePointNineSeconds) {
    tick(9.9);
    EXPECT_NEAR(summary().machineOnSeconds, 9.9, 1e-6);
    EXPECT_NEAR(summary().activeSeconds, 9.9, 1e-6);
}

TEST_F(ActivityMonitorDay, dropsAGapOfTenSecondsOrMoreAndOneOfZeroOrLess) {
    tick(10.0);
    tick(0.0);
    tick(-3.0);
    EXPECT_DOUBLE_EQ(summary().machineOnSeconds, 0);
    EXPECT_DOUBLE_EQ(summary().activeSeconds, 0);
    EXPECT_FALSE(summary().firstActive);
}

TEST_F(ActivityMonitorDay, isActiveAtNinetySecondsWithoutInput) {
    events.idleSeconds = 90.0;
    tick();
    EXPECT_FALSE(summary().isIdle);
    EXPECT_DOUBLE_EQ(summary().activeSeconds, 1.0);
}

TEST_F(ActivityMonitorDay, isIdleJustAboveNinetySeconds) {
    events.idleSeconds = 90.001;
    tick();
    EXPECT_TRUE(summary().isIdle);
    EXPECT_DOUBLE_EQ(summary().activeSeconds, 0);
}

TEST_F(ActivityMonitorDay, setsTheIdleFlagAlsoWhenTheGapIsDropped) {
    events.idleSeconds = 4000;
    tick(3600.0);
    EXPECT_TRUE(summary().isIdle);
    events.idleSeconds = 0;
    tick(3600.0);
    EXPECT_FALSE(summary().isIdle);
}

TEST_F(ActivityMonitorDay, letsMachineTimeGrowWhileIdleButNotActiveTime) {
    ticks(5);
    events.idleSeconds = 100;
    ticks(4);
    EXPECT_DOUBLE_EQ(summary().machineOnSeconds, 9.0);
    EXPECT_DOUBLE_EQ(summary().activeSeconds, 5.0);
}

TEST_F(ActivityMonitorDay, keepsTheFirstActiveMomentAndMovesTheLast) {
    events.idleSeconds = 100;
    tick();
    EXPECT_FALSE(summary().firstActive);
    EXPECT_FALSE(summary().lastActive);
    events.idleSeconds = 0;
    tick();
    const Date first = clock.now();
    EXPECT_EQ(summary().firstActive, first);
    ticks(3);
    EXPECT_EQ(summary().firstActive, first);
    EXPECT_EQ(summary().lastActive, clock.now());
}

TEST_F(ActivityMonitorDay, keepsTheFirstActiveMomentAcrossARestart) {
    tick();
    const auto first = summary().firstActive;
    ASSERT_TRUE(first);
    persist();
    clock.advance(1000.0);
    launch();
    tick();
    persist();
    EXPECT_EQ(summary().firstActive, first);
    EXPECT_EQ(store.loadDailyStats(today())->first.firstActive, first);
}

TEST_F(ActivityMonitorDay, keepsTheStreakAcrossASleepInTheSameApplication) {
    front(u"a"_s);
    ticks(5);
    tick(3600.0);
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 5.0) << "the first tick charges nothing";
    ticks(2);
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 7.0);
}

TEST_F(ActivityMonitorDay, endsTheStreakOnAnIdleTick) {
    front(u"a"_s);
    ticks(5);
    events.idleSeconds = 100;
    tick();
    events.idleSeconds = 0;
    tick(3.0);
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 5.0);
    ticks(2);
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 5.0) << "3 + 2 only draws level";
    tick();
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 6.0) << "it began at the 3 s of its first tick";
}

TEST_F(ActivityMonitorDay, endsTheStreakWithTheApplication) {
    front(u"a"_s);
    ticks(3);
    front(u"b"_s, u"B"_s);
    ticks(4);
    front(u"a"_s);
    ticks(2);
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 4.0);
    EXPECT_EQ(summary().longestFocusApp, u"B"_s);
}

TEST_F(ActivityMonitorDay, leavesTheEarlierHolderInPlaceOnATie) {
    front(u"a"_s, u"A"_s);
    ticks(3);
    front(u"b"_s, u"B"_s);
    ticks(3);
    EXPECT_EQ(summary().longestFocusApp, u"A"_s);
    tick();
    EXPECT_EQ(summary().longestFocusApp, u"B"_s);
}

TEST_F(ActivityMonitorDay, namesTheIdentifierWhereThereIsNoDisplayName) {
    clock.advance(2.0);
    activity->tick(u"org.editor"_s, std::nullopt);
    EXPECT_EQ(summary().longestFocusApp, u"org.editor"_s);
}

TEST_F(ActivityMonitorDay, beginsAnewAtEachTickWithoutAnApplication) {
    for (int index = 0; index < 3; ++index) {
        clock.advance(2.0);
        activity->tick(std::nullopt, std::nullopt);
    }
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 2.0);
    EXPECT_FALSE(summary().longestFocusApp);
    EXPECT_DOUBLE_EQ(summary().activeSeconds, 6.0);
}

TEST_F(ActivityMonitorDay, creditsTheLastApplicationWhenNoneIsInFront) {
    front(u"a"_s, u"A"_s);
    ticks(2);
    workspace.front.reset();
    ticks(3);
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 5.0);
    EXPECT_DOUBLE_EQ(summary().activeSeconds, 5.0);
    EXPECT_DOUBLE_EQ(secondsOf(u"a"_s), 2.0);
}

TEST_F(ActivityMonitorDay, restoresTheDayNotIdleWithTheMarkToBeat) {
    front(u"a"_s, u"A"_s);
    ticks(6);
    events.idleSeconds = 100;
    tick();
    persist();
    ActivitySummary expected = summary();
    ASSERT_TRUE(expected.isIdle);
    expected.isIdle = false;
    clock.advance(5.0);
    launch();
    EXPECT_EQ(summary(), expected);

    events.idleSeconds = 0;
    ticks(6);
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 6.0) << "the streak starts empty";
    tick();
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 7.0);
    EXPECT_DOUBLE_EQ(summary().machineOnSeconds, 14.0) << "the downtime is charged to nothing";
}

TEST_F(ActivityMonitorDay, restoringForcesTheIdleFlagOff) {
    ActivitySummary stored;
    stored.isIdle = true;
    stored.activeSeconds = 12;
    activity->restore(stored);
    EXPECT_FALSE(summary().isIdle);
    EXPECT_DOUBLE_EQ(summary().activeSeconds, 12);
}

TEST_F(ActivityMonitorDay, takesTheCountOfSwitchesOver) {
    activity->setAppSwitches(17);
    EXPECT_EQ(summary().appSwitches, 17);
}

TEST_F(ActivityMonitorDay, emptiesTheRecordAtMidnightAndChargesTheGapToTheNewDay) {
    clock.set({beforeMidnight});
    launch();
    front(u"a"_s, u"A"_s);
    ticks(29);
    activity->setAppSwitches(3);
    ASSERT_DOUBLE_EQ(summary().longestFocusSeconds, 29.0);
    tick(2.0);
    EXPECT_DOUBLE_EQ(summary().machineOnSeconds, 2.0);
    EXPECT_DOUBLE_EQ(summary().activeSeconds, 2.0);
    EXPECT_DOUBLE_EQ(summary().longestFocusSeconds, 2.0) << "the streak does not cross midnight";
    EXPECT_EQ(summary().appSwitches, 0);
    EXPECT_EQ(summary().firstActive, clock.now());
}

TEST_F(ActivityMonitorDay, savesNothingAtMidnight) {
    clock.set({beforeMidnight});
    launch();
    const QString oldDay = today();
    ticks(10);
    persist();
    ticks(19);
    tick(2.0);
    EXPECT_DOUBLE_EQ(store.loadDailyStats(oldDay)->first.activeSeconds, 10.0);
    EXPECT_FALSE(store.loadDailyStats(today()));
}

} // namespace

} // namespace zeph
