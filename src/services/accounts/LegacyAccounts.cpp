// SPDX-License-Identifier: MIT
#include "services/accounts/LegacyAccounts.h"

#include "base/Blanks.h"
#include "ports/UserDefaults.h"
#include "services/accounts/Providers.h"

using namespace Qt::StringLiterals;

namespace zeph {

std::vector<LegacyAccount> legacyAccounts(const UserDefaults &defaults) {
    std::vector<LegacyAccount> accounts;
    for (const QString &provider : providers::keyed()) {
        const auto key = [&provider](const char *name) {
            return u"zeph.integrations.%1.%2"_s.arg(provider, QLatin1StringView(name));
        };
        LegacyAccount account{{QUuid::createUuid(), provider, providers::defaultName(provider),
                               defaults.boolean(key("enabled"))}};
        bool isThere = defaults.boolean(key("configured"));
        if (provider == "stripe"_L1) {
            isThere = isThere || account.connection.enabled;
        } else if (provider == "plausible"_L1) {
            account.connection.extra = defaults.get<QString>(key("extra"));
        } else if (provider == "github"_L1) {
            // A user name alone made an account of it.
            account.connection.extra = defaults.get<QString>(key("username"));
            isThere = !withoutOuterBlanks(account.connection.extra.value_or(QString())).isEmpty();
            account.hasSecret = defaults.boolean(key("hasToken"));
            account.needsNoSecret = true;
        }
        if (isThere) {
            accounts.push_back(std::move(account));
        }
    }
    return accounts;
}

} // namespace zeph
