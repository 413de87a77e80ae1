// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/CustomAPIConfig.h"
#include "services/accounts/IntegrationConnection.h"
#include "services/refresh/IntegrationServices.h"

namespace zeph {

class IntegrationsStore;
class Keychain;

/// What a fetch works with, on a pool thread. The store and the keychain outlive it.
struct FetchTools {
    IntegrationServices services;
    const IntegrationsStore &store;
    Keychain &keychain;
};

/// Absent for a service that is not known or not asked.
std::optional<AccountFamily> familyOf(const IntegrationConnection &account);

/// Asks the service of one account and stamps its record with the account's identity and name.
/// Absent, without a word and without a request, for an account that lacks what its service needs
/// or whose service is not asked. What the service throws becomes the error of its record; where
/// the keyring fails there is none.
std::optional<AccountRecord> fetchAccount(const FetchTools &tools,
                                          const IntegrationConnection &account);

/// Always answers.
std::optional<CustomAPIResult> fetchCustomAPI(const FetchTools &tools,
                                              const CustomAPIConfig &config);

/// Always answers.
EndpointListing listEndpoint(const FetchTools &tools, const CustomAPIConfig &config);

/// Absent when there is no quote.
std::optional<QuoteInfo> fetchQuote(const FetchTools &tools);

} // namespace zeph
