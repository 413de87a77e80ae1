// SPDX-License-Identifier: MIT
#include "widgets/WidgetTable.h"

#include "model/AppState.h"
#include "settings/PreferencesStore.h"
#include "widgets/BuiltInWidgets.h"
#include "widgets/IntegrationWidgets.h"
#include "widgets/RecordContent.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using enum WidgetKind;
using Absence = std::optional<QString>;

/// A passed countdown stays for this long.
constexpr double daySeconds = 86400;

QString noAnswer() {
    return u"No account of its service has answered yet, or none is connected"_s;
}

/// Absent when a record of `records` passes `isShown`; else the first failure among those that
/// `isOf` counts, or that there is none.
template <typename Record, typename IsOf, typename IsShown>
Absence absenceIn(const std::vector<Record> &records, IsOf isOf, IsShown isShown) {
    if (std::any_of(records.begin(), records.end(), isShown)) {
        return std::nullopt;
    }
    const auto failed = std::find_if(records.begin(), records.end(), [&](const Record &record) {
        return isOf(record) && record.error;
    });
    return failed == records.end() ? noAnswer() : u"The last fetch failed: "_s + *failed->error;
}

template <typename Record>
bool isAny(const Record & /*record*/) {
    return true;
}

/// Of a kind that shows every record of its list.
template <auto list>
Absence withoutSuccess(const ContentFacts &facts) {
    const auto &records = *(facts.state.*list);
    using Record = typename std::decay_t<decltype(records)>::value_type;
    return absenceIn(records, isAny<Record>, [](const Record &each) { return hasSucceeded(each); });
}

/// Of a kind whose records stand among those of other providers.
template <WidgetKind provider, auto list>
Absence withoutSuccessOf(const ContentFacts &facts) {
    const auto &records = *(facts.state.*list);
    using Record = typename std::decay_t<decltype(records)>::value_type;
    return absenceIn(
        records, [](const Record &each) { return each.provider == rawValue(provider); },
        [](const Record &each) { return hasSucceeded(each, provider); });
}

/// Of one of the small services, whose accounts share one list.
template <WidgetKind provider>
constexpr auto simple = withoutSuccessOf<provider, &AppState::simpleStats>;

template <WidgetKind provider>
constexpr auto revenueOf = withoutSuccessOf<provider, &AppState::revenueStats>;

template <WidgetKind provider>
constexpr auto spendOf = withoutSuccessOf<provider, &AppState::aiUsage>;

/// Of what is fetched once a day or more often and is there from the first answer on.
template <auto value>
Absence unanswered(const ContentFacts &facts) {
    return (facts.state.*value)->has_value() ? Absence() : u"Its service has not answered yet"_s;
}

Absence withoutQuote(const ContentFacts &facts) {
    return facts.quoteEnabled ? unanswered<&AppState::quote>(facts)
                              : u"The daily quote is switched off among the integrations"_s;
}

Absence withoutNumbers(const ContentFacts &facts) {
    const auto &accounts = *facts.state.githubStats;
    const Absence absence = absenceIn(accounts, isAny<GitHubStats>, hasNumbers);
    const bool isSilenced =
        absence && std::any_of(accounts.begin(), accounts.end(), [](const GitHubStats &account) {
            return hasSucceeded(account) && !account.showStats;
        });
    return isSilenced ? u"Its numbers are switched off in the account"_s : absence;
}

Absence withoutGraph(const ContentFacts &facts) {
    const auto &accounts = *facts.state.githubStats;
    if (std::any_of(accounts.begin(), accounts.end(), hasGraph)) {
        return std::nullopt;
    }
    return accounts.empty() ? noAnswer()
                            : u"No account shows its graph, or the graph could not be read"_s;
}

Absence withoutEndpoint(const ContentFacts &facts) {
    const auto &results = *facts.state.customResults;
    if (results.empty()) {
        return u"No custom endpoint has answered yet, or none is set up"_s;
    }
    const Absence absence = absenceIn(results, isAny<CustomAPIResult>, hasValues);
    return absence == noAnswer() ? u"No endpoint has a value to show"_s : absence;
}

Absence withoutReminders(const ContentFacts &facts) {
    return facts.state.reminders->updated
               ? Absence()
               : u"The task lists were not read yet, or reading them is not allowed"_s;
}

Absence withoutEvent(const ContentFacts &facts) {
    const Date now = *facts.state.now;
    const auto &dates = facts.prefs.countdownDates(now, facts.calendar);
    const bool isToCome =
        std::any_of(dates.begin(), dates.end(), [now](const CountdownOccurrence &occurrence) {
            return occurrence.date > now - daySeconds;
        });
    return isToCome ? Absence() : u"There is no event to come"_s;
}

Absence withoutDevice(const ContentFacts &facts) {
    return facts.state.deviceBatteries->empty() ? u"No connected device tells its charge"_s
                                                : Absence();
}

template <WidgetKind provider>
View revenueProvider(const WidgetContext &context) {
    return revenueProviderWidget(provider, context);
}

template <WidgetKind provider>
View aiProvider(const WidgetContext &context) {
    return aiProviderWidget(provider, context);
}

constexpr auto placed = std::to_array<WidgetEntry>({
    {quote, quoteWidget, withoutQuote},
    {onThisDay, onThisDayWidget, unanswered<&AppState::onThisDay>},
    {iss, issWidget, unanswered<&AppState::iss>},
    {revenue, revenueWidget, withoutSuccess<&AppState::stripeStats>},
    {chartmogul, revenueProvider<chartmogul>, revenueOf<chartmogul>},
    {lemonsqueezy, revenueProvider<lemonsqueezy>, revenueOf<lemonsqueezy>},
    {dodo, revenueProvider<dodo>, revenueOf<dodo>},
    {gumroad, nullptr, simple<gumroad>},
    {polar, nullptr, simple<polar>},
    {trustmrr, trustmrrWidget, simple<trustmrr>},
    {ahrefs, nullptr, simple<ahrefs>},
    {coingecko, nullptr, simple<coingecko>},
    {hackernews, nullptr, simple<hackernews>},
    {reddit, nullptr, simple<reddit>},
    {producthunt, nullptr, simple<producthunt>},
    {bluesky, nullptr, simple<bluesky>},
    {currency, nullptr, simple<currency>},
    {github, githubWidget, withoutNumbers},
    {githubGraph, githubGraphWidget, withoutGraph},
    {rss, rssWidget, simple<rss>},
    {customAPIs, customAPIsWidget, withoutEndpoint},
    {reminders, remindersWidget, withoutReminders},
    {countdowns, countdownsWidget, withoutEvent},
    {appRanking, appRankingWidget},
    {rhythm, rhythmWidget},
    {desktop, desktopWidget},
    {machine, machineWidget},
    {devices, devicesWidget, withoutDevice},
    {progress, progressWidget},
    {topApp, topAppWidget},
    {currentApp, currentAppWidget},
    {meeting, meetingWidget},
    {sun, sunWidget},
    {airQuality, airQualityWidget},
    {weather, weatherWidget},
    {clock, clockWidget},
});

constexpr auto unplaced = std::to_array<WidgetEntry>({
    {openai, aiProvider<openai>, spendOf<openai>},
    {claude, aiProvider<claude>, spendOf<claude>},
    {analytics, analyticsWidget, withoutSuccess<&AppState::analyticsStats>},
    {vercel, nullptr, simple<vercel>},
    {netlify, nullptr, simple<netlify>},
    {nasa, nasaWidget, unanswered<&AppState::apod>},
});

constexpr bool hasOneEntryAKind() {
    std::array<int, widgetKindCount> entries{};
    for (const WidgetEntry &entry : placed) {
        ++entries.at(static_cast<std::size_t>(entry.kind));
    }
    for (const WidgetEntry &entry : unplaced) {
        ++entries.at(static_cast<std::size_t>(entry.kind));
    }
    return std::all_of(entries.begin(), entries.end(), [](int count) { return count == 1; });
}
static_assert(hasOneEntryAKind());

} // namespace

std::span<const WidgetEntry> placedWidgets() {
    return placed;
}

const WidgetEntry &widgetEntry(WidgetKind kind) {
    const auto isOfKind = [kind](const WidgetEntry &entry) { return entry.kind == kind; };
    const auto *const found = std::find_if(placed.begin(), placed.end(), isOfKind);
    return found != placed.end() ? *found
                                 : *std::find_if(unplaced.begin(), unplaced.end(), isOfKind);
}

} // namespace zeph
