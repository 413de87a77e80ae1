// SPDX-License-Identifier: MIT
#include "LoopbackEndpoints.h"

using namespace Qt::StringLiterals;

namespace zeph {

Endpoints endpointsAt(const QString &root) {
    const auto at = [&root](const char *service) { return root + u'/' + QLatin1String(service); };
    Endpoints endpoints;
    endpoints.stripe = at("stripe");
    endpoints.exchangeRates = at("exchangerates");
    endpoints.gitHub = at("github");
    endpoints.chartMogul = at("chartmogul");
    endpoints.lemonSqueezy = at("lemonsqueezy");
    endpoints.dodo = at("dodo");
    endpoints.plausible = at("plausible");
    endpoints.trustMRR = at("trustmrr");
    endpoints.ahrefs = at("ahrefs");
    endpoints.coinGecko = at("coingecko");
    endpoints.hackerNews = at("hackernews");
    endpoints.oldReddit = at("oldreddit");
    endpoints.reddit = at("reddit");
    endpoints.productHunt = at("producthunt");
    endpoints.bluesky = at("bluesky");
    endpoints.frankfurter = at("frankfurter");
    endpoints.vercel = at("vercel");
    endpoints.netlify = at("netlify");
    endpoints.gumroad = at("gumroad");
    endpoints.polar = at("polar");
    endpoints.weather = at("weather");
    endpoints.airQuality = at("airquality");
    endpoints.zenQuotes = at("zenquotes");
    endpoints.quotable = at("quotable");
    endpoints.onThisDay = at("onthisday");
    endpoints.station = at("station");
    return endpoints;
}

} // namespace zeph
