// SPDX-License-Identifier: MIT
#pragma once

#include "core/records/AnalyticsStats.h"
#include "core/records/ContributionGraph.h"
#include "core/records/CustomAPIResult.h"
#include "core/records/GitHubStats.h"
#include "core/records/QuoteInfo.h"
#include "core/records/RevenueStats.h"
#include "core/records/SimpleIntegrationStats.h"
#include "core/records/StripeStats.h"

#include <QString>

#include <functional>
#include <optional>

namespace zeph {

struct CustomAPIConfig;

/// One call for each web service. They are made on pool threads, block until the service has
/// answered and tell a failure within their record. All of them are set.
struct IntegrationServices {
    template <typename... Arguments>
    using SimpleFetch = std::function<SimpleIntegrationStats(Arguments...)>;
    template <typename... Arguments>
    using RevenueFetch = std::function<RevenueStats(Arguments...)>;
    using Token = std::optional<QString>;

    std::function<StripeStats(const QString &key)> stripe;
    std::function<GitHubStats(const QString &username, const Token &token)> github;
    std::function<std::optional<ContributionGraph>(const QString &username, const Token &token,
                                                   ContributionLayout layout)>
        githubContributions;
    RevenueFetch<const QString & /*key*/> chartMogul;
    RevenueFetch<const QString & /*key*/> lemonSqueezy;
    RevenueFetch<const QString & /*key*/, const QString & /*brandID*/> dodo;
    std::function<AnalyticsStats(const QString &key, const QString &site)> plausible;
    SimpleFetch<const QString & /*key*/, const QString & /*slug*/> trustMRR;
    SimpleFetch<const QString & /*domain*/> ahrefs;
    SimpleFetch<const QString & /*coinId*/> coinGecko;
    SimpleFetch<const QString & /*username*/> hackerNews;
    SimpleFetch<const QString & /*username*/> reddit;
    SimpleFetch<const QString & /*username*/> productHunt;
    SimpleFetch<const QString & /*handle*/> bluesky;
    SimpleFetch<const QString & /*pair*/> currency;
    SimpleFetch<const QString & /*url*/, qint64 /*count*/> rss;
    SimpleFetch<const QString & /*token*/> vercel;
    SimpleFetch<const QString & /*token*/> netlify;
    SimpleFetch<const QString & /*token*/> gumroad;
    SimpleFetch<const QString & /*token*/> polar;
    std::function<CustomAPIResult(const CustomAPIConfig &config)> customAPI;
    std::function<std::optional<QuoteInfo>()> quote;
};

} // namespace zeph
