// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// The roots of all services that are asked, each without a slash at its end. The composition root
/// hands them out, so that a test points the whole program at a server of its own.
struct Endpoints {
    QString stripe = QStringLiteral("https://api.stripe.com");
    QString exchangeRates = QStringLiteral("https://open.er-api.com");
    QString gitHub = QStringLiteral("https://api.github.com");
    QString chartMogul = QStringLiteral("https://api.chartmogul.com");
    QString lemonSqueezy = QStringLiteral("https://api.lemonsqueezy.com");
    QString dodo = QStringLiteral("https://live.dodopayments.com");
    QString plausible = QStringLiteral("https://plausible.io");
    QString trustMRR = QStringLiteral("https://trustmrr.com");
    QString ahrefs = QStringLiteral("https://api.ahrefs.com");
    QString coinGecko = QStringLiteral("https://api.coingecko.com");
    QString hackerNews = QStringLiteral("https://hacker-news.firebaseio.com");
    QString oldReddit = QStringLiteral("https://old.reddit.com");
    QString reddit = QStringLiteral("https://www.reddit.com");
    QString productHunt = QStringLiteral("https://www.producthunt.com");
    QString bluesky = QStringLiteral("https://public.api.bsky.app");
    QString frankfurter = QStringLiteral("https://api.frankfurter.dev");
    QString vercel = QStringLiteral("https://api.vercel.com");
    QString netlify = QStringLiteral("https://api.netlify.com");
    QString gumroad = QStringLiteral("https://api.gumroad.com");
    QString polar = QStringLiteral("https://api.polar.sh");
    QString weather = QStringLiteral("https://api.open-meteo.com");
    QString airQuality = QStringLiteral("https://air-quality-api.open-meteo.com");
    QString zenQuotes = QStringLiteral("https://zenquotes.io");
    QString quotable = QStringLiteral("https://api.quotable.io");
    QString onThisDay = QStringLiteral("https://byabbe.se");
    QString station = QStringLiteral("https://api.wheretheiss.at");
};

} // namespace zeph
