// SPDX-License-Identifier: MIT
#pragma once

#include "integrations/accounts/IntegrationConnection.h"
#include "integrations/accounts/PendingSecrets.h"

#include <vector>

namespace zeph {

class Keychain;
class UserDefaults;

/// The one account of a service that early versions knew, as the account that it becomes.
struct LegacyAccount {
    IntegrationConnection connection;
    bool hasSecret = false;     ///< one may be kept under the bare name of the service
    bool needsNoSecret = false; ///< it counts as connected without one
};

/// The accounts that the settings of an early version tell of, in their fixed order and with new
/// identities.
std::vector<LegacyAccount> legacyAccounts(const UserDefaults &defaults);

/// Copies the secret to the account's own name; false when there is none. Callable from any
/// thread; blocks as the keychain does.
bool copyLegacySecret(const SecretMove &move, Keychain &keychain);

} // namespace zeph
