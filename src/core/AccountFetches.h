// SPDX-License-Identifier: MIT
#pragma once

#include "core/IntegrationServices.h"
#include "integrations/accounts/CustomAPIConfig.h"
#include "integrations/accounts/IntegrationConnection.h"

namespace zeph {

class IntegrationsStore;
class Keychain;

/// What a fetch works with, on a pool thread.
struct FetchTools {
    const IntegrationServices &services;
    const IntegrationsStore &store;
    Keychain &keychain;
};

/// The services that are asked in one task.
enum class AccountFamily { stripe, github, revenue, analytics, simple };

/// Absent for a service that is not known.
std::optional<AccountFamily> familyOf(const IntegrationConnection &account);

/// Each of these asks the service of one account and stamps its record with the account's identity
/// and name. Absent, without a word and without a request, for an account that is of another
/// family or lacks what its service needs. Nothing is thrown: what a service throws becomes the
/// error of its record.
std::optional<StripeStats> fetchStripe(const FetchTools &tools,
                                       const IntegrationConnection &account);
std::optional<GitHubStats> fetchGitHub(const FetchTools &tools,
                                       const IntegrationConnection &account);
std::optional<RevenueStats> fetchRevenue(const FetchTools &tools,
                                         const IntegrationConnection &account);
std::optional<AnalyticsStats> fetchAnalytics(const FetchTools &tools,
                                             const IntegrationConnection &account);
std::optional<SimpleIntegrationStats> fetchSimple(const FetchTools &tools,
                                                  const IntegrationConnection &account);

/// Always answers.
std::optional<CustomAPIResult> fetchCustomAPI(const FetchTools &tools,
                                              const CustomAPIConfig &config);

/// Absent when there is no quote.
std::optional<QuoteInfo> fetchQuote(const IntegrationServices &services);

} // namespace zeph
