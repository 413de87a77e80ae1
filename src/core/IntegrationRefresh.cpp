// SPDX-License-Identifier: MIT
#include "core/IntegrationRefresh.h"

#include "core/AccountFetches.h"
#include "core/AppState.h"
#include "integrations/accounts/IntegrationsStore.h"
#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"
#include "presentation/preferences/PreferencesStore.h"

#include <algorithm>
#include <utility>

namespace zeph {

/// What tasks use on their threads.
struct IntegrationRefresh::Work {
    IntegrationServices services;
    const IntegrationsStore &store;
    Keychain &keychain;
    RunLoop &runLoop;

    FetchTools tools() const { return {services, store, keychain}; }
};

/// What results need on the main thread.
struct IntegrationRefresh::Publishing {
    AppState &state;
};

IntegrationRefresh::IntegrationRefresh(RefreshContext context)
    : m_state(context.state),
      m_store(context.store),
      m_preferences(context.preferences),
      m_executor(context.executor),
      m_work(std::make_shared<Work>(
          Work{std::move(context.services), context.store, context.keychain, context.runLoop})),
      m_publishing(std::make_shared<Publishing>(Publishing{context.state})) {}

IntegrationRefresh::~IntegrationRefresh() = default;

/// Starts a task that puts every source through `fetch` and assigns what came of them.
template <typename Source, typename Fetch, typename Property>
void IntegrationRefresh::start(Source sources, Fetch fetch, Property property) {
    m_executor.run([weakWork = std::weak_ptr<Work>(m_work),
                    publishing = std::weak_ptr<Publishing>(m_publishing),
                    sources = std::move(sources), fetch, property] {
        const auto work = weakWork.lock();
        if (!work) {
            return;
        }
        std::vector<typename decltype(fetch(work->tools(), sources->front()))::value_type> records;
        for (const auto &source : *sources) {
            if (auto record = fetch(work->tools(), source)) {
                records.push_back(std::move(*record));
            }
        }
        work->runLoop.post([publishing, property, records = std::move(records)]() mutable {
            if (const auto target = publishing.lock()) {
                target->state.*property = std::move(records);
            }
        });
    });
}

void IntegrationRefresh::fetchIntegrations() {
    const auto ready = std::make_shared<std::vector<IntegrationConnection>>();
    const auto &all = m_store.connections();
    std::copy_if(all.begin(), all.end(), std::back_inserter(*ready),
                 [this](const IntegrationConnection &connection) {
                     return connection.enabled && m_store.isReady(connection);
                 });
    const std::shared_ptr<const std::vector<IntegrationConnection>> shared = ready;
    start(shared, fetchStripe, &AppState::stripeStats);
    start(shared, fetchGitHub, &AppState::githubStats);
    start(shared, fetchRevenue, &AppState::revenueStats);
    start(shared, fetchAnalytics, &AppState::analyticsStats);
    start(shared, fetchSimple, &AppState::simpleStats);
    fetchFreeIntegrations();
    fetchCustomAPIs();
}

void IntegrationRefresh::fetchCustomAPIs() {
    if (m_store.customAPIs().empty()) {
        m_state.customResults = {};
        return;
    }
    start(std::make_shared<const std::vector<CustomAPIConfig>>(m_store.customAPIs()),
          fetchCustomAPI, &AppState::customResults);
}

/// The quote is wanted by its switch or by its widget.
void IntegrationRefresh::fetchFreeIntegrations() {
    if (!m_store.quoteEnabled() &&
        m_preferences.placement(WidgetKind::quote) == WidgetPlacement::off) {
        m_state.quote = std::nullopt;
        return;
    }
    m_executor.run([weakWork = std::weak_ptr<Work>(m_work),
                    publishing = std::weak_ptr<Publishing>(m_publishing)] {
        const auto work = weakWork.lock();
        if (!work) {
            return;
        }
        work->runLoop.post([publishing, quote = fetchQuote(work->services)] {
            if (const auto target = publishing.lock()) {
                target->state.quote = quote;
            }
        });
    });
}

} // namespace zeph
