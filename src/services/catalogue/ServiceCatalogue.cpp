// SPDX-License-Identifier: MIT
#include "services/catalogue/ServiceCatalogue.h"

#include "services/analytics/PlausibleService.h"
#include "services/catalogue/ServiceCalls.h"
#include "services/github/GitHubService.h"
#include "services/revenue/ChartMogulService.h"
#include "services/revenue/DodoService.h"
#include "services/revenue/LemonSqueezyService.h"
#include "services/revenue/StripeService.h"
#include "services/simple/AhrefsService.h"
#include "services/simple/BlueskyService.h"
#include "services/simple/CoinGeckoService.h"
#include "services/simple/CurrencyService.h"
#include "services/simple/GumroadService.h"
#include "services/simple/HackerNewsService.h"
#include "services/simple/NetlifyService.h"
#include "services/simple/PolarService.h"
#include "services/simple/ProductHuntService.h"
#include "services/simple/RedditService.h"
#include "services/simple/TrustMRRService.h"
#include "services/simple/VercelService.h"
#include "services/simple/rss/RSSService.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

AccountFetch gitHub(const ServiceTools &tools) {
    const auto service =
        std::make_shared<GitHubService>(tools.http, tools.endpoints, tools.clock, tools.gregorian);
    return [service](const AccountQuestion &question) -> AccountRecord {
        GitHubStats stats = service->fetch(question.value, question.key);
        if (question.graph) {
            stats.contributions =
                service->fetchContributions(question.value, question.key, *question.graph);
        }
        return stats;
    };
}

AccountFetch rss(const ServiceTools &tools) {
    const auto service = std::make_shared<RSSService>(tools.http, tools.clock);
    return [service](const AccountQuestion &question) -> AccountRecord {
        return service->fetch(question.value, question.itemCount);
    };
}

constexpr auto rows = std::to_array<ServiceRow>({
    {.key = "stripe"_L1,
     .defaultName = "Stripe"_L1,
     .secret = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::stripe,
     .widget = WidgetKind::revenue,
     .root = &Endpoints::stripe,
     .fetch = calls::withKey<StripeService>,
     .words = ServiceWords{.blurb = u"Revenue, MRR, customers",
                           .help = u"Revenue on your wallpaper. Use a restricted, read-only key.",
                           .keyPlaceholder = u"Read-only key (rk_live_… or sk_…)",
                           .keyPage = "https://dashboard.stripe.com/apikeys"_L1}},
    {.key = "github"_L1,
     .defaultName = "GitHub"_L1,
     .secret = Need::optional,
     .value = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::github,
     .widget = WidgetKind::github,
     .root = &Endpoints::gitHub,
     .fetch = gitHub,
     .words = ServiceWords{.blurb = u"Stars, followers, open PRs",
                           .help = u"Stars, followers and open PRs. A token is optional; it raises "
                                   u"rate limits.",
                           .keyPlaceholder = u"Personal access token (optional)",
                           .valueLabel = u"Username (required)",
                           .keyPage = "https://github.com/settings/tokens"_L1,
                           .keyWord = u"token"}},
    {.key = "chartmogul"_L1,
     .defaultName = "ChartMogul"_L1,
     .secret = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::revenue,
     .widget = WidgetKind::chartmogul,
     .root = &Endpoints::chartMogul,
     .fetch = calls::withKey<ChartMogulService>,
     .words = ServiceWords{.blurb = u"MRR, ARR, customers",
                           .help = u"Subscription analytics on your wallpaper. Use a read-only API "
                                   u"key (ChartMogul → Profile → API keys).",
                           .keyPlaceholder = u"ChartMogul API key",
                           .keyPage = "https://app.chartmogul.com"_L1}},
    {.key = "lemonsqueezy"_L1,
     .defaultName = "Lemon Squeezy"_L1,
     .secret = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::revenue,
     .widget = WidgetKind::lemonsqueezy,
     .root = &Endpoints::lemonSqueezy,
     .fetch = calls::withKey<LemonSqueezyService>,
     .words =
         ServiceWords{.blurb = u"MRR, revenue, trials",
                      .help = u"Store revenue and subscriptions. Create an API key in Settings "
                              u"→ API.",
                      .keyPlaceholder = u"Lemon Squeezy API key",
                      .keyPage = "https://app.lemonsqueezy.com/settings/api"_L1}},
    {.key = "dodo"_L1,
     .defaultName = "Dodo Payments"_L1,
     .secret = Need::required,
     .value = Need::optional,
     .hadSingleAccount = true,
     .family = AccountFamily::revenue,
     .widget = WidgetKind::dodo,
     .root = &Endpoints::dodo,
     .fetch = calls::withKeyAndValue<DodoService>,
     .words = ServiceWords{.blurb = u"MRR, revenue, customers",
                           .help = u"Subscriptions and payments. Use a read-only key (Dashboard → "
                                   u"Developer → API Keys). Leave Brand empty to combine all "
                                   u"brands.",
                           .keyPlaceholder = u"Dodo Payments API key",
                           .valueLabel = u"Brand ID (optional)",
                           .valuePlaceholder = u"brand_… (Dashboard → Brands)",
                           .keyPage = "https://app.dodopayments.com"_L1}},
    // An account at one of the next two can be kept, and has no figures.
    {.key = "openai"_L1,
     .defaultName = "OpenAI"_L1,
     .secret = Need::required,
     .widget = WidgetKind::openai},
    {.key = "claude"_L1,
     .defaultName = "Claude"_L1,
     .secret = Need::required,
     .widget = WidgetKind::claude},
    {.key = "plausible"_L1,
     .defaultName = "Plausible"_L1,
     .secret = Need::required,
     .value = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::analytics,
     .widget = WidgetKind::analytics,
     .root = &Endpoints::plausible,
     .fetch = calls::withKeyAndValue<PlausibleService>},
    {.key = "trustmrr"_L1,
     .defaultName = "TrustMRR"_L1,
     .secret = Need::required,
     .value = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::simple,
     .widget = WidgetKind::trustmrr,
     .root = &Endpoints::trustMRR,
     .fetch = calls::withKeyAndValue<TrustMRRService>,
     .words = ServiceWords{.blurb = u"Verified startup MRR & revenue",
                           .help = u"Verified startup revenue from TrustMRR. Create an API key in "
                                   u"its developer dashboard.",
                           .keyPlaceholder = u"TrustMRR API key (tmrr_…)",
                           .valueLabel = u"Startup slug",
                           .valuePlaceholder = u"my-startup",
                           .keyPage = "https://trustmrr.com"_L1}},
    {.key = "ahrefs"_L1,
     .defaultName = "Ahrefs"_L1,
     .value = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::simple,
     .widget = WidgetKind::ahrefs,
     .root = &Endpoints::ahrefs,
     .fetch = calls::withValue<AhrefsService>,
     .words = ServiceWords{.blurb = u"Domain Rating at a glance",
                           .help = u"Free Domain Rating lookup — no API key. Calls Ahrefs directly "
                                   u"from your computer.",
                           .valueLabel = u"Domain",
                           .valuePlaceholder = u"example.com"}},
    {.key = "coingecko"_L1,
     .defaultName = "Crypto"_L1,
     .value = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::simple,
     .widget = WidgetKind::coingecko,
     .root = &Endpoints::coinGecko,
     .fetch = calls::withValue<CoinGeckoService>,
     .words = ServiceWords{.blurb = u"Coin price & 24h change",
                           .help = u"Track any coin from CoinGecko (e.g. bitcoin, solana). No key "
                                   u"needed.",
                           .valueLabel = u"Coin id",
                           .valuePlaceholder = u"bitcoin",
                           .valueLink = u"Find your coin id",
                           .valuePage = "https://www.coingecko.com/en/all-cryptocurrencies"_L1}},
    {.key = "hackernews"_L1,
     .defaultName = "Hacker News"_L1,
     .value = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::simple,
     .widget = WidgetKind::hackernews,
     .root = &Endpoints::hackerNews,
     .fetch = calls::withValue<HackerNewsService>,
     .words = ServiceWords{.blurb = u"Your HN karma",
                           .help = u"Karma for any Hacker News username. No key needed.",
                           .valueLabel = u"Username",
                           .valuePlaceholder = u"quayside"}},
    {.key = "reddit"_L1,
     .defaultName = "Reddit"_L1,
     .value = Need::required,
     .hadSingleAccount = true,
     .family = AccountFamily::simple,
     .widget = WidgetKind::reddit,
     .root = &Endpoints::oldReddit,
     .fetch = calls::withValue<RedditService>,
     .words = ServiceWords{.blurb = u"Your karma & followers",
                           .help = u"Karma and followers for any Reddit username. No key needed.",
                           .valueLabel = u"Username",
                           .valuePlaceholder = u"brindle"}},
    {.key = "producthunt"_L1,
     .defaultName = "Product Hunt"_L1,
     .value = Need::required,
     .family = AccountFamily::simple,
     .widget = WidgetKind::producthunt,
     .root = &Endpoints::productHunt,
     .fetch = calls::withValue<ProductHuntService>,
     .words = ServiceWords{.blurb = u"Your follower count",
                           .help = u"Follower count for any Product Hunt username, read from your "
                                   u"public profile. No key needed.",
                           .valueLabel = u"Username",
                           .valuePlaceholder = u"harlowe"}},
    {.key = "bluesky"_L1,
     .defaultName = "Bluesky"_L1,
     .value = Need::required,
     .family = AccountFamily::simple,
     .widget = WidgetKind::bluesky,
     .root = &Endpoints::bluesky,
     .fetch = calls::withValue<BlueskyService>,
     .words = ServiceWords{.blurb = u"Followers, following & posts",
                           .help = u"Public Bluesky profile stats for any handle. No key needed.",
                           .valueLabel = u"Handle",
                           .valuePlaceholder = u"quayside.bsky.social"}},
    {.key = "currency"_L1,
     .defaultName = "Exchange rate"_L1,
     .value = Need::required,
     .family = AccountFamily::simple,
     .widget = WidgetKind::currency,
     .root = &Endpoints::frankfurter,
     .fetch = calls::withValue<CurrencyService>,
     .words = ServiceWords{.blurb = u"Live FX between two currencies",
                           .help = u"Live exchange rate from the European Central Bank "
                                   u"(Frankfurter). No key needed.",
                           .valueLabel = u"Pair",
                           .valuePlaceholder = u"USD/INR",
                           .valueLink = u"Supported currency codes",
                           .valuePage = "https://www.ecb.europa.eu/stats/policy_and_exchange_rates/"
                                        "euro_reference_exchange_rates/html/index.en.html"_L1}},
    {.key = "rss"_L1,
     .defaultName = "RSS feed"_L1,
     .value = Need::required,
     .family = AccountFamily::simple,
     .widget = WidgetKind::rss,
     .fetch = rss,
     .words = ServiceWords{.blurb = u"Latest headlines from any feed",
                           .help = u"Show the latest items from any RSS or Atom feed — a blog, "
                                   u"changelog, or news. No key needed.",
                           .valueLabel = u"Feed URL",
                           .valuePlaceholder = u"https://example.com/feed.xml"}},
    {.key = "vercel"_L1,
     .defaultName = "Vercel"_L1,
     .secret = Need::required,
     .family = AccountFamily::simple,
     .widget = WidgetKind::vercel,
     .root = &Endpoints::vercel,
     .fetch = calls::withKey<VercelService>},
    {.key = "netlify"_L1,
     .defaultName = "Netlify"_L1,
     .secret = Need::required,
     .family = AccountFamily::simple,
     .widget = WidgetKind::netlify,
     .root = &Endpoints::netlify,
     .fetch = calls::withKey<NetlifyService>},
    {.key = "gumroad"_L1,
     .defaultName = "Gumroad"_L1,
     .secret = Need::required,
     .family = AccountFamily::simple,
     .widget = WidgetKind::gumroad,
     .root = &Endpoints::gumroad,
     .fetch = calls::withKey<GumroadService>,
     .words = ServiceWords{.blurb = u"Today's sales & revenue",
                           .help = u"Sales and revenue today from Gumroad. Create an access token "
                                   u"in Settings → Advanced → Applications.",
                           .keyPlaceholder = u"Gumroad access token",
                           .keyPage = "https://app.gumroad.com/settings/advanced"_L1}},
    {.key = "polar"_L1,
     .defaultName = "Polar"_L1,
     .secret = Need::required,
     .family = AccountFamily::simple,
     .widget = WidgetKind::polar,
     .root = &Endpoints::polar,
     .fetch = calls::withKey<PolarService>,
     .words = ServiceWords{.blurb = u"MRR, revenue & subscriptions",
                           .help = u"Month-to-date metrics from Polar. Create an Organization "
                                   u"Access Token (polar_oat_…) in your Polar dashboard.",
                           .keyPlaceholder = u"Polar access token",
                           .keyPage = "https://polar.sh/dashboard"_L1}},
});

} // namespace

std::span<const ServiceRow> serviceCatalogue() {
    return rows;
}

const ServiceRow *serviceRow(const QString &key) {
    const auto *const found = std::find_if(
        rows.begin(), rows.end(), [&key](const ServiceRow &row) { return row.key == key; });
    return found == rows.end() ? nullptr : found;
}

} // namespace zeph
