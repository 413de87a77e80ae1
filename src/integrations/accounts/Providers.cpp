// SPDX-License-Identifier: MIT
#include "integrations/accounts/Providers.h"

#include "core/values/Capitalized.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace zeph::providers {

namespace {

struct Named {
    QLatin1StringView provider;
    QLatin1StringView name;
};

constexpr std::array names = {
    Named{"stripe"_L1, "Stripe"_L1},         Named{"github"_L1, "GitHub"_L1},
    Named{"chartmogul"_L1, "ChartMogul"_L1}, Named{"lemonsqueezy"_L1, "Lemon Squeezy"_L1},
    Named{"dodo"_L1, "Dodo Payments"_L1},    Named{"openai"_L1, "OpenAI"_L1},
    Named{"claude"_L1, "Claude"_L1},         Named{"plausible"_L1, "Plausible"_L1},
    Named{"trustmrr"_L1, "TrustMRR"_L1},     Named{"ahrefs"_L1, "Ahrefs"_L1},
    Named{"coingecko"_L1, "Crypto"_L1},      Named{"hackernews"_L1, "Hacker News"_L1},
    Named{"reddit"_L1, "Reddit"_L1},         Named{"producthunt"_L1, "Product Hunt"_L1},
    Named{"bluesky"_L1, "Bluesky"_L1},       Named{"currency"_L1, "Exchange rate"_L1},
    Named{"rss"_L1, "RSS feed"_L1},
};

constexpr std::array keylessKeys = {"ahrefs"_L1,      "coingecko"_L1, "hackernews"_L1, "reddit"_L1,
                                    "producthunt"_L1, "bluesky"_L1,   "currency"_L1,   "rss"_L1};

} // namespace

QString defaultName(const QString &provider) {
    const auto named = std::find_if(names.begin(), names.end(), [&provider](const Named &entry) {
        return entry.provider == provider;
    });
    return named == names.end() ? capitalized(provider) : QString(named->name);
}

const QStringList &keyed() {
    static const QStringList providers = {
        u"stripe"_s,   u"github"_s, u"chartmogul"_s, u"lemonsqueezy"_s, u"dodo"_s,  u"plausible"_s,
        u"trustmrr"_s, u"ahrefs"_s, u"coingecko"_s,  u"hackernews"_s,   u"reddit"_s};
    return providers;
}

bool isKeyless(const QString &provider) {
    return std::find(keylessKeys.begin(), keylessKeys.end(), provider) != keylessKeys.end();
}

} // namespace zeph::providers
