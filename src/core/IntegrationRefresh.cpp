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

/// Starts a task for the accounts of one family. When none is left and two runs hang, the list is
/// emptied at once.
template <typename Fetch, typename Property>
void IntegrationRefresh::startFamily(const std::vector<IntegrationConnection> &ready,
                                     AccountFamily family, Fetch fetch, Property property,
                                     TaskLane Publishing::*lane) {
    const auto members = std::make_shared<std::vector<IntegrationConnection>>();
    std::copy_if(
        ready.begin(), ready.end(), std::back_inserter(*members),
        [family](const IntegrationConnection &account) { return familyOf(account) == family; });
    TaskLane &wanted = (*m_publishing).*lane;
    if (members->empty() && wanted.isFull()) {
        wanted.forgetWaiting();
        m_state.*property = {};
        return;
    }
    start(std::shared_ptr<const std::vector<IntegrationConnection>>(members), fetch, property,
          lane);
}

void IntegrationRefresh::fetchIntegrations() {
    std::vector<IntegrationConnection> ready;
    const auto &all = m_store.connections();
    std::copy_if(all.begin(), all.end(), std::back_inserter(ready),
                 [this](const IntegrationConnection &connection) {
                     return connection.enabled && m_store.isReady(connection);
                 });
    startFamily(ready, AccountFamily::stripe, fetchStripe, &AppState::stripeStats,
                &Publishing::stripe);
    startFamily(ready, AccountFamily::github, fetchGitHub, &AppState::githubStats,
                &Publishing::github);
    startFamily(ready, AccountFamily::revenue, fetchRevenue, &AppState::revenueStats,
                &Publishing::revenue);
    startFamily(ready, AccountFamily::analytics, fetchAnalytics, &AppState::analyticsStats,
                &Publishing::analytics);
    startFamily(ready, AccountFamily::simple, fetchSimple, &AppState::simpleStats,
                &Publishing::simple);
    fetchFreeIntegrations();
    fetchCustomAPIs();
}

void IntegrationRefresh::fetchCustomAPIs() {
    if (m_store.customAPIs().empty()) {
        m_publishing->custom.forgetWaiting();
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
        m_publishing->quote.forgetWaiting();
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
