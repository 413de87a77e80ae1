// SPDX-License-Identifier: MIT
#include "services/refresh/IntegrationRefresh.h"

#include "base/Background.h"
#include "model/AppState.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/refresh/AccountFetches.h"
#include "settings/PreferencesStore.h"

#include <algorithm>
#include <utility>

namespace zeph {

IntegrationRefresh::IntegrationRefresh(RefreshContext context)
    : m_state(context.state),
      m_store(context.store),
      m_preferences(context.preferences),
      m_background(context.background),
      m_tools(std::make_shared<FetchTools>(
          FetchTools{std::move(context.services), context.store, context.keychain})) {}

IntegrationRefresh::~IntegrationRefresh() = default;

/// Puts every source through `fetch` in one task and assigns what came of them.
template <typename Source, typename Fetch, typename Property>
void IntegrationRefresh::fetchAll(std::vector<Source> sources, Fetch fetch, Property property,
                                  WorkOwner &owner) {
    using Records = std::vector<
        typename std::invoke_result_t<Fetch, const FetchTools &, const Source &>::value_type>;
    m_background.run(
        owner,
        [weak = std::weak_ptr(m_tools), sources = std::move(sources), fetch] {
            Records records;
            const auto tools = weak.lock();
            for (const Source &source : tools ? sources : std::vector<Source>()) {
                if (auto record = fetch(*tools, source)) {
                    records.push_back(std::move(*record));
                }
            }
            return records;
        },
        [&state = m_state, property](Records records) { state.*property = std::move(records); });
}

/// A task for the accounts of one family. When none is left and two runs hang, the list is emptied
/// at once.
template <AccountFamily family, typename Property>
void IntegrationRefresh::fetchFamily(const std::vector<IntegrationConnection> &ready,
                                     Property property, WorkOwner &owner) {
    std::vector<IntegrationConnection> members;
    std::copy_if(ready.begin(), ready.end(), std::back_inserter(members),
                 [](const IntegrationConnection &account) { return familyOf(account) == family; });
    if (members.empty() && owner.isBusy()) {
        owner.forgetWaiting();
        m_state.*property = {};
        return;
    }
    const auto fetch = [](const FetchTools &tools, const IntegrationConnection &account) {
        auto record = fetchAccount(tools, account);
        auto *const member = record ? std::get_if<FamilyRecord<family>>(&*record) : nullptr;
        return member ? std::optional(std::move(*member)) : std::nullopt;
    };
    fetchAll(std::move(members), fetch, property, owner);
}

void IntegrationRefresh::fetchIntegrations() {
    std::vector<IntegrationConnection> ready;
    const auto &all = m_store.connections();
    std::copy_if(all.begin(), all.end(), std::back_inserter(ready),
                 [this](const IntegrationConnection &connection) {
                     return connection.enabled && m_store.isReady(connection);
                 });
    using enum AccountFamily;
    fetchFamily<stripe>(ready, &AppState::stripeStats, m_stripe);
    fetchFamily<github>(ready, &AppState::githubStats, m_github);
    fetchFamily<revenue>(ready, &AppState::revenueStats, m_revenue);
    fetchFamily<analytics>(ready, &AppState::analyticsStats, m_analytics);
    fetchFamily<simple>(ready, &AppState::simpleStats, m_simple);
    fetchFreeIntegrations();
    fetchCustomAPIs();
}

void IntegrationRefresh::fetchCustomAPIs() {
    if (m_store.customAPIs().empty()) {
        m_custom.forgetWaiting();
        m_state.customResults = {};
        return;
    }
    fetchAll(m_store.customAPIs(), fetchCustomAPI, &AppState::customResults, m_custom);
}

/// The quote is wanted by its switch or by its widget.
void IntegrationRefresh::fetchFreeIntegrations() {
    if (!m_store.quoteEnabled() &&
        m_preferences.placement(WidgetKind::quote) == WidgetPlacement::off) {
        m_quote.forgetWaiting();
        m_state.quote = std::nullopt;
        return;
    }
    m_background.run(
        m_quote,
        [weak = std::weak_ptr(m_tools)] {
            const auto tools = weak.lock();
            return tools ? fetchQuote(*tools) : std::nullopt;
        },
        [&state = m_state](const std::optional<QuoteInfo> &quote) { state.quote = quote; });
}

} // namespace zeph
