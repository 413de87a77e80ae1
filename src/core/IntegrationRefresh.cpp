// SPDX-License-Identifier: MIT
#include "core/IntegrationRefresh.h"

#include "core/AccountFetches.h"
#include "core/AppState.h"
#include "core/TaskLane.h"
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
    Publishing(AppState &target, TaskExecutor &executor)
        : state(target),
          stripe(executor),
          github(executor),
          revenue(executor),
          analytics(executor),
          simple(executor),
          custom(executor),
          quote(executor) {}

    AppState &state;
    TaskLane stripe;
    TaskLane github;
    TaskLane revenue;
    TaskLane analytics;
    TaskLane simple;
    TaskLane custom;
    TaskLane quote;
};

namespace {

/// Services put their failures into their records. Whatever fails beside them, such as the
/// keyring's library, must not end the task.
template <typename Fetch, typename Source>
auto fetchedOrAbsent(Fetch fetch, const FetchTools &tools, const Source &source)
    -> decltype(fetch(tools, source)) {
    try {
        return fetch(tools, source);
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

} // namespace

IntegrationRefresh::IntegrationRefresh(RefreshContext context)
    : m_state(context.state),
      m_store(context.store),
      m_preferences(context.preferences),
      m_work(std::make_shared<Work>(
          Work{std::move(context.services), context.store, context.keychain, context.runLoop})),
      m_publishing(std::make_shared<Publishing>(context.state, context.executor)) {}

IntegrationRefresh::~IntegrationRefresh() = default;

/// Starts a task that puts every source through `fetch` and assigns what came of them.
template <typename Source, typename Fetch, typename Property>
void IntegrationRefresh::start(Source sources, Fetch fetch, Property property,
                               TaskLane Publishing::*lane) {
    ((*m_publishing).*lane)
        .enter([weakWork = std::weak_ptr<Work>(m_work),
                publishing = std::weak_ptr<Publishing>(m_publishing), sources = std::move(sources),
                fetch, property, lane] {
            const auto work = weakWork.lock();
            if (!work) {
                return;
            }
            std::vector<typename decltype(fetch(work->tools(), sources->front()))::value_type>
                records;
            for (const auto &source : *sources) {
                if (auto record = fetchedOrAbsent(fetch, work->tools(), source)) {
                    records.push_back(std::move(*record));
                }
            }
            work->runLoop.post(
                [publishing, property, lane, records = std::move(records)]() mutable {
                    if (const auto target = publishing.lock()) {
                        target->state.*property = std::move(records);
                        ((*target).*lane).leave();
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
    start(shared, fetchStripe, &AppState::stripeStats, &Publishing::stripe);
    start(shared, fetchGitHub, &AppState::githubStats, &Publishing::github);
    start(shared, fetchRevenue, &AppState::revenueStats, &Publishing::revenue);
    start(shared, fetchAnalytics, &AppState::analyticsStats, &Publishing::analytics);
    start(shared, fetchSimple, &AppState::simpleStats, &Publishing::simple);
    fetchFreeIntegrations();
    fetchCustomAPIs();
}

void IntegrationRefresh::fetchCustomAPIs() {
    if (m_store.customAPIs().empty()) {
        m_state.customResults = {};
        return;
    }
    start(std::make_shared<const std::vector<CustomAPIConfig>>(m_store.customAPIs()),
          fetchCustomAPI, &AppState::customResults, &Publishing::custom);
}

/// The quote is wanted by its switch or by its widget.
void IntegrationRefresh::fetchFreeIntegrations() {
    if (!m_store.quoteEnabled() &&
        m_preferences.placement(WidgetKind::quote) == WidgetPlacement::off) {
        m_state.quote = std::nullopt;
        return;
    }
    m_publishing->quote.enter([weakWork = std::weak_ptr<Work>(m_work),
                               publishing = std::weak_ptr<Publishing>(m_publishing)] {
        const auto work = weakWork.lock();
        if (!work) {
            return;
        }
        work->runLoop.post([publishing, quote = fetchQuote(work->services)] {
            if (const auto target = publishing.lock()) {
                target->state.quote = quote;
                target->quote.leave();
            }
        });
    });
}

} // namespace zeph
