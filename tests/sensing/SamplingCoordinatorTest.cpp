// SPDX-License-Identifier: MIT
#include "sensing/SamplingCoordinator.h"

#include "support/CoordinatorFixture.h"
#include "support/FullDisk.h"
#include "support/LoggedLines.h"
#include "support/PrintedLines.h"

#include <gmock/gmock.h>

#include <string>

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;

class SamplingCoordinatorTest : public CoordinatorFixture {};

TEST_F(SamplingCoordinatorTest, constructionStartsNothing) {
    makeCoordinator();
    EXPECT_EQ(loop.timerCount(), 0U);
    EXPECT_EQ(input.tapsMade, 0);
    EXPECT_EQ(host.cpuReads, 0);
}

TEST_F(SamplingCoordinatorTest, startMakesFiveTimersAndTicksEachOnce) {
    makeCoordinator().start();
    EXPECT_EQ(loop.timerCount(), 5U);
    EXPECT_EQ(host.cpuReads, 1);
    EXPECT_EQ(state.now->secondsSince1970, clock.now().secondsSince1970);
}

TEST_F(SamplingCoordinatorTest, whatIsNotThereOrNotAllowedIsLoggedAtTheStart) {
    input.trusted = false;
    eventStore.access[EntityType::event] = EventAccess::fullAccess;
    locationClient.status = LocationAuthorization::authorized;
    makeCoordinator();
    const auto lines = loggedLines(u"zeph.sensing"_s, [this] { coordinator->start(); });
    EXPECT_THAT(lines, ElementsAre(u"not there or not allowed: input timing"_s,
                                   u"not there or not allowed: reminders"_s));
    EXPECT_TRUE(loggedLines(u"zeph.none"_s, [this] { makeCoordinator().start(); }).isEmpty());
}

TEST_F(SamplingCoordinatorTest, theFirstPublicationTellsWhetherKeysCanBeCounted) {
    makeCoordinator().start();
    EXPECT_TRUE(state.rhythm->isCountable);
    input.countsKeys = false;
    makeCoordinator().start();
    EXPECT_FALSE(state.rhythm->isCountable);
}

TEST_F(SamplingCoordinatorTest, firstFastTickPublishesAndTheNextPublicationIsAtCounterFive) {
    makeCoordinator().start();
    input.emitEvent(InputEventKind::keyDown);
    EXPECT_EQ(state.rhythm->totalKeystrokes, 0);
    loop.advance(3);
    EXPECT_EQ(state.rhythm->totalKeystrokes, 0) << "counter 4 does not publish";
    loop.advance(1);
    EXPECT_EQ(state.rhythm->totalKeystrokes, 1) << "counter 5 publishes";
    input.emitEvent(InputEventKind::keyDown);
    loop.advance(4);
    EXPECT_EQ(state.rhythm->totalKeystrokes, 1);
    loop.advance(1);
    EXPECT_EQ(state.rhythm->totalKeystrokes, 2) << "counter 10 publishes";
}

TEST_F(SamplingCoordinatorTest, publishesNowOncePerWallClockMinute) {
    makeCoordinator().start();
    const Date first = *state.now;
    loop.advance(19); // the manual clock starts 20 seconds before a full minute
    EXPECT_EQ(*state.now, first);
    loop.advance(1);
    EXPECT_NE(*state.now, first);
    const Date second = *state.now;
    loop.advance(59);
    EXPECT_EQ(*state.now, second);
    loop.advance(1);
    EXPECT_NE(*state.now, second);
}

TEST_F(SamplingCoordinatorTest, assignsTheAppNameOnlyOnADifference) {
    makeCoordinator().start();
    workspace.front = application(u"org.a"_s, u"A"_s);
    const int quiet =
        changesDuring([&] { loop.advance(1); }) - changesDuring([&] { loop.advance(1); });
    EXPECT_EQ(quiet, 1);
    EXPECT_EQ(state.currentAppName.get(), u"A"_s);
}

TEST_F(SamplingCoordinatorTest, mediumTickRunsEveryThreeSecondsAndAssignsLoadThenNetwork) {
    makeCoordinator().start();
    const int reads = host.cpuReads;
    loop.advance(9);
    EXPECT_EQ(host.cpuReads, reads + 3);
}

TEST_F(SamplingCoordinatorTest, loadIsAssignedBeforeTheNetwork) {
    host.pages = MemoryPages{100, 0, 0};
    makeCoordinator().start();
    host.pages = MemoryPages{200, 0, 0};
    wifi.network = u"Harbour"_s;
    // Each entry tells what had been assigned before the assignment that it stands for.
    std::vector<std::string> seen;
    const SystemLoad before = *state.load;
    const auto watch = state.objectWillChange.subscribe([&] {
        seen.push_back((*state.load == before ? "old load" : "new load") +
                       std::string(state.network->ssid ? ", new network" : ", old network"));
    });
    loop.advance(3); // the three fast ticks in it publish nothing
    EXPECT_THAT(seen, ElementsAre("old load, old network", "new load, old network"));
    EXPECT_EQ(state.network->ssid, u"Harbour"_s);
}

TEST_F(SamplingCoordinatorTest, anIdleLaunchLeavesLoadAndNetworkEmpty) {
    host.pages = MemoryPages{100, 0, 0};
    wifi.network = u"Harbour"_s;
    input.idleSeconds = 90.5;
    makeCoordinator().start();
    EXPECT_EQ(*state.load, SystemLoad());
    EXPECT_EQ(*state.network, NetworkThroughput());
    input.idleSeconds = 90;
    makeCoordinator().start();
    EXPECT_NE(*state.load, SystemLoad());
    EXPECT_EQ(state.network->ssid, u"Harbour"_s);
}

TEST_F(SamplingCoordinatorTest, anApplicationIsChargedUpToNinetyIdleSecondsAndNoMore) {
    workspace.front = application(u"org.a"_s, u"A"_s);
    makeCoordinator().start();
    input.idleSeconds = 90;
    loop.advance(10);
    ASSERT_EQ(state.rankedApps->size(), 1U);
    const double seconds = state.rankedApps->front().seconds;
    EXPECT_GT(seconds, 0);
    input.idleSeconds = 90.5;
    loop.advance(20);
    coordinator->persist();
    const auto usage = usageStore->loadAppUsage(today());
    ASSERT_EQ(usage.size(), 1U);
    EXPECT_DOUBLE_EQ(usage.front().seconds, 10);
}

TEST_F(SamplingCoordinatorTest, theLongestFocusCarriesTheNameOfItsApplication) {
    makeCoordinator().start();
    workspace.activate(application(u"org.a"_s, u"Same"_s));
    loop.advance(20);
    // Another one of the same name begins a streak of its own.
    workspace.activate(application(u"org.b"_s, u"Same"_s));
    loop.advance(10);
    EXPECT_EQ(state.activity->longestFocusApp, u"Same"_s);
    EXPECT_DOUBLE_EQ(state.activity->longestFocusSeconds, 20);
}

TEST_F(SamplingCoordinatorTest, theSunIsAssignedBeforeTheWeatherIsAskedFor) {
    makeCoordinator().start();
    std::optional<std::size_t> waitingAtTheSun;
    const auto watch = state.objectWillChange.subscribe([&] {
        if (!waitingAtTheSun) {
            waitingAtTheSun = executor.waiting();
        }
    });
    const auto before = executor.waiting();
    locationClient.locate({Coordinate{52.5, 13.4}});
    EXPECT_TRUE(state.solar->sunrise);
    EXPECT_EQ(waitingAtTheSun, before) << "no request was under way yet";
    EXPECT_GT(executor.waiting(), before);
}

TEST_F(SamplingCoordinatorTest, aSaveKeepsTheActivityAsItIsNowNotAsPublished) {
    makeCoordinator().start();
    workspace.activate(application(u"org.a"_s, u"A"_s));
    loop.advance(7); // counter 8; the last publication was at 5
    coordinator->persist();
    ASSERT_TRUE(stored());
    EXPECT_DOUBLE_EQ(state.activity->activeSeconds, 4);
    EXPECT_DOUBLE_EQ(stored()->first.activeSeconds, 7);
}

TEST_F(SamplingCoordinatorTest, anHourOfTicksAssignsByTheScheduleAndNoMore) {
    makeCoordinator().start();
    const int changes = changesDuring([&] { loop.advance(3600); });
    // now 60, rhythm+activity+ranking 720 strides, load+network 1200, the six sensors 80
    EXPECT_EQ(changes, 60 + 3 * 720 + 2 * 1200 + 6 * 80);
}

TEST_F(SamplingCoordinatorTest, beforeTheFirstBatterySampleAnIdleMachineSkipsTheMediumTick) {
    input.idleSeconds = 90.5;
    makeCoordinator().start();
    EXPECT_EQ(host.cpuReads, 0) << "the battery counts as present and unplugged";
}

TEST_F(SamplingCoordinatorTest, onBatteryTheMediumTickRestsOnlyAboveNinetyIdleSeconds) {
    powerSources.sources = {QVariantMap{{u"Power Source State"_s, u"Battery Power"_s}}};
    makeCoordinator().start();
    const int reads = host.cpuReads;
    input.idleSeconds = 90.5;
    loop.advance(3);
    EXPECT_EQ(host.cpuReads, reads);
    input.idleSeconds = 90.0;
    loop.advance(3);
    EXPECT_EQ(host.cpuReads, reads + 1) << "90 seconds are not idle yet";
}

TEST_F(SamplingCoordinatorTest, pluggedInTheMediumTickNeverSkips) {
    powerSources.sources = {QVariantMap{{u"Power Source State"_s, u"AC Power"_s}}};
    makeCoordinator().start();
    ASSERT_TRUE(state.battery->isPluggedIn);
    const int reads = host.cpuReads;
    input.idleSeconds = 1000;
    loop.advance(3);
    EXPECT_EQ(host.cpuReads, reads + 1);
}

TEST_F(SamplingCoordinatorTest, withoutTrustThereIsNoTapUntilASlowTickFindsIt) {
    input.trusted = false;
    makeCoordinator().start();
    EXPECT_EQ(input.tapsMade, 0);
    input.trusted = true;
    loop.advance(44);
    EXPECT_EQ(input.tapsMade, 0);
    loop.advance(1);
    EXPECT_EQ(input.tapsMade, 1);
    loop.advance(90);
    EXPECT_EQ(input.tapsMade, 1);
}

TEST_F(SamplingCoordinatorTest, slowTickPublishesDiskAndUptime) {
    volume.value = VolumeCapacity{1000, 400};
    host.boot = clock.now() - 5000;
    makeCoordinator().start();
    EXPECT_EQ(state.disk->totalBytes, 1000);
    EXPECT_EQ(state.disk->freeBytes, 400);
    EXPECT_DOUBLE_EQ(*state.uptimeSeconds, 5000);
}

TEST_F(SamplingCoordinatorTest, aMachineWithoutABatteryIsKnownAfterTheFirstSlowTick) {
    makeCoordinator();
    EXPECT_TRUE(state.battery->isPresent);
    coordinator->start();
    EXPECT_FALSE(state.battery->isPresent);
    input.idleSeconds = 1000;
    const int reads = host.cpuReads;
    loop.advance(3);
    EXPECT_EQ(host.cpuReads, reads + 1) << "a desktop machine never skips the medium tick";
}

TEST_F(SamplingCoordinatorTest, noCoordinateMeansNoSolar) {
    makeCoordinator().start();
    loop.advance(90);
    EXPECT_FALSE(state.solar->sunrise);
}

TEST_F(SamplingCoordinatorTest, aFixSetsTheSunAtOnceAndSlowTicksKeepItUpToDate) {
    makeCoordinator().start();
    locationClient.locate({Coordinate{52.5, 13.4}});
    ASSERT_TRUE(state.solar->sunrise);
    const double before = state.solar->daylightFraction;
    const int changes = changesDuring([&] { loop.advance(45); });
    EXPECT_GT(changes, 0);
    clock.advance(13 * 3600); // from the evening into the daylight of the next day
    loop.advance(45);
    EXPECT_NE(state.solar->daylightFraction, before);
}

TEST_F(SamplingCoordinatorTest, aJumpOfTheClockSetsTheSunAnewAtTheNextSecond) {
    makeCoordinator().start();
    locationClient.locate({Coordinate{52.5, 13.4}});
    const auto expectSunOfToday = [this] {
        const Date dawn = calendar.startOfDay(clock.now());
        EXPECT_GT(*state.solar->sunrise, dawn);
        EXPECT_LT(*state.solar->sunset, dawn + 86400);
    };
    clock.advance(-20'000 * 86400.0);
    loop.advance(1);
    expectSunOfToday();
    clock.advance(700 * 86400.0);
    loop.advance(1);
    expectSunOfToday();
    loop.advance(40); // the next second is one in which nothing else is published
    EXPECT_EQ(changesDuring([&] { loop.advance(1); }), 0) << "no jump, no assignment";
}

TEST_F(SamplingCoordinatorTest, startAsksForAFixOnlyWhenAuthorized) {
    makeCoordinator().start();
    EXPECT_EQ(locationClient.requests, 0);
    locationClient.status = LocationAuthorization::authorized;
    makeCoordinator().start();
    EXPECT_EQ(locationClient.requests, 1);
}

TEST_F(SamplingCoordinatorTest, aRefreshRunsAtStartAndEverySixHundredSeconds) {
    int refreshes = 0;
    makeCoordinator([&] { ++refreshes; }).start();
    EXPECT_EQ(refreshes, 1);
    loop.advance(599);
    EXPECT_EQ(refreshes, 1);
    loop.advance(1);
    EXPECT_EQ(refreshes, 2);
}

TEST_F(SamplingCoordinatorTest, aChangeOfTheAccountsRefreshesAtOnce) {
    int refreshes = 0;
    makeCoordinator([&] { ++refreshes; }).start();
    notifications.post(zeph::notifications::zephIntegrationsChanged);
    EXPECT_EQ(refreshes, 2);
}

TEST_F(SamplingCoordinatorTest, aPreferencesChangeRefreshesOnlyForAQuoteThatIsMissing) {
    int refreshes = 0;
    makeCoordinator([&] { ++refreshes; }).start();
    preferences.set(WidgetPlacement::always, WidgetKind::quote);
    EXPECT_EQ(refreshes, 2);
    state.quote = QuoteInfo{u"Festina lente"_s, u"Augustus"_s};
    preferences.setUse24HourClock(true);
    EXPECT_EQ(refreshes, 2) << "a quote is present";
    state.quote = std::nullopt;
    preferences.set(WidgetPlacement::off, WidgetKind::quote);
    EXPECT_EQ(refreshes, 2) << "the widget is off";
}

TEST_F(SamplingCoordinatorTest, persistsEverySixtySecondsTheRhythmAsPublished) {
    makeCoordinator().start();
    loop.advance(57); // counter 58; the last publication was at 55
    input.emitEvent(InputEventKind::keyDown);
    loop.advance(3);
    ASSERT_TRUE(stored());
    EXPECT_EQ(stored()->second.totalKeystrokes, 1) << "counter 60 publishes before the save";
    input.emitEvent(InputEventKind::keyDown);
    coordinator->persist();
    EXPECT_EQ(stored()->second.totalKeystrokes, 1) << "not published yet, so not saved";
}

TEST_F(SamplingCoordinatorTest, anEmptyUsageTableSavesTheDailyRowOnly) {
    makeCoordinator().start();
    EXPECT_TRUE(state.rankedApps->empty());
    coordinator->persist();
    EXPECT_TRUE(usageStore->loadAppUsage(today()).empty());
    EXPECT_TRUE(stored());
}

TEST_F(SamplingCoordinatorTest, aRestartOnTheSameDayRestoresAllButTheSwitches) {
    makeCoordinator().start();
    workspace.activate(application(u"org.a"_s, u"A"_s));
    loop.advance(10);
    workspace.activate(application(u"org.b"_s, u"B"_s));
    input.emitEvent(InputEventKind::keyDown);
    loop.advance(10);
    coordinator->persist();
    ASSERT_EQ(stored()->first.appSwitches, 2);

    restart();
    ASSERT_EQ(state.rankedApps->size(), 2U) << "assigned before the first tick";
    EXPECT_EQ(state.rankedApps->front().bundleID, u"org.a"_s);
    coordinator->start();
    EXPECT_EQ(state.rhythm->totalKeystrokes, 1);
    EXPECT_DOUBLE_EQ(state.activity->activeSeconds, 20);
    EXPECT_EQ(state.activity->appSwitches, 0);
    loop.advance(60);
    EXPECT_EQ(stored()->first.appSwitches, 0) << "the stored count is overwritten";
}

TEST_F(SamplingCoordinatorTest, aDayThatCouldNotBeReadAtTheStartIsAddedToWhatWasCountedMeanwhile) {
    workspace.front = application(u"org.a"_s, u"A"_s);
    ActivitySummary summary;
    summary.activeSeconds = summary.machineOnSeconds = summary.longestFocusSeconds = 1000;
    summary.longestFocusApp = u"B"_s;
    summary.firstActive = clock.now() - 5000;
    summary.lastActive = clock.now() - 4000;
    const InputRhythm rhythm{0, 500, 50, 5.5, 0};
    usageStore->saveDailyStats(summary, rhythm, today());
    usageStore->saveAppUsage({{u"org.a"_s, u"A"_s, 700, std::nullopt}}, today());
    usageStore->saveAppUsage({{u"org.b"_s, u"B"_s, 300, std::nullopt}}, today());
    const QString day = today();
    printedLines([&] {
        const FullDisk full(2048);
        restart();
        coordinator->start();
        for (int key = 0; key < 20; ++key) {
            input.emitEvent(InputEventKind::keyDown);
        }
        loop.advance(60);
        EXPECT_EQ(state.rhythm->totalKeystrokes, 20);
        EXPECT_EQ(state.rankedApps->size(), 1U);
    });
    coordinator->persist(); // there is room again
    ASSERT_TRUE(stored());
    EXPECT_EQ(stored()->second.totalKeystrokes, 520);
    EXPECT_EQ(stored()->second.mouseClicks, 50);
    EXPECT_DOUBLE_EQ(stored()->first.activeSeconds, 1060);
    EXPECT_DOUBLE_EQ(stored()->first.machineOnSeconds, 1060);
    EXPECT_EQ(stored()->first.longestFocusApp, u"B"_s);
    EXPECT_EQ(stored()->first.firstActive, summary.firstActive);
    EXPECT_EQ(stored()->first.lastActive, clock.now());
    EXPECT_EQ(state.rhythm->totalKeystrokes, 520);
    loop.advance(60);
    EXPECT_DOUBLE_EQ(stored()->first.activeSeconds, 1120) << "added once";
    const auto usage = usageStore->loadAppUsage(day);
    ASSERT_EQ(usage.size(), 2U);
    EXPECT_DOUBLE_EQ(usage[0].seconds, 700 + 120);
    EXPECT_DOUBLE_EQ(usage[1].seconds, 300);
}

TEST_F(SamplingCoordinatorTest, aDayThatCantBeReadUntilTheEndIsLeftAsItIs) {
    usageStore->saveDailyStats({}, InputRhythm{0, 500, 50, 5.5, 0}, today());
    printedLines([&] {
        const FullDisk full(2048);
        restart();
        coordinator->start();
        input.emitEvent(InputEventKind::keyDown);
        loop.advance(300);
        coordinator->persist();
    });
    EXPECT_EQ(stored()->second.totalKeystrokes, 500);
}

TEST_F(SamplingCoordinatorTest, aDayThatCouldNotBeReadDoesNotReturnOnTheNext) {
    usageStore->saveDailyStats({}, InputRhythm{0, 500, 50, 5.5, 0}, today());
    printedLines([&] {
        const FullDisk full(2048);
        restart();
        coordinator->start();
        input.emitEvent(InputEventKind::keyDown);
        loop.advance(10);
    });
    const QString yesterday = today();
    clock.advance(86400);
    loop.advance(60);
    EXPECT_EQ(stored()->second.totalKeystrokes, 1);
    EXPECT_EQ(usageStore->loadDailyStats(yesterday)->second.totalKeystrokes, 500);
}

TEST_F(SamplingCoordinatorTest, aRestartOnALaterDayStartsAtZero) {
    makeCoordinator().start();
    workspace.activate(application(u"org.a"_s, u"A"_s));
    input.emitEvent(InputEventKind::keyDown);
    loop.advance(10);
    coordinator->persist();
    clock.advance(86400);
    restart();
    coordinator->start();
    EXPECT_TRUE(state.rankedApps->empty());
    EXPECT_EQ(state.rhythm->totalKeystrokes, 0);
    EXPECT_DOUBLE_EQ(state.activity->activeSeconds, 0);
}

TEST_F(SamplingCoordinatorTest, afterMidnightTheNewDaysRowHoldsTheOldInputTotals) {
    makeCoordinator().start();
    workspace.activate(application(u"org.a"_s, u"A"_s));
    input.emitEvent(InputEventKind::keyDown);
    loop.advance(30);
    const QString oldDay = today();
    clock.advance(86400);
    loop.advance(60);
    ASSERT_NE(today(), oldDay);
    ASSERT_TRUE(stored());
    EXPECT_EQ(stored()->second.totalKeystrokes, 1);
    EXPECT_LT(stored()->first.activeSeconds, 61);
    const auto usage = usageStore->loadAppUsage(today());
    ASSERT_EQ(usage.size(), 1U);
    EXPECT_LT(usage.front().seconds, 61) << "used again after midnight, so overwritten";
}

TEST_F(SamplingCoordinatorTest, anUnreadableMachineLeavesTheLastValues) {
    host.ticks = CpuTicks{10, 10, 10, 10};
    host.pages = MemoryPages{100, 0, 0};
    makeCoordinator().start();
    host.ticks = CpuTicks{20, 10, 20, 10};
    loop.advance(3);
    EXPECT_DOUBLE_EQ(state.load->cpuUsage, 0.5);
    const SystemLoad before = *state.load;
    host.ticks.reset();
    host.pages.reset();
    loop.advance(3);
    EXPECT_EQ(*state.load, before);
}

TEST_F(SamplingCoordinatorTest, propertiesWithoutAWriterKeepTheirInitialValues) {
    makeCoordinator().start();
    loop.advance(3600);
    EXPECT_FALSE(*state.apod);
    EXPECT_TRUE(state.aiUsage->empty());
    EXPECT_FALSE(*state.detailRevealed);
}

TEST_F(SamplingCoordinatorTest, theRateIsThatOfTheLastMinute) {
    makeCoordinator().start();
    loop.advance(3.5);
    input.emitEvent(InputEventKind::keyDown);
    loop.advance(0.5); // counter 5
    input.emitEvent(InputEventKind::keyDown);
    loop.advance(55); // counter 60
    EXPECT_DOUBLE_EQ(state.rhythm->keystrokesPerMinute, 2) << "55.5 and 55 seconds ago";
    loop.advance(5); // counter 65
    EXPECT_DOUBLE_EQ(state.rhythm->keystrokesPerMinute, 1) << "60 seconds ago, and 60.5";
    loop.advance(5);
    EXPECT_DOUBLE_EQ(state.rhythm->keystrokesPerMinute, 0);
}

TEST_F(SamplingCoordinatorTest, everyFieldOfTheRhythmIsRestoredAndPublished) {
    ActivitySummary earlier;
    earlier.activeSeconds = 600;
    usageStore->saveDailyStats(earlier, InputRhythm{0, 400, 1, 1, 0}, u"2023-11-01"_s);
    usageStore->saveDailyStats({}, InputRhythm{0, 500, 60, 7.5, 0}, today());
    restart();
    coordinator->start();
    EXPECT_EQ(*state.rhythm, (InputRhythm{0, 500, 60, 7.5, 40}));
    input.emitEvent(InputEventKind::keyDown);
    input.emitEvent(InputEventKind::leftMouseDown);
    input.emitEvent(InputEventKind::mouseMoved, {0, 0});
    input.emitEvent(InputEventKind::mouseMoved, {3000, 4000});
    loop.advance(4);
    EXPECT_EQ(*state.rhythm, (InputRhythm{1, 501, 61, 7.5 + 5000 * 0.00028, 40}));
}

TEST_F(SamplingCoordinatorTest, theTimeOfASecondIsChargedToTheApplicationThatItEndsWith) {
    workspace.front = application(u"org.a"_s, u"A"_s);
    makeCoordinator().start();
    loop.advance(4);
    workspace.front = application(u"org.b"_s, u"B"_s);
    loop.advance(5); // counter 10
    EXPECT_EQ(state.activity->longestFocusApp, u"B"_s);
    EXPECT_DOUBLE_EQ(state.activity->longestFocusSeconds, 5);
}

TEST_F(SamplingCoordinatorTest, averageRateLeavesTodayAndTheFifteenthDayOut) {
    const auto save = [this](const QString &day, qint64 keystrokes) {
        ActivitySummary summary;
        summary.activeSeconds = 600;
        usageStore->saveDailyStats(summary, InputRhythm{0, keystrokes, 0, 0, 0}, day);
    };
    save(today(), 90'000);
    for (int day = 14; day > 1; --day) {
        save(u"2023-10-%1"_s.arg(day, 2, 10, QChar(u'0')), 400);
    }
    save(u"2023-10-01"_s, 400 + 14 * 100); // the fourteenth
    save(u"2023-09-30"_s, 90'000);
    makeCoordinator().start();
    EXPECT_DOUBLE_EQ(state.rhythm->dailyAverageKPM, 50);
}

TEST_F(SamplingCoordinatorTest, averageRateComesFromTheFourteenEarlierDays) {
    ActivitySummary summary;
    summary.activeSeconds = 600;
    InputRhythm rhythm;
    rhythm.totalKeystrokes = 400;
    usageStore->saveDailyStats(summary, rhythm, u"2023-11-01"_s);
    makeCoordinator().start();
    EXPECT_THAT(state.rhythm->dailyAverageKPM, DoubleEq(40));
}

} // namespace
} // namespace zeph
