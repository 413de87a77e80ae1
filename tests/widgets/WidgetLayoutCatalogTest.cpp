// SPDX-License-Identifier: MIT
#include "widgets/WidgetLayoutCatalog.h"

#include "model/AppState.h"
#include "settings/PreferencesFixture.h"
#include "support/UtcCalendar.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

using enum WidgetKind;
using Kinds = std::vector<WidgetKind>;

const Date now{1'700'000'000};
const std::optional<QString> failure = u"The key was refused"_s;

const std::vector<WidgetKind> waitingKinds = {clock,   weather,    meeting, currentApp,
                                              topApp,  appRanking, rhythm,  desktop,
                                              machine, progress,   sun,     airQuality};

class WidgetLayoutCatalogTest : public PreferencesFixture {
protected:
    bool hasContent(WidgetKind kind) {
        return WidgetLayoutCatalog::hasContent(kind, state, prefs(), quoteEnabled, calendar);
    }
    Kinds ordered() {
        return WidgetLayoutCatalog::orderedKinds(state, prefs(), quoteEnabled, calendar);
    }

    /// The waiting kinds that are on at first, in the wallpaper's order.
    static Kinds waiting() {
        Kinds kinds = WidgetLayoutCatalog::defaultOrder();
        std::erase_if(kinds, [](WidgetKind kind) {
            return !testing::Value(waitingKinds, testing::Contains(kind)) ||
                   defaultPlacement(kind) == WidgetPlacement::off;
        });
        return kinds;
    }

    /// Tries a record that succeeded, failed, failed after a success, and was never fetched:
    /// only the first one is content.
    template <typename Record>
    void expectContentOnSuccess(WidgetKind kind, Published<std::vector<Record>> &list,
                                Record record) {
        SCOPED_TRACE(rawValue(kind).toStdString());
        EXPECT_FALSE(hasContent(kind));
        list = std::vector{record};
        EXPECT_FALSE(hasContent(kind));
        record.error = failure;
        list = std::vector{record};
        EXPECT_FALSE(hasContent(kind));
        record.updated = now;
        list = std::vector{record};
        EXPECT_FALSE(hasContent(kind));
        Record good = record;
        good.error.reset();
        list = std::vector{record, good};
        EXPECT_TRUE(hasContent(kind));
        list = {};
    }

    /// The same for records of one provider among others.
    template <typename Record>
    void expectContentOfProvider(WidgetKind kind, Published<std::vector<Record>> &list) {
        Record record;
        record.provider = rawValue(kind);
        expectContentOnSuccess(kind, list, record);
        record.provider = u"another"_s;
        record.updated = now;
        list = std::vector{record};
        EXPECT_FALSE(hasContent(kind));
        list = {};
    }

    CountdownEvent countdown(double secondsFromNow,
                             CountdownRecurrence recurrence = CountdownRecurrence::none) {
        return {QUuid::createUuid(), u"Trip"_s, now + secondsFromNow, recurrence};
    }

    AppState state{now};
    UtcCalendar calendar;
    bool quoteEnabled = true;
};

TEST_F(WidgetLayoutCatalogTest, theDefaultOrderEndsWithTheClock) {
    EXPECT_THAT(WidgetLayoutCatalog::defaultOrder(),
                testing::ElementsAreArray(
                    {quote,       onThisDay, iss,         revenue,    chartmogul, lemonsqueezy,
                     dodo,        gumroad,   polar,       trustmrr,   ahrefs,     coingecko,
                     hackernews,  reddit,    producthunt, bluesky,    currency,   github,
                     githubGraph, rss,       customAPIs,  reminders,  countdowns, appRanking,
                     rhythm,      desktop,   machine,     devices,    progress,   topApp,
                     currentApp,  meeting,   sun,         airQuality, weather,    clock}));
}

TEST_F(WidgetLayoutCatalogTest, anEmptyStateShowsTheWidgetsWithAWaitingSentence) {
    EXPECT_EQ(ordered(), waiting());
    EXPECT_THAT(ordered(), testing::IsSupersetOf({weather, clock}));
    EXPECT_THAT(ordered(), testing::Not(testing::Contains(desktop))) << "off at first";
}

TEST_F(WidgetLayoutCatalogTest, withoutTheClockTheWeatherIsLast) {
    prefs().set(WidgetPlacement::off, clock);
    EXPECT_EQ(ordered().back(), weather);
    EXPECT_THAT(ordered(), testing::Not(testing::Contains(clock)));
}

TEST_F(WidgetLayoutCatalogTest, aWidgetSwitchedOffStaysAwayThoughItHasContent) {
    state.iss = ISSInfo{};
    EXPECT_EQ(ordered().front(), iss);
    prefs().set(WidgetPlacement::off, iss);
    EXPECT_EQ(ordered().front(), appRanking);
}

TEST_F(WidgetLayoutCatalogTest, manualModeTakesTheUsersOrderFirst) {
    prefs().setLayoutMode(WidgetLayoutMode::manual);
    prefs().setCustomOrder({u"weather"_s, u"clock"_s});
    Kinds expected = waiting();
    std::rotate(expected.begin(), expected.end() - 2, expected.end());
    EXPECT_EQ(expected.front(), weather);
    EXPECT_EQ(ordered(), expected);
}

TEST_F(WidgetLayoutCatalogTest, automaticModeIgnoresTheUsersOrder) {
    const Kinds before = ordered();
    prefs().setCustomOrder({u"weather"_s, u"clock"_s});
    EXPECT_EQ(ordered(), before);
}

TEST_F(WidgetLayoutCatalogTest, manualModeWithoutAnOrderKeepsTheDefault) {
    const Kinds before = ordered();
    prefs().setLayoutMode(WidgetLayoutMode::manual);
    EXPECT_EQ(ordered(), before);
}

TEST_F(WidgetLayoutCatalogTest, anUnknownNameInTheOrderIsAsIfAbsent) {
    prefs().setLayoutMode(WidgetLayoutMode::manual);
    prefs().setCustomOrder({u"weather"_s, u"clock"_s});
    const Kinds known = ordered();
    prefs().setCustomOrder({u"saas"_s, u"weather"_s, u"nonsense"_s, u"clock"_s});
    EXPECT_EQ(ordered(), known);
}

TEST_F(WidgetLayoutCatalogTest, kindsInNeitherListKeepTheirOrderAtTheEnd) {
    EXPECT_THAT(WidgetLayoutCatalog::applyingCustomOrder({vercel, nasa, clock, openai, quote},
                                                         {u"clock"_s}),
                ElementsAre(clock, quote, vercel, nasa, openai));
    EXPECT_THAT(WidgetLayoutCatalog::applyingCustomOrder({clock, vercel}, {u"vercel"_s}),
                ElementsAre(vercel, clock));
    EXPECT_THAT(WidgetLayoutCatalog::applyingCustomOrder({}, {u"clock"_s}), IsEmpty());
}

TEST_F(WidgetLayoutCatalogTest, aKindNamedTwiceInTheOrderTakesItsFirstPlace) {
    EXPECT_THAT(WidgetLayoutCatalog::applyingCustomOrder({clock, weather},
                                                         {u"clock"_s, u"weather"_s, u"clock"_s}),
                ElementsAre(clock, weather));
}

TEST_F(WidgetLayoutCatalogTest, onlyTheWaitingKindsHaveContentFromTheStart) {
    for (const WidgetKind kind : allWidgetKinds()) {
        EXPECT_EQ(hasContent(kind), testing::Value(waitingKinds, testing::Contains(kind)))
            << rawValue(kind).toStdString();
    }
}

TEST_F(WidgetLayoutCatalogTest, smallServicesShowAfterASuccess) {
    for (const WidgetKind kind : {trustmrr, ahrefs, coingecko, hackernews, reddit, producthunt,
                                  bluesky, currency, gumroad, polar, vercel, netlify, rss}) {
        expectContentOfProvider(kind, state.simpleStats);
    }
}

TEST_F(WidgetLayoutCatalogTest, revenueServicesShowAfterASuccess) {
    for (const WidgetKind kind : {chartmogul, lemonsqueezy, dodo}) {
        expectContentOfProvider(kind, state.revenueStats);
    }
}

TEST_F(WidgetLayoutCatalogTest, spendServicesHaveContentAfterASuccess) {
    for (const WidgetKind kind : {openai, claude}) {
        expectContentOfProvider(kind, state.aiUsage);
    }
}

TEST_F(WidgetLayoutCatalogTest, paymentsAndAnalyticsHaveContentAfterASuccess) {
    expectContentOnSuccess(revenue, state.stripeStats, StripeStats{});
    expectContentOnSuccess(analytics, state.analyticsStats, AnalyticsStats{});
}

TEST_F(WidgetLayoutCatalogTest, githubShowsAfterASuccessUnlessItsStatsAreSwitchedOff) {
    expectContentOnSuccess(github, state.githubStats, GitHubStats{});
    GitHubStats account;
    account.updated = now;
    account.showStats = false;
    state.githubStats = {account};
    EXPECT_FALSE(hasContent(github));
}

TEST_F(WidgetLayoutCatalogTest, theContributionGraphShowsWhateverTheError) {
    GitHubStats account;
    account.error = failure;
    account.showStats = false;
    state.githubStats = {account};
    EXPECT_FALSE(hasContent(githubGraph));
    account.contributions = ContributionGraph{};
    state.githubStats = {GitHubStats{}, account};
    EXPECT_TRUE(hasContent(githubGraph));
}

TEST_F(WidgetLayoutCatalogTest, customEndpointsShowWithAValueAndNoError) {
    CustomAPIResult result;
    state.customResults = {result};
    EXPECT_FALSE(hasContent(customAPIs));
    result.values = {CustomAPIValue{}};
    result.error = failure;
    state.customResults = {result};
    EXPECT_FALSE(hasContent(customAPIs));
    result.error.reset();
    state.customResults = {CustomAPIResult{}, result};
    EXPECT_TRUE(hasContent(customAPIs));
}

TEST_F(WidgetLayoutCatalogTest, devicesAndRemindersShowOnceTheyAreKnown) {
    state.deviceBatteries = {DeviceBattery{u"Mouse"_s, 80}};
    EXPECT_TRUE(hasContent(devices));
    RemindersSummary summary;
    summary.dueToday = 3;
    state.reminders = summary;
    EXPECT_FALSE(hasContent(reminders));
    summary.updated = now;
    state.reminders = summary;
    EXPECT_TRUE(hasContent(reminders));
}

TEST_F(WidgetLayoutCatalogTest, aCountdownStaysForADayAfterItPassed) {
    prefs().setCountdowns({countdown(-86400)});
    EXPECT_FALSE(hasContent(countdowns));
    prefs().setCountdowns({countdown(-90'000), countdown(-86399)});
    EXPECT_TRUE(hasContent(countdowns));
    prefs().setCountdowns({countdown(10 * 86400)});
    EXPECT_TRUE(hasContent(countdowns));
}

TEST_F(WidgetLayoutCatalogTest, aRepeatingCountdownCountsByItsNextOccurrence) {
    prefs().setCountdowns({countdown(-40 * 86400.0)});
    EXPECT_FALSE(hasContent(countdowns));
    prefs().setCountdowns({countdown(-40 * 86400.0, CountdownRecurrence::monthly)});
    EXPECT_TRUE(hasContent(countdowns));
}

TEST_F(WidgetLayoutCatalogTest, theQuoteNeedsItsSwitchAndAQuote) {
    EXPECT_FALSE(hasContent(quote));
    state.quote = QuoteInfo{u"Be."_s, u"Anon"_s};
    EXPECT_TRUE(hasContent(quote));
    quoteEnabled = false;
    EXPECT_FALSE(hasContent(quote));
}

TEST_F(WidgetLayoutCatalogTest, dailyContentShowsOnceItIsPresent) {
    state.onThisDay = OnThisDayInfo{};
    EXPECT_TRUE(hasContent(onThisDay));
    state.apod = APODInfo{};
    EXPECT_TRUE(hasContent(nasa));
    state.iss = ISSInfo{};
    EXPECT_TRUE(hasContent(iss));
}

TEST_F(WidgetLayoutCatalogTest, sixKindsAreNeverShownThoughTheyHaveContent) {
    const auto simple = [](WidgetKind kind) {
        SimpleIntegrationStats record;
        record.provider = rawValue(kind);
        record.updated = now;
        return record;
    };
    const auto spend = [](WidgetKind kind) {
        AIUsageStats record;
        record.provider = rawValue(kind);
        record.updated = now;
        return record;
    };
    AnalyticsStats site;
    site.updated = now;
    state.simpleStats = {simple(vercel), simple(netlify), simple(rss)};
    state.aiUsage = {spend(openai), spend(claude)};
    state.analyticsStats = {site};
    state.apod = APODInfo{};
    const Kinds shown = ordered();
    EXPECT_EQ(shown.front(), rss);
    for (const WidgetKind kind : {openai, claude, analytics, vercel, netlify, nasa}) {
        EXPECT_TRUE(hasContent(kind));
        EXPECT_THAT(shown, testing::Not(testing::Contains(kind)));
    }
}

} // namespace

} // namespace zeph
