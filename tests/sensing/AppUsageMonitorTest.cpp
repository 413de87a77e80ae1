// SPDX-License-Identifier: MIT
#include "sensing/DayFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class AppUsageMonitorDay : public DayFixture {};

TEST_F(AppUsageMonitorDay, chargesAGapOfNinePointNineSeconds) {
    front(u"org.editor"_s);
    tick(9.9);
    EXPECT_NEAR(secondsOf(u"org.editor"_s), 9.9, 1e-6);
}

TEST_F(AppUsageMonitorDay, chargesNothingForAGapOfTenSeconds) {
    front(u"org.editor"_s);
    tick(10.0);
    EXPECT_TRUE(usage->usageByBundle().empty());
    tick(1.0);
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 1.0);
}

TEST_F(AppUsageMonitorDay, chargesNothingWhenTheClockStandsOrGoesBack) {
    front(u"org.editor"_s);
    tick(0.0);
    tick(-5.0);
    EXPECT_TRUE(usage->usageByBundle().empty());
    tick(2.0);
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 2.0);
}

TEST_F(AppUsageMonitorDay, chargesNothingOnTheFirstTickAfterASleepOfAnHour) {
    front(u"org.editor"_s);
    ticks(3);
    tick(3600.0);
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 3.0);
    tick();
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 4.0);
}

TEST_F(AppUsageMonitorDay, addsTheRealGapsRatherThanTicks) {
    front(u"org.editor"_s);
    tick(0.5);
    tick(2.25);
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 2.75);
}

TEST_F(AppUsageMonitorDay, chargesNothingWhileIdleButKeepsTheFrontApplication) {
    front(u"org.editor"_s, u"Editor"_s);
    events.idleSeconds = 90.5;
    tick();
    EXPECT_TRUE(usage->usageByBundle().empty());
    EXPECT_EQ(usage->currentBundleID(), u"org.editor"_s);
    EXPECT_EQ(usage->currentAppName(), u"Editor"_s);
    events.idleSeconds = 0;
    tick();
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 1.0) << "the idle second is not caught up";
}

TEST_F(AppUsageMonitorDay, withoutAFrontApplicationChargesNobodyAndKeepsNamingTheLast) {
    front(u"org.editor"_s, u"Editor"_s);
    tick();
    workspace.front.reset();
    tick(5.0);
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 1.0);
    EXPECT_EQ(usage->currentBundleID(), u"org.editor"_s);
    EXPECT_EQ(usage->currentAppName(), u"Editor"_s);
    front(u"org.editor"_s);
    tick();
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 2.0) << "the time without one is lost";
}

TEST_F(AppUsageMonitorDay, withoutAnIdentifierChargesNobody) {
    workspace.front = RunningApplication{std::nullopt, u"Nameless"_s, std::nullopt};
    tick();
    EXPECT_TRUE(usage->usageByBundle().empty());
    EXPECT_FALSE(usage->currentBundleID());
    EXPECT_FALSE(usage->currentAppName());
}

TEST_F(AppUsageMonitorDay, usesTheIdentifierWhereThereIsNoName) {
    front(u"org.editor"_s);
    tick();
    EXPECT_EQ(usage->currentAppName(), u"org.editor"_s);
    EXPECT_EQ(usage->usageByBundle().at(u"org.editor"_s).name, u"org.editor"_s);
}

TEST_F(AppUsageMonitorDay, followsTheLatestNameThatIsNotAbsent) {
    front(u"org.editor"_s, u"Editor"_s);
    tick();
    front(u"org.editor"_s, u"Editor — letter"_s);
    tick();
    front(u"org.editor"_s);
    tick();
    EXPECT_EQ(usage->usageByBundle().at(u"org.editor"_s).name, u"Editor — letter"_s);
}

TEST_F(AppUsageMonitorDay, keepsTheIconPathOfTheFirstCharge) {
    front(u"org.editor"_s, u"Editor"_s, u"/apps/editor.desktop"_s);
    front(u"org.viewer"_s, u"Viewer"_s);
    tick();
    front(u"org.viewer"_s, u"Viewer"_s, u"/apps/viewer.desktop"_s);
    tick();
    EXPECT_FALSE(usage->usageByBundle().at(u"org.viewer"_s).iconPath) << "absent stays absent";

    front(u"org.editor"_s, u"Editor"_s, u"/apps/editor.desktop"_s);
    tick();
    front(u"org.editor"_s, u"Editor"_s, u"/elsewhere.desktop"_s);
    tick();
    EXPECT_EQ(usage->usageByBundle().at(u"org.editor"_s).iconPath, u"/apps/editor.desktop"_s);
}

TEST_F(AppUsageMonitorDay, countsTwoForAToBToCBetweenTwoTicks) {
    front(u"a"_s);
    tick();
    workspace.activate(application(u"b"_s));
    workspace.activate(application(u"c"_s));
    EXPECT_EQ(usage->appSwitches(), 2);
}

TEST_F(AppUsageMonitorDay, countsOneForAToBToABetweenTwoTicks) {
    front(u"a"_s);
    tick();
    workspace.activate(application(u"b"_s));
    workspace.activate(application(u"a"_s));
    EXPECT_EQ(usage->appSwitches(), 1);
}

TEST_F(AppUsageMonitorDay, countsTwoActivationsOfTheSameNewApplicationBetweenTwoTicks) {
    front(u"a"_s);
    tick();
    workspace.activate(application(u"b"_s));
    workspace.activate(application(u"b"_s));
    EXPECT_EQ(usage->appSwitches(), 2);
    tick();
    workspace.activate(application(u"b"_s));
    EXPECT_EQ(usage->appSwitches(), 2) << "the tick has seen it by now";
}

TEST_F(AppUsageMonitorDay, countsTheFirstActivationBeforeAnyTick) {
    workspace.activate(application(u"a"_s));
    EXPECT_EQ(usage->appSwitches(), 1);
}

TEST_F(AppUsageMonitorDay, ignoresAnActivationWithoutAnIdentifier) {
    front(u"a"_s);
    tick();
    workspace.emitActivation({});
    workspace.emitActivation({std::nullopt, u"Nameless"_s, std::nullopt});
    EXPECT_EQ(usage->appSwitches(), 0);
}

TEST_F(AppUsageMonitorDay, comparesActivationsWithTheApplicationSeenByAnIdleTick) {
    front(u"a"_s);
    tick();
    front(u"b"_s);
    events.idleSeconds = 91;
    tick();
    workspace.emitActivation(application(u"b"_s));
    EXPECT_EQ(usage->appSwitches(), 0);
}

TEST_F(AppUsageMonitorDay, isNotCalledAfterItsEnd) {
    activity.reset();
    usage.reset();
    workspace.activate(application(u"a"_s)); // a stale handler is what the sanitizer would see
    launch();
    EXPECT_EQ(usage->appSwitches(), 0);
}

TEST_F(AppUsageMonitorDay, ranksNothingOnAFirstDayWithoutRowsAndInput) {
    EXPECT_TRUE(usage->ranked().empty());
    tick();
    EXPECT_TRUE(usage->ranked().empty());
}

TEST_F(AppUsageMonitorDay, ranksMostSecondsFirst) {
    front(u"a"_s);
    ticks(2);
    front(u"b"_s);
    ticks(5);
    front(u"c"_s);
    ticks(3);
    const auto ranked = usage->ranked();
    ASSERT_EQ(ranked.size(), 3U);
    EXPECT_EQ(ranked.at(0).bundleID, u"b"_s);
    EXPECT_EQ(ranked.at(1).bundleID, u"c"_s);
    EXPECT_EQ(ranked.at(2).bundleID, u"a"_s);
}

TEST_F(AppUsageMonitorDay, ranksEqualSecondsInEitherOrder) {
    front(u"a"_s);
    ticks(2);
    front(u"b"_s);
    ticks(2);
    const auto ranked = usage->ranked();
    ASSERT_EQ(ranked.size(), 2U);
    EXPECT_DOUBLE_EQ(ranked.at(0).seconds, ranked.at(1).seconds);
    EXPECT_NE(ranked.at(0).bundleID, ranked.at(1).bundleID);
}

TEST_F(AppUsageMonitorDay, restoresTodayAfterARestartWithoutTheIcon) {
    front(u"org.editor"_s, u"Editor"_s, u"/apps/editor.desktop"_s);
    ticks(7);
    persist();
    clock.advance(4.0);
    launch();
    const auto restored = usage->usageByBundle().at(u"org.editor"_s);
    EXPECT_DOUBLE_EQ(restored.seconds, 7.0);
    EXPECT_EQ(restored.name, u"Editor"_s);
    EXPECT_FALSE(restored.iconPath);
    tick();
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 8.0) << "the downtime is charged to nothing";
    EXPECT_FALSE(usage->usageByBundle().at(u"org.editor"_s).iconPath) << "absent until midnight";
}

TEST_F(AppUsageMonitorDay, startsTheCountOfSwitchesAnewAfterARestart) {
    workspace.activate(application(u"a"_s));
    tick();
    workspace.activate(application(u"b"_s));
    tick();
    persist();
    ASSERT_EQ(activity->summary().appSwitches, 2);
    launch();
    EXPECT_EQ(activity->summary().appSwitches, 2) << "restored for the moment";
    tick();
    EXPECT_EQ(activity->summary().appSwitches, 0) << "the next tick has the monitor's own count";
}

TEST_F(AppUsageMonitorDay, restoresNothingOnALaterDay) {
    front(u"org.editor"_s);
    ticks(7);
    persist();
    clock.advance(24 * 3600.0);
    launch();
    EXPECT_TRUE(usage->usageByBundle().empty());
}

class Midnight : public DayFixture {
protected:
    Midnight() {
        clock.set({beforeMidnight});
        launch();
    }
};

TEST_F(Midnight, flushesTheOldDayIntoRowsOfTheNewOne) {
    const QString oldDay = today();
    front(u"org.editor"_s, u"Editor"_s);
    ticks(20);
    persist();
    ticks(9); // the save never sees these under the old day
    tick(2.0);
    ASSERT_NE(today(), oldDay);

    const auto old = store.loadAppUsage(oldDay);
    ASSERT_EQ(old.size(), 1U);
    EXPECT_DOUBLE_EQ(old.at(0).seconds, 20.0) << "what the last periodic save wrote";
    const auto flushed = store.loadAppUsage(today());
    ASSERT_EQ(flushed.size(), 1U);
    EXPECT_DOUBLE_EQ(flushed.at(0).seconds, 29.0);
}

TEST_F(Midnight, beginsTheNewDayEmptyAndChargesItTheWholeGap) {
    front(u"org.editor"_s);
    ticks(29);
    workspace.activate(application(u"org.editor"_s));
    workspace.activate(application(u"b"_s));
    front(u"org.editor"_s);
    ASSERT_EQ(usage->appSwitches(), 1);
    tick(2.0);
    EXPECT_DOUBLE_EQ(secondsOf(u"org.editor"_s), 2.0);
    EXPECT_EQ(usage->appSwitches(), 0);
}

TEST_F(Midnight, keepsTheFrontApplicationAndWhatSwitchesAreComparedWith) {
    front(u"a"_s, u"A"_s);
    tick();
    workspace.front.reset();
    tick(40.0);
    EXPECT_EQ(usage->currentBundleID(), u"a"_s);
    EXPECT_EQ(usage->currentAppName(), u"A"_s);
    workspace.emitActivation(application(u"a"_s));
    EXPECT_EQ(usage->appSwitches(), 0);
}

TEST_F(Midnight, leavesApplicationsUnusedSinceWithTheirOldSecondsAfterARestart) {
    front(u"used"_s);
    ticks(10);
    front(u"unused"_s);
    ticks(15);
    front(u"used"_s);
    tick(6.0);
    persist();
    launch();
    EXPECT_DOUBLE_EQ(secondsOf(u"used"_s), 6.0) << "a later save overwrote its row";
    EXPECT_DOUBLE_EQ(secondsOf(u"unused"_s), 15.0);
}

TEST_F(Midnight, takesAFreshIconPathForTheNewDay) {
    front(u"a"_s, u"A"_s);
    tick();
    front(u"a"_s, u"A"_s, u"/apps/a.desktop"_s);
    tick(35.0);
    tick();
    EXPECT_EQ(usage->usageByBundle().at(u"a"_s).iconPath, u"/apps/a.desktop"_s);
}

TEST(AppUsageWithoutAHistory, accountsInMemory) {
    ManualClock clock;
    FakeWorkspace workspace;
    const IcuCalendar calendar{u"en_US"_s, u"Europe/Berlin"_s};
    UsageStore store(u"/proc/no-such-folder"_s, clock, calendar);
    AppUsageMonitor usage(clock, workspace, store);
    workspace.front = application(u"a"_s);
    clock.advance(1.0);
    usage.tick(false);
    EXPECT_DOUBLE_EQ(usage.usageByBundle().at(u"a"_s).seconds, 1.0);
    clock.advance(24 * 3600.0);
    usage.tick(false);
    EXPECT_TRUE(usage.usageByBundle().empty());
}

} // namespace

} // namespace zeph
