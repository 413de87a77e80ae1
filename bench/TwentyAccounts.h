// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/IntegrationConnection.h"

#include <vector>

namespace zeph {

/// An account at each of the services, and a second one at the first. `root` is where the services
/// are to be found.
inline std::vector<IntegrationConnection> twentyAccounts(const QString &root) {
    using namespace Qt::StringLiterals;
    const std::vector<std::pair<QString, QString>> kinds{{u"stripe"_s, {}},
                                                         {u"stripe"_s, {}},
                                                         {u"github"_s, u"mira"_s},
                                                         {u"chartmogul"_s, {}},
                                                         {u"lemonsqueezy"_s, {}},
                                                         {u"dodo"_s, {}},
                                                         {u"plausible"_s, u"a.org"_s},
                                                         {u"trustmrr"_s, u"quiet"_s},
                                                         {u"ahrefs"_s, u"a.org"_s},
                                                         {u"coingecko"_s, u"bitcoin"_s},
                                                         {u"hackernews"_s, u"mira"_s},
                                                         {u"reddit"_s, u"mira"_s},
                                                         {u"producthunt"_s, u"mira"_s},
                                                         {u"bluesky"_s, u"mira"_s},
                                                         {u"currency"_s, u"USD/INR"_s},
                                                         {u"rss"_s, root + u"/feed/blog.atom"_s},
                                                         {u"vercel"_s, {}},
                                                         {u"netlify"_s, {}},
                                                         {u"gumroad"_s, {}},
                                                         {u"polar"_s, {}}};
    std::vector<IntegrationConnection> accounts;
    for (const auto &[provider, extra] : kinds) {
        IntegrationConnection account;
        account.id = QUuid::createUuid();
        account.provider = provider;
        account.name = provider;
        account.extra = extra;
        account.showContributionGraph = true;
        accounts.push_back(account);
    }
    return accounts;
}

} // namespace zeph
