// SPDX-License-Identifier: MIT
#include "core/WebServices.h"

#include "ambient/QuoteService.h"
#include "integrations/analytics/PlausibleService.h"
#include "integrations/custom/CustomAPIService.h"
#include "integrations/github/GitHubService.h"
#include "integrations/revenue/ChartMogulService.h"
#include "integrations/revenue/DodoService.h"
#include "integrations/revenue/LemonSqueezyService.h"
#include "integrations/revenue/StripeService.h"
#include "integrations/simple/AhrefsService.h"
#include "integrations/simple/BlueskyService.h"
#include "integrations/simple/CoinGeckoService.h"
#include "integrations/simple/CurrencyService.h"
#include "integrations/simple/GumroadService.h"
#include "integrations/simple/HackerNewsService.h"
#include "integrations/simple/NetlifyService.h"
#include "integrations/simple/PolarService.h"
#include "integrations/simple/ProductHuntService.h"
#include "integrations/simple/RedditService.h"
#include "integrations/simple/TrustMRRService.h"
#include "integrations/simple/VercelService.h"
#include "integrations/simple/rss/RSSService.h"
#include "platform/Platform.h"

#include <memory>
#include <utility>

namespace zeph {

namespace {

/// A call of `fetch` on a service that lives as long as the call can be made.
template <typename Service, typename... Arguments>
auto calling(Arguments &&...arguments) {
    return [service = std::make_shared<Service>(std::forward<Arguments>(arguments)...)](
               const auto &...values) { return service->fetch(values...); };
}

void addRevenue(const Platform &platform, const Endpoints &endpoints,
                IntegrationServices &services) {
    HttpClient &http = platform.httpClient;
    const Clock &clock = platform.clock;
    services.stripe = calling<StripeService>(http, endpoints, clock, platform.calendar);
    services.chartMogul = calling<ChartMogulService>(http, endpoints, clock, platform.calendar);
    services.lemonSqueezy = calling<LemonSqueezyService>(http, endpoints, clock);
    services.dodo = calling<DodoService>(http, endpoints, clock);
    services.plausible = calling<PlausibleService>(http, endpoints, clock);
}

void addGitHub(const Platform &platform, const Endpoints &endpoints, const Calendar &gregorian,
               IntegrationServices &services) {
    const auto gitHub =
        std::make_shared<GitHubService>(platform.httpClient, endpoints, platform.clock, gregorian);
    services.github = [gitHub](const QString &username, const IntegrationServices::Token &token) {
        return gitHub->fetch(username, token);
    };
    services.githubContributions = [gitHub](const QString &username,
                                            const IntegrationServices::Token &token,
                                            ContributionLayout layout) {
        return gitHub->fetchContributions(username, token, layout);
    };
}

void addSimple(const Platform &platform, const Endpoints &endpoints, const FramingContext &framing,
               IntegrationServices &services) {
    HttpClient &http = platform.httpClient;
    const Clock &clock = platform.clock;
    services.trustMRR = calling<TrustMRRService>(http, endpoints, clock, framing);
    services.ahrefs = calling<AhrefsService>(http, endpoints, clock);
    services.coinGecko = calling<CoinGeckoService>(http, endpoints, clock);
    services.hackerNews = calling<HackerNewsService>(http, endpoints, clock, framing);
    services.reddit = calling<RedditService>(http, endpoints, clock, framing);
    services.productHunt = calling<ProductHuntService>(http, endpoints, clock, framing);
    services.bluesky = calling<BlueskyService>(http, endpoints, clock, framing);
    services.currency = calling<CurrencyService>(http, endpoints, clock);
    services.rss = calling<RSSService>(http, clock);
    services.vercel = calling<VercelService>(http, endpoints, clock);
    services.netlify = calling<NetlifyService>(http, endpoints, clock);
    services.gumroad = calling<GumroadService>(http, endpoints, clock, framing);
    services.polar = calling<PolarService>(http, endpoints, clock, framing);
}

} // namespace

IntegrationServices makeWebServices(const Platform &platform, const Endpoints &endpoints,
                                    const FramingContext &framing, const Calendar &gregorian) {
    IntegrationServices services;
    addRevenue(platform, endpoints, services);
    addGitHub(platform, endpoints, gregorian, services);
    addSimple(platform, endpoints, framing, services);
    services.customAPI = calling<CustomAPIService>(platform.httpClient);
    services.quote =
        calling<QuoteService>(platform.httpClient, endpoints, platform.clock, platform.calendar,
                              platform.userDefaults, platform.runLoop);
    return services;
}

} // namespace zeph
