// SPDX-License-Identifier: MIT
#include "model/AppState.h"
#include "support/UtcCalendar.h"

#include <gmock/gmock.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr Date noon{1'700'049'600}; // 2023-11-14 12:00:00 UTC

double moodAtHour(double hour) {
    const AppState state(noon + (hour - 12) * 3600);
    return state.moodFraction(UtcCalendar().components(*state.now).hour);
}

/// Counts the changes that a state tells.
struct ChangeCount {
    explicit ChangeCount(AppState &state)
        : subscription(state.objectWillChange.subscribe([this] { ++changes; })) {}

    int changes = 0;
    Subscription subscription;
};

} // namespace

TEST(AppState, startsWithNothingOfTheDay) {
    const AppState state(noon);
    EXPECT_TRUE(state.rankedApps->empty());
    EXPECT_EQ(*state.currentAppName, std::nullopt);
    EXPECT_EQ(*state.rhythm, (InputRhythm{0, 0, 0, 0, 0}));
    EXPECT_EQ(*state.activity,
              (ActivitySummary{std::nullopt, std::nullopt, 0, 0, 0, 0, std::nullopt, false}));
    EXPECT_EQ(*state.calendar, (CalendarSummary{std::nullopt, std::nullopt, 0, std::nullopt}));
    EXPECT_EQ(*state.reminders, (RemindersSummary{0, 0, {}, std::nullopt}));
}

TEST(AppState, startsAsAMachineOnBattery) {
    const AppState state(noon);
    EXPECT_EQ(*state.battery,
              (BatteryInfo{0, false, false, std::nullopt, std::nullopt, std::nullopt, true}));
}

TEST(AppState, startsWithNothingOfTheMachine) {
    const AppState state(noon);
    EXPECT_EQ(*state.load, (SystemLoad{0, 0, 0, 0}));
    EXPECT_EQ(*state.disk, (DiskInfo{0, 0}));
    EXPECT_EQ(*state.network, (NetworkThroughput{0, 0, std::nullopt}));
    EXPECT_EQ(*state.uptimeSeconds, 0);
    EXPECT_EQ(*state.focus, FocusState::unknown);
    EXPECT_EQ(*state.desktop, (DesktopSummary{0, {}, 0, false}));
    EXPECT_TRUE(state.deviceBatteries->empty());
    EXPECT_EQ(*state.dockInsets, (EdgeInsets{0, 0, 0, 0}));
}

TEST(AppState, startsWithNothingOfTheWorld) {
    const AppState state(noon);
    EXPECT_EQ(*state.weather, std::nullopt);
    EXPECT_EQ(*state.solar, (SolarInfo{std::nullopt, std::nullopt, 0}));
    EXPECT_EQ(*state.airQuality, std::nullopt);
    EXPECT_EQ(*state.quote, std::nullopt);
    EXPECT_EQ(*state.onThisDay, std::nullopt);
    EXPECT_EQ(*state.apod, std::nullopt);
    EXPECT_EQ(*state.iss, std::nullopt);
}

TEST(AppState, startsWithoutIntegrations) {
    const AppState state(noon);
    EXPECT_TRUE(state.stripeStats->empty());
    EXPECT_TRUE(state.githubStats->empty());
    EXPECT_TRUE(state.customResults->empty());
    EXPECT_TRUE(state.revenueStats->empty());
    EXPECT_TRUE(state.aiUsage->empty());
    EXPECT_TRUE(state.analyticsStats->empty());
    EXPECT_TRUE(state.simpleStats->empty());
}

TEST(AppState, startsAtItsConstructionWithNoDetailRevealed) {
    const AppState state(noon);
    EXPECT_EQ(*state.now, noon);
    EXPECT_FALSE(*state.detailRevealed);
}

TEST(AppState, firesTwiceWhenTheSameRecordIsAssignedTwice) {
    AppState state(noon);
    const ChangeCount count(state);
    const SystemLoad load{0.5, 1, 2, 0.5};
    state.load = load;
    state.load = load;
    EXPECT_EQ(count.changes, 2);
}

TEST(AppState, firesForEveryPropertyAlsoForItsInitialValue) {
    AppState state(noon);
    const ChangeCount count(state);
    int assignments = 0;
    const auto again = [&assignments](auto &property) {
        property = property.get();
        ++assignments;
    };
    again(state.rankedApps), again(state.currentAppName), again(state.rhythm);
    again(state.activity), again(state.battery), again(state.load), again(state.disk);
    again(state.network), again(state.uptimeSeconds), again(state.weather), again(state.solar);
    again(state.calendar), again(state.focus), again(state.desktop), again(state.stripeStats);
    again(state.githubStats), again(state.customResults), again(state.revenueStats);
    again(state.aiUsage), again(state.analyticsStats), again(state.simpleStats);
    again(state.quote), again(state.onThisDay), again(state.apod), again(state.iss);
    again(state.reminders), again(state.deviceBatteries), again(state.airQuality);
    again(state.detailRevealed), again(state.now), again(state.dockInsets);
    EXPECT_EQ(assignments, 31);
    EXPECT_EQ(count.changes, assignments);
}

TEST(AppState, firesBeforeTheValueChanges) {
    AppState state(noon);
    double seen = -1;
    const auto subscription =
        state.objectWillChange.subscribe([&] { seen = *state.uptimeSeconds; });
    state.uptimeSeconds = 7.0;
    EXPECT_EQ(seen, 0);
    EXPECT_EQ(*state.uptimeSeconds, 7);
}

TEST(AppState, keepsAReadRecordUntouchedByALaterAssignment) {
    AppState state(noon);
    state.rankedApps = {{u"a"_s, u"A"_s, 10, std::nullopt}};
    const std::vector<AppUsage> snapshot = *state.rankedApps;
    state.rankedApps = {};
    EXPECT_EQ(snapshot.size(), 1U);
}

TEST(AppState, hasNoTopAppWithoutRankedApps) {
    EXPECT_EQ(AppState(noon).topApp(), std::nullopt);
}

TEST(AppState, hasTheFirstRankedAppOnTop) {
    AppState state(noon);
    const AppUsage first{u"a"_s, u"A"_s, 10, u"/a"_s};
    state.rankedApps = {first, {u"b"_s, u"B"_s, 20, std::nullopt}};
    EXPECT_EQ(state.topApp(), first);
}

TEST(AppState, followsTheSineOfTheHourWithoutASunrise) {
    for (int hour = 0; hour < 24; ++hour) {
        const double expected =
            hour <= 6 || hour >= 18 ? 0 : std::sin((hour - 6) * std::acos(-1.0) / 12);
        EXPECT_NEAR(moodAtHour(hour), expected, 1e-12) << hour;
        EXPECT_EQ(moodAtHour(hour + 0.999), moodAtHour(hour)) << hour;
    }
    EXPECT_EQ(moodAtHour(12), 1);
    EXPECT_EQ(moodAtHour(3), 0);
}

TEST(AppState, jumpsToTheDaylightOnceASunriseIsKnown) {
    AppState state(noon);
    state.solar = SolarInfo{std::nullopt, noon, 0.25};
    EXPECT_EQ(state.moodFraction(12), 1);
    state.solar = SolarInfo{noon, std::nullopt, 0.25};
    EXPECT_EQ(state.moodFraction(12), 0.25);
}

} // namespace zeph
