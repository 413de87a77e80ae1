// SPDX-License-Identifier: MIT
#include "widgets/WidgetLayoutCatalog.h"

#include "model/AppState.h"
#include "settings/PreferencesStore.h"
#include "widgets/RecordContent.h"

#include <algorithm>
#include <limits>

namespace zeph::WidgetLayoutCatalog {

namespace {

using enum WidgetKind;

/// A passed countdown stays for this long.
constexpr double daySeconds = 86400;

template <typename Record>
bool anySucceeded(const std::vector<Record> &records) {
    return std::any_of(records.begin(), records.end(),
                       [](const Record &record) { return hasSucceeded(record); });
}

template <typename Record>
bool anySucceeded(const std::vector<Record> &records, WidgetKind provider) {
    return std::any_of(records.begin(), records.end(),
                       [provider](const Record &record) { return hasSucceeded(record, provider); });
}

bool hasCountdown(const PreferencesStore &prefs, Date now, const Calendar &calendar) {
    const auto &dates = prefs.countdownDates(now, calendar);
    return std::any_of(dates.begin(), dates.end(), [now](const CountdownOccurrence &occurrence) {
        return occurrence.date > now - daySeconds;
    });
}

/// The kinds that draw the user's accounts at web services.
bool hasAccountContent(WidgetKind kind, const AppState &state) {
    switch (kind) {
    case revenue:
        return anySucceeded(*state.stripeStats);
    case chartmogul:
    case lemonsqueezy:
    case dodo:
        return anySucceeded(*state.revenueStats, kind);
    case openai:
    case claude:
        return anySucceeded(*state.aiUsage, kind);
    case analytics:
        return anySucceeded(*state.analyticsStats);
    case customAPIs:
        return std::any_of(state.customResults->begin(), state.customResults->end(), hasValues);
    case github:
        return std::any_of(state.githubStats->begin(), state.githubStats->end(), hasNumbers);
    case githubGraph:
        return std::any_of(state.githubStats->begin(), state.githubStats->end(), hasGraph);
    default: // the small services, whose accounts share one list
        return anySucceeded(*state.simpleStats, kind);
    }
}

/// The place of `element` in `list`, the greatest number when it has none.
template <typename List, typename Element>
qint64 place(const List &list, const Element &element) {
    const auto found = std::find(list.begin(), list.end(), element);
    return found == list.end() ? std::numeric_limits<qint64>::max()
                               : std::distance(list.begin(), found);
}

} // namespace

const std::vector<WidgetKind> &defaultOrder() {
    static const std::vector<WidgetKind> order = {
        quote,       onThisDay, iss,         revenue,    chartmogul, lemonsqueezy,
        dodo,        gumroad,   polar,       trustmrr,   ahrefs,     coingecko,
        hackernews,  reddit,    producthunt, bluesky,    currency,   github,
        githubGraph, rss,       customAPIs,  reminders,  countdowns, appRanking,
        rhythm,      desktop,   machine,     devices,    progress,   topApp,
        currentApp,  meeting,   sun,         airQuality, weather,    clock};
    return order;
}

std::vector<WidgetKind> orderedKinds(const AppState &state, const PreferencesStore &prefs,
                                     bool quoteEnabled, const Calendar &calendar) {
    std::vector<WidgetKind> kinds;
    for (const WidgetKind kind : defaultOrder()) {
        if (prefs.placement(kind) != WidgetPlacement::off &&
            hasContent(kind, state, prefs, quoteEnabled, calendar)) {
            kinds.push_back(kind);
        }
    }
    if (prefs.layoutMode() == WidgetLayoutMode::manual && !prefs.customOrder().isEmpty()) {
        return applyingCustomOrder(std::move(kinds), prefs.customOrder());
    }
    return kinds;
}

bool hasContent(WidgetKind kind, const AppState &state, const PreferencesStore &prefs,
                bool quoteEnabled, const Calendar &calendar) {
    switch (kind) {
    case clock:
    case weather:
    case meeting:
    case currentApp:
    case topApp:
    case appRanking:
    case desktop:
    case machine:
    case progress:
    case sun:
    case airQuality:
        return true;
    case rhythm:
        return state.rhythm->isCountable;
    case devices:
        return !state.deviceBatteries->empty();
    case reminders:
        return state.reminders->updated.has_value();
    case countdowns:
        return hasCountdown(prefs, *state.now, calendar);
    case quote:
        return quoteEnabled && state.quote->has_value();
    case onThisDay:
        return state.onThisDay->has_value();
    case nasa:
        return state.apod->has_value();
    case iss:
        return state.iss->has_value();
    default:
        return hasAccountContent(kind, state);
    }
}

std::vector<WidgetKind> applyingCustomOrder(std::vector<WidgetKind> kinds,
                                            const QStringList &order) {
    const auto rank = [&order](WidgetKind kind) {
        return std::pair(place(order, rawValue(kind)), place(defaultOrder(), kind));
    };
    std::stable_sort(kinds.begin(), kinds.end(), [&rank](WidgetKind left, WidgetKind right) {
        return rank(left) < rank(right);
    });
    return kinds;
}

} // namespace zeph::WidgetLayoutCatalog
