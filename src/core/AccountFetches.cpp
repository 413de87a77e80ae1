// SPDX-License-Identifier: MIT
#include "core/AccountFetches.h"

#include "core/records/ContributionLayout.h"
#include "core/values/Blanks.h"
#include "core/values/DescribedError.h"
#include "integrations/accounts/AccountKeys.h"
#include "integrations/accounts/IntegrationsStore.h"
#include "integrations/accounts/Keychain.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qint64 defaultFeedCount = 3;

/// What the user typed beside the key: a user name, a site ...
QString valueOf(const IntegrationConnection &account) {
    return withoutOuterBlanks(account.extra.value_or(QString()));
}

/// The secret of an account that was connected; one that was not is not asked for.
std::optional<QString> secretOf(const FetchTools &tools, const IntegrationConnection &account) {
    return tools.store.hasSecret(account.id) ? tools.keychain.get(secretAccount(account.id))
                                             : std::nullopt;
}

/// The same, but absent when it is empty.
std::optional<QString> usableKey(const FetchTools &tools, const IntegrationConnection &account) {
    auto key = secretOf(tools, account);
    return key && !key->isEmpty() ? key : std::nullopt;
}

/// What `call` returns, or a record that holds the failure that it throws.
template <typename Call>
auto guarded(Call &&call) -> decltype(call()) {
    decltype(call()) failed;
    try {
        return call();
    } catch (const DescribedError &error) {
        failed.error = error.description();
    } catch (const std::exception &error) {
        failed.error = QString::fromUtf8(error.what());
    }
    return failed;
}

/// Asks for a record with `call` and names it after its account.
template <typename Call>
auto stamped(const IntegrationConnection &account, Call &&call) {
    auto record = guarded(call);
    record.id = account.id;
    record.label = account.name;
    return std::optional(std::move(record));
}

std::optional<ContributionGraph> contributions(const FetchTools &tools, const QString &username,
                                               const std::optional<QString> &token,
                                               ContributionLayout layout) {
    try {
        return tools.services.githubContributions(username, token, layout);
    } catch (const std::exception &) {
        return std::nullopt; // the numbers stand without it
    }
}

using SimpleCall = SimpleIntegrationStats (*)(const IntegrationServices &services,
                                              const IntegrationConnection &account,
                                              const QString &key, const QString &value);

struct SimpleService {
    QLatin1StringView provider;
    bool needsKey;
    bool needsValue;
    SimpleCall call;
};

/// A call that takes the value alone, or the key alone.
template <auto service>
SimpleIntegrationStats withValue(const IntegrationServices &services,
                                 const IntegrationConnection & /*account*/, const QString & /*key*/,
                                 const QString &value) {
    return (services.*service)(value);
}

template <auto service>
SimpleIntegrationStats withKey(const IntegrationServices &services,
                               const IntegrationConnection & /*account*/, const QString &key,
                               const QString & /*value*/) {
    return (services.*service)(key);
}

SimpleIntegrationStats trustMRR(const IntegrationServices &services,
                                const IntegrationConnection & /*account*/, const QString &key,
                                const QString &value) {
    return services.trustMRR(key, value);
}

SimpleIntegrationStats rss(const IntegrationServices &services,
                           const IntegrationConnection &account, const QString & /*key*/,
                           const QString &value) {
    return services.rss(value, account.feedCount.value_or(defaultFeedCount));
}

using Services = IntegrationServices;

constexpr std::array simpleServices = {
    SimpleService{"trustmrr"_L1, true, true, trustMRR},
    SimpleService{"ahrefs"_L1, false, true, withValue<&Services::ahrefs>},
    SimpleService{"coingecko"_L1, false, true, withValue<&Services::coinGecko>},
    SimpleService{"hackernews"_L1, false, true, withValue<&Services::hackerNews>},
    SimpleService{"reddit"_L1, false, true, withValue<&Services::reddit>},
    SimpleService{"producthunt"_L1, false, true, withValue<&Services::productHunt>},
    SimpleService{"bluesky"_L1, false, true, withValue<&Services::bluesky>},
    SimpleService{"currency"_L1, false, true, withValue<&Services::currency>},
    SimpleService{"rss"_L1, false, true, rss},
    SimpleService{"vercel"_L1, true, false, withKey<&Services::vercel>},
    SimpleService{"netlify"_L1, true, false, withKey<&Services::netlify>},
    SimpleService{"gumroad"_L1, true, false, withKey<&Services::gumroad>},
    SimpleService{"polar"_L1, true, false, withKey<&Services::polar>},
};

const SimpleService *simpleService(const QString &provider) {
    const auto *const service =
        std::find_if(simpleServices.begin(), simpleServices.end(),
                     [&](const SimpleService &entry) { return entry.provider == provider; });
    return service == simpleServices.end() ? nullptr : service;
}

bool isOf(AccountFamily family, const IntegrationConnection &account) {
    return familyOf(account) == family;
}

} // namespace

std::optional<AccountFamily> familyOf(const IntegrationConnection &account) {
    const QString &provider = account.provider;
    if (provider == "stripe"_L1) {
        return AccountFamily::stripe;
    }
    if (provider == "github"_L1) {
        return AccountFamily::github;
    }
    if (provider == "chartmogul"_L1 || provider == "lemonsqueezy"_L1 || provider == "dodo"_L1) {
        return AccountFamily::revenue;
    }
    if (provider == "plausible"_L1) {
        return AccountFamily::analytics;
    }
    return simpleService(provider) ? std::optional(AccountFamily::simple) : std::nullopt;
}

std::optional<StripeStats> fetchStripe(const FetchTools &tools,
                                       const IntegrationConnection &account) {
    const auto key =
        isOf(AccountFamily::stripe, account) ? usableKey(tools, account) : std::nullopt;
    if (!key) {
        return std::nullopt;
    }
    auto record = guarded([&] { return tools.services.stripe(*key); });
    record.connectionId = account.id;
    record.label = account.name;
    return record;
}

std::optional<GitHubStats> fetchGitHub(const FetchTools &tools,
                                       const IntegrationConnection &account) {
    const QString username = isOf(AccountFamily::github, account) ? valueOf(account) : QString();
    if (username.isEmpty()) {
        return std::nullopt;
    }
    const auto token = secretOf(tools, account);
    auto record = guarded([&] { return tools.services.github(username, token); });
    record.connectionId = account.id;
    record.label = account.name;
    record.showStats = account.showStats;
    if (account.showContributionGraph) {
        record.contributionLayout =
            contributionLayoutFromRaw(account.contributionLayout).value_or(ContributionLayout::y1);
        record.contributions = contributions(tools, username, token, record.contributionLayout);
    }
    return record;
}

std::optional<RevenueStats> fetchRevenue(const FetchTools &tools,
                                         const IntegrationConnection &account) {
    const bool isChartMogul = account.provider == "chartmogul"_L1;
    const bool isLemonSqueezy = account.provider == "lemonsqueezy"_L1;
    const auto key =
        isOf(AccountFamily::revenue, account) ? usableKey(tools, account) : std::nullopt;
    if (!key) {
        return std::nullopt;
    }
    return stamped(account, [&] {
        return isChartMogul     ? tools.services.chartMogul(*key)
               : isLemonSqueezy ? tools.services.lemonSqueezy(*key)
                                : tools.services.dodo(*key, valueOf(account));
    });
}

std::optional<AnalyticsStats> fetchAnalytics(const FetchTools &tools,
                                             const IntegrationConnection &account) {
    const QString site = isOf(AccountFamily::analytics, account) ? valueOf(account) : QString();
    const auto key = site.isEmpty() ? std::nullopt : usableKey(tools, account);
    if (!key) {
        return std::nullopt;
    }
    return stamped(account, [&] { return tools.services.plausible(*key, site); });
}

std::optional<SimpleIntegrationStats> fetchSimple(const FetchTools &tools,
                                                  const IntegrationConnection &account) {
    const SimpleService *const service = simpleService(account.provider);
    if (service == nullptr) {
        return std::nullopt;
    }
    const QString value = valueOf(account);
    if (service->needsValue && value.isEmpty()) {
        return std::nullopt;
    }
    const auto key = service->needsKey ? usableKey(tools, account) : std::optional(QString());
    if (!key) {
        return std::nullopt;
    }
    return stamped(account, [&] { return service->call(tools.services, account, *key, value); });
}

std::optional<CustomAPIResult> fetchCustomAPI(const FetchTools &tools,
                                              const CustomAPIConfig &config) {
    auto result = guarded([&] { return tools.services.customAPI(config); });
    result.id = config.id;
    result.name = config.name;
    return result;
}

std::optional<QuoteInfo> fetchQuote(const IntegrationServices &services) {
    try {
        return services.quote();
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

} // namespace zeph
