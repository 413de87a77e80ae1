// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "services/refresh/IntegrationServices.h"

#include <memory>
#include <vector>

namespace zeph {

class AppState;
class Background;
class IntegrationsStore;
class Keychain;
class PreferencesStore;
struct FetchTools;
struct IntegrationConnection;

/// What a refresh works with. The state, the preferences and `background` outlive it; the store and
/// the keychain outlive the threads of `background` as well.
struct RefreshContext {
    AppState &state;
    const IntegrationsStore &store;
    Keychain &keychain;
    const PreferencesStore &preferences;
    const Background &background;
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
    template <AccountFamily family, typename Property>
    void fetchFamily(const std::vector<IntegrationConnection> &ready, Property property,
                     WorkOwner &owner);
    template <typename Source, typename Fetch, typename Property>
    void fetchAll(std::vector<Source> sources, Fetch fetch, Property property, WorkOwner &owner);
    void fetchFreeIntegrations();

    static constexpr int sideBySide = 2; // runs of a family; one may hang behind a prompt

    AppState &m_state;
    const IntegrationsStore &m_store;
    const PreferencesStore &m_preferences;
    const Background &m_background;
    std::shared_ptr<const FetchTools> m_tools; // held by tasks for the length of their run
    WorkOwner m_stripe{sideBySide};
    WorkOwner m_github{sideBySide};
    WorkOwner m_revenue{sideBySide};
    WorkOwner m_analytics{sideBySide};
    WorkOwner m_simple{sideBySide};
    WorkOwner m_custom{sideBySide};
    WorkOwner m_quote{sideBySide};
};

} // namespace zeph
