// SPDX-License-Identifier: MIT
#include "services/accounts/Providers.h"

#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

TEST(Providers, theNamesOfTheKnownServices) {
    const std::vector<std::pair<QString, QString>> names = {
        {u"stripe"_s, u"Stripe"_s},         {u"github"_s, u"GitHub"_s},
        {u"chartmogul"_s, u"ChartMogul"_s}, {u"lemonsqueezy"_s, u"Lemon Squeezy"_s},
        {u"dodo"_s, u"Dodo Payments"_s},    {u"openai"_s, u"OpenAI"_s},
        {u"claude"_s, u"Claude"_s},         {u"plausible"_s, u"Plausible"_s},
        {u"trustmrr"_s, u"TrustMRR"_s},     {u"ahrefs"_s, u"Ahrefs"_s},
        {u"coingecko"_s, u"Crypto"_s},      {u"hackernews"_s, u"Hacker News"_s},
        {u"reddit"_s, u"Reddit"_s},         {u"producthunt"_s, u"Product Hunt"_s},
        {u"bluesky"_s, u"Bluesky"_s},       {u"currency"_s, u"Exchange rate"_s},
        {u"rss"_s, u"RSS feed"_s},
    };
    for (const auto &[provider, name] : names) {
        EXPECT_EQ(providers::defaultName(provider), name);
    }
}

TEST(Providers, anyOtherKeyIsCapitalised) {
    EXPECT_EQ(providers::defaultName(u"vercel"_s), u"Vercel"_s);
    EXPECT_EQ(providers::defaultName(u"netlify"_s), u"Netlify"_s);
    EXPECT_EQ(providers::defaultName(u"gumroad"_s), u"Gumroad"_s);
    EXPECT_EQ(providers::defaultName(u"polar"_s), u"Polar"_s);
    EXPECT_EQ(providers::defaultName(u"myOWN shop"_s), u"Myown Shop"_s);
    EXPECT_EQ(providers::defaultName(u""_s), u""_s);
}

TEST(Providers, keysAreMatchedExactly) {
    EXPECT_EQ(providers::defaultName(u"RSS"_s), u"Rss"_s);
    EXPECT_FALSE(providers::isKeyless(u"RSS"_s));
}

TEST(Providers, theElevenThatOnceTookKeysInTheirOrder) {
    EXPECT_EQ(providers::keyed(),
              QStringList({u"stripe"_s, u"github"_s, u"chartmogul"_s, u"lemonsqueezy"_s, u"dodo"_s,
                           u"plausible"_s, u"trustmrr"_s, u"ahrefs"_s, u"coingecko"_s,
                           u"hackernews"_s, u"reddit"_s}));
}

TEST(Providers, theEightThatTakeNoKey) {
    for (const auto &provider : {u"ahrefs"_s, u"coingecko"_s, u"hackernews"_s, u"reddit"_s,
                                 u"producthunt"_s, u"bluesky"_s, u"currency"_s, u"rss"_s}) {
        EXPECT_TRUE(providers::isKeyless(provider)) << provider.toStdString();
    }
    for (const auto &provider : {u"stripe"_s, u"github"_s, u"plausible"_s, u"vercel"_s, u""_s}) {
        EXPECT_FALSE(providers::isKeyless(provider)) << provider.toStdString();
    }
}

} // namespace

} // namespace zeph
