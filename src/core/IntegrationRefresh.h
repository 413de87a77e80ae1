// SPDX-License-Identifier: MIT
#pragma once

#include "core/IntegrationServices.h"

#include <memory>
#include <vector>

namespace zeph {

class AppState;
class IntegrationsStore;
class Keychain;
class PreferencesStore;
class RunLoop;
class TaskExecutor;
class TaskLane;
enum class AccountFamily;
struct IntegrationConnection;

/// What a refresh works with. The state and the preferences outlive it; the rest outlives the
/// tasks of the executor as well.
struct RefreshContext {
    AppState &state;
    const IntegrationsStore &store;
    Keychain &keychain;
    const PreferencesStore &preferences;
    TaskExecutor &executor;
    RunLoop &runLoop;
    IntegrationServices services;
};

/// Brings the figures of all web accounts into the state: one task a family of services, which
/// asks account after account and then replaces the family's whole list. Keeps nothing between
/// two runs; of two that overlap, the list of the one that ends later stands. What fails beyond
/// the record of an account costs that record and no more. Main thread only.
class IntegrationRefresh {
public:
    explicit IntegrationRefresh(RefreshContext context);
    ~IntegrationRefresh();
    IntegrationRefresh(const IntegrationRefresh &) = delete;
    IntegrationRefresh &operator=(const IntegrationRefresh &) = delete;

    /// Starts a run and returns at once. There are no retries: the next run is the retry.
    void fetchIntegrations();

    /// Starts a run of the custom endpoints alone.
    void fetchCustomAPIs();

private:
    struct Work;
    struct Publishing;

    template <typename Source, typename Fetch, typename Property>
    void start(Source sources, Fetch fetch, Property property, TaskLane Publishing::*lane);
    template <typename Fetch, typename Property>
    void startFamily(const std::vector<IntegrationConnection> &ready, AccountFamily family,
                     Fetch fetch, Property property, TaskLane Publishing::*lane);
    void fetchFreeIntegrations();

    AppState &m_state;
    const IntegrationsStore &m_store;
    const PreferencesStore &m_preferences;
    std::shared_ptr<Work> m_work;             // held by tasks for the length of their run
    std::shared_ptr<Publishing> m_publishing; // held by nobody else, so its end is ours
};

} // namespace zeph
