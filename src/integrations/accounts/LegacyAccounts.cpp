// SPDX-License-Identifier: MIT
#include "integrations/accounts/LegacyAccounts.h"

#include "core/values/Blanks.h"
#include "integrations/accounts/AccountKeys.h"
#include "integrations/accounts/Keychain.h"
#include "integrations/accounts/Providers.h"
#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A setting of the time when a service had one account.
QString key(const QString &provider, QLatin1StringView name) {
    return u"zeph.integrations.%1.%2"_s.arg(provider, name);
}

IntegrationConnection connection(const QString &provider, const UserDefaults &defaults) {
    IntegrationConnection made;
    made.id = QUuid::createUuid();
    made.provider = provider;
    made.name = providers::defaultName(provider);
    made.enabled = defaults.boolean(key(provider, "enabled"_L1));
    return made;
}

void addStripe(std::vector<LegacyAccount> &accounts, const UserDefaults &defaults) {
    const auto provider = u"stripe"_s;
    if (defaults.boolean(key(provider, "configured"_L1)) ||
        defaults.boolean(key(provider, "enabled"_L1))) {
        accounts.push_back({connection(provider, defaults), true, false});
    }
}

/// A user name alone made an account of it.
void addGitHub(std::vector<LegacyAccount> &accounts, const UserDefaults &defaults) {
    const auto provider = u"github"_s;
    const auto username = defaults.get<QString>(key(provider, "username"_L1));
    if (username && !withoutOuterBlanks(*username).isEmpty()) {
        LegacyAccount account{connection(provider, defaults),
                              defaults.boolean(key(provider, "hasToken"_L1)), true};
        account.connection.extra = username;
        accounts.push_back(std::move(account));
    }
}

void addOther(const QString &provider, std::vector<LegacyAccount> &accounts,
              const UserDefaults &defaults) {
    if (!defaults.boolean(key(provider, "configured"_L1))) {
        return;
    }
    LegacyAccount account{connection(provider, defaults), true, false};
    if (provider == "plausible"_L1) {
        account.connection.extra = defaults.get<QString>(key(provider, "extra"_L1));
    }
    accounts.push_back(std::move(account));
}

} // namespace

std::vector<LegacyAccount> legacyAccounts(const UserDefaults &defaults) {
    std::vector<LegacyAccount> accounts;
    for (const QString &provider : providers::keyed()) {
        if (provider == "stripe"_L1) {
            addStripe(accounts, defaults);
        } else if (provider == "github"_L1) {
            addGitHub(accounts, defaults);
        } else {
            addOther(provider, accounts, defaults);
        }
    }
    return accounts;
}

bool copyLegacySecret(const SecretMove &move, Keychain &keychain) {
    const auto secret = keychain.get(move.provider);
    if (secret) {
        keychain.set(secret, secretAccount(move.id));
    }
    return secret.has_value();
}

} // namespace zeph
