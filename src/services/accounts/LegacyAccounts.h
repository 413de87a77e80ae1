// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/IntegrationConnection.h"

#include <vector>

namespace zeph {

class UserDefaults;

/// The one account of a service that early versions knew, as the account that it becomes.
struct LegacyAccount {
    IntegrationConnection connection;
    bool hasSecret = true;      ///< one may be kept under the bare name of the service
    bool needsNoSecret = false; ///< it counts as connected without one
};

/// The accounts that the settings of an early version tell of, in their fixed order and with new
/// identities.
std::vector<LegacyAccount> legacyAccounts(const UserDefaults &defaults);

} // namespace zeph
