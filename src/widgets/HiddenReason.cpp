// SPDX-License-Identifier: MIT
#include "widgets/HiddenReason.h"

#include "model/AppState.h"
#include "settings/PreferencesStore.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetLayoutCatalog.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using enum WidgetKind;

const QString noAnswer = u"No account of its service has answered yet, or none is connected"_s;
const QString notYet = u"Its service has not answered yet"_s;

QString failed(const QString &error) {
    return u"The last fetch failed: "_s + error;
}

/// For a list of records of which none can be shown: the first failure among those that `isOf`
/// counts, else that there are none.
template <typename Record, typename IsOf>
QString failureIn(const std::vector<Record> &records, IsOf isOf) {
    for (const Record &record : records) {
        if (isOf(record) && record.error) {
            return failed(*record.error);
        }
    }
    return noAnswer;
}

template <typename Record>
QString failureIn(const std::vector<Record> &records) {
    return failureIn(records, [](const Record & /*any*/) { return true; });
}

template <typename Record>
QString failureOf(WidgetKind provider, const std::vector<Record> &records) {
    return failureIn(records, [provider](const Record &record) {
        return record.provider == rawValue(provider);
    });
}

QString gitHubReason(const std::vector<GitHubStats> &accounts) {
    const bool isSilenced =
        std::any_of(accounts.begin(), accounts.end(), [](const GitHubStats &account) {
            return hasSucceeded(account) && !account.showStats;
        });
    return isSilenced ? u"Its numbers are switched off in the account"_s : failureIn(accounts);
}

QString graphReason(const std::vector<GitHubStats> &accounts) {
    return accounts.empty() ? noAnswer
                            : u"No account shows its graph, or the graph could not be read"_s;
}

QString customReason(const std::vector<CustomAPIResult> &results) {
    if (results.empty()) {
        return u"No custom endpoint has answered yet, or none is set up"_s;
    }
    const QString reason = failureIn(results);
    return reason == noAnswer ? u"No endpoint has a value to show"_s : reason;
}

QString accountReason(WidgetKind kind, const AppState &state) {
    switch (kind) {
    case revenue:
        return failureIn(*state.stripeStats);
    case chartmogul:
    case lemonsqueezy:
    case dodo:
        return failureOf(kind, *state.revenueStats);
    case customAPIs:
        return customReason(*state.customResults);
    case github:
        return gitHubReason(*state.githubStats);
    case githubGraph:
        return graphReason(*state.githubStats);
    default: // the small services, whose accounts share one list
        return failureOf(kind, *state.simpleStats);
    }
}

/// Of a kind that stands in the order, is switched on and has no content.
QString emptyReason(WidgetKind kind, const AppState &state, bool quoteEnabled) {
    switch (kind) {
    case rhythm:
        return u"Your desktop does not tell how often keys are pressed, so there is no typing "
               u"rhythm here"_s;
    case devices:
        return u"No connected device tells its charge"_s;
    case reminders:
        return u"The task lists were not read yet, or reading them is not allowed"_s;
    case countdowns:
        return u"There is no event to come"_s;
    case quote:
        return quoteEnabled ? notYet : u"The daily quote is switched off among the integrations"_s;
    case onThisDay:
    case iss:
        return notYet;
    default:
        return accountReason(kind, state);
    }
}

} // namespace

std::optional<QString> hiddenReason(WidgetKind kind, const AppState &state,
                                    const PreferencesStore &prefs, bool quoteEnabled,
                                    const Calendar &calendar) {
    const std::vector<WidgetKind> &order = WidgetLayoutCatalog::defaultOrder();
    if (std::find(order.begin(), order.end(), kind) == order.end()) {
        return u"The wallpaper has no place for it at present"_s;
    }
    if (prefs.placement(kind) == WidgetPlacement::off) {
        return u"It is switched off"_s;
    }
    if (WidgetLayoutCatalog::hasContent(kind, state, prefs, quoteEnabled, calendar)) {
        return std::nullopt;
    }
    return emptyReason(kind, state, quoteEnabled);
}

} // namespace zeph
