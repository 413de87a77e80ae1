// SPDX-License-Identifier: MIT
#include "services/forms/AccountWords.h"

#include "model/AppState.h"
#include "services/forms/AccountForm.h"
#include "support/QtPrinters.h"

#include <QUrlQuery>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// "label of the key | label of the value / sample of it"
QString inputs(const QString &provider) {
    const AccountWords words = accountWords(provider);
    return words.keyLabel + u" | "_s + words.valueLabel + u" / "_s + words.valuePlaceholder;
}

TEST(AccountWords, helpWithEveryService) {
    const std::map<QString, QString> helps = {
        {u"stripe"_s, u"Revenue on your wallpaper. Use a restricted, read-only key."_s},
        {u"github"_s,
         u"Stars, followers and open PRs. A token is optional; it raises rate limits."_s},
        {u"chartmogul"_s,
         u"Subscription analytics on your wallpaper. Use a read-only API key (ChartMogul → Profile → API keys)."_s},
        {u"lemonsqueezy"_s,
         u"Store revenue and subscriptions. Create an API key in Settings → API."_s},
        {u"dodo"_s,
         u"Subscriptions and payments. Use a read-only key (Dashboard → Developer → API Keys). Leave Brand empty to combine all brands."_s},
        {u"ahrefs"_s,
         u"Free Domain Rating lookup — no API key. Calls Ahrefs directly from your computer."_s},
        {u"coingecko"_s, u"Track any coin from CoinGecko (e.g. bitcoin, solana). No key needed."_s},
        {u"hackernews"_s, u"Karma for any Hacker News username. No key needed."_s},
        {u"reddit"_s, u"Karma and followers for any Reddit username. No key needed."_s},
        {u"producthunt"_s,
         u"Follower count for any Product Hunt username, read from your public profile. No key needed."_s},
        {u"bluesky"_s, u"Public Bluesky profile stats for any handle. No key needed."_s},
        {u"currency"_s,
         u"Live exchange rate from the European Central Bank (Frankfurter). No key needed."_s},
        {u"rss"_s,
         u"Show the latest items from any RSS or Atom feed — a blog, changelog, or news. No key needed."_s},
        {u"gumroad"_s,
         u"Sales and revenue today from Gumroad. Create an access token in Settings → Advanced → Applications."_s},
        {u"polar"_s,
         u"Month-to-date metrics from Polar. Create an Organization Access Token (polar_oat_…) in your Polar dashboard."_s},
    };
    for (const auto &[provider, help] : helps) {
        EXPECT_EQ(accountWords(provider).help, help);
    }
    EXPECT_TRUE(accountWords(u"trustmrr"_s)
                    .help.contains(u"verified startup revenue"_s, Qt::CaseInsensitive));
}

TEST(AccountWords, labelWhatEveryServiceAsksFor) {
    EXPECT_EQ(inputs(u"stripe"_s), u"Read-only key (rk_live_… or sk_…) |  / "_s);
    EXPECT_EQ(inputs(u"github"_s), u"Personal access token (optional) | Username (required) / "_s);
    EXPECT_EQ(inputs(u"chartmogul"_s), u"ChartMogul API key |  / "_s);
    EXPECT_EQ(inputs(u"lemonsqueezy"_s), u"Lemon Squeezy API key |  / "_s);
    EXPECT_EQ(inputs(u"dodo"_s),
              u"Dodo Payments API key | Brand ID (optional) / brand_… (Dashboard → Brands)"_s);
    EXPECT_EQ(inputs(u"trustmrr"_s), u"TrustMRR API key (tmrr_…) | Startup slug / my-startup"_s);
    EXPECT_EQ(inputs(u"ahrefs"_s), u" | Domain / example.com"_s);
    EXPECT_EQ(inputs(u"coingecko"_s), u" | Coin id / bitcoin"_s);
    EXPECT_EQ(inputs(u"hackernews"_s), u" | Username / quayside"_s);
    EXPECT_EQ(inputs(u"reddit"_s), u" | Username / brindle"_s);
    EXPECT_EQ(inputs(u"producthunt"_s), u" | Username / harlowe"_s);
    EXPECT_EQ(inputs(u"bluesky"_s), u" | Handle / quayside.bsky.social"_s);
    EXPECT_EQ(inputs(u"currency"_s), u" | Pair / USD/INR"_s);
    EXPECT_EQ(inputs(u"rss"_s), u" | Feed URL / https://example.com/feed.xml"_s);
    EXPECT_EQ(inputs(u"gumroad"_s), u"Gumroad access token |  / "_s);
    EXPECT_EQ(inputs(u"polar"_s), u"Polar access token |  / "_s);
}

TEST(AccountWords, linkToTheKeysByTheWordThatTheServiceHasForThem) {
    const auto github = accountWords(u"github"_s).keyLink;
    ASSERT_TRUE(github);
    EXPECT_EQ(github->text, u"Where to find your token"_s);
    EXPECT_EQ(github->address.scheme(), u"https"_s);
    for (const auto &provider : {u"stripe"_s, u"chartmogul"_s, u"lemonsqueezy"_s, u"dodo"_s,
                                 u"trustmrr"_s, u"gumroad"_s, u"polar"_s}) {
        const auto link = accountWords(provider).keyLink;
        ASSERT_TRUE(link) << provider.toStdString();
        EXPECT_EQ(link->text, u"Where to find your key"_s);
        EXPECT_TRUE(link->address.isValid() && link->address.scheme() == u"https"_s);
    }
    EXPECT_EQ(accountWords(u"reddit"_s).keyLink, std::nullopt);
}

TEST(AccountWords, linkToTheValuesOfTwoServices) {
    const auto coin = accountWords(u"coingecko"_s).valueLink;
    const auto pair = accountWords(u"currency"_s).valueLink;
    ASSERT_TRUE(coin && pair);
    EXPECT_EQ(coin->text, u"Find your coin id"_s);
    EXPECT_EQ(pair->text, u"Supported currency codes"_s);
    EXPECT_TRUE(coin->address.isValid() && pair->address.isValid());
    EXPECT_EQ(accountWords(u"rss"_s).valueLink, std::nullopt);
}

TEST(AccountWords, ofAServiceThatIsNotOfferedAreItsNameAndSymbol) {
    const AccountWords words = accountWords(u"vercel"_s);
    EXPECT_EQ(words.title, u"Vercel"_s);
    EXPECT_EQ(words.icon, u"triangle"_s);
    EXPECT_EQ(words.help + words.keyLabel, u""_s);
    EXPECT_EQ(accountWords(u"my shop"_s).title, u"My Shop"_s);
}

TEST(AccountWords, theTokenOfAGraphIsMadeWithAllItNeedsPreset) {
    const FormLink link = gitHubTokenLink();
    EXPECT_EQ(link.text, u"Create a token (preset, no expiry) →"_s);
    EXPECT_EQ(link.address.host(), u"github.com"_s);
    EXPECT_EQ(link.address.path(), u"/settings/tokens/new"_s);
    const QUrlQuery query(link.address);
    EXPECT_EQ(query.queryItems().size(), 3);
    EXPECT_EQ(query.queryItemValue(u"description"_s), u"Tavi"_s);
    EXPECT_EQ(query.queryItemValue(u"scopes"_s), u"read:user,repo"_s);
    EXPECT_EQ(query.queryItemValue(u"default_expires_at"_s), u"none"_s);
}

TEST(AccountWords, theNoteOfTheTokenStandsWhileAGraphIsWantedWithoutAToken) {
    const AppState state{Date{1'700'000'000}};
    AccountForm form;
    form.account.id = QUuid::createUuid();
    EXPECT_FALSE(needsTokenNote(form, state, false)) << "no graph is wanted";
    form.account.showContributionGraph = true;
    EXPECT_TRUE(needsTokenNote(form, state, false));
    form.secret = u" "_s;
    EXPECT_TRUE(needsTokenNote(form, state, false));
    form.secret = u"ghp_1"_s;
    EXPECT_FALSE(needsTokenNote(form, state, false));
}

TEST(AccountWords, theNoteOfTheTokenStandsForNoTokenThatIsKept) {
    AppState state{Date{1'700'000'000}};
    AccountForm form;
    form.account.id = QUuid::createUuid();
    form.account.showContributionGraph = true;
    EXPECT_TRUE(needsTokenNote(form, state, false)) << "no fetch has told yet";
    EXPECT_FALSE(needsTokenNote(form, state, true));
    GitHubStats stats;
    stats.hasToken = false;
    state.githubStats = std::vector{stats};
    EXPECT_FALSE(needsTokenNote(form, state, true)) << "that is another account";
    stats.connectionId = form.account.id;
    state.githubStats = std::vector{stats};
    EXPECT_TRUE(needsTokenNote(form, state, true));
    stats.hasToken = true;
    state.githubStats = std::vector{stats};
    EXPECT_FALSE(needsTokenNote(form, state, true)) << "though it reads no graph";
    stats.hasToken.reset();
    state.githubStats = std::vector{stats};
    EXPECT_FALSE(needsTokenNote(form, state, true)) << "the keyring was locked";
    EXPECT_TRUE(needsTokenNote(form, state, false));
}

TEST(AccountWords, tellAnAccountsStateAndName) {
    IntegrationConnection account{QUuid::createUuid(), u"coingecko"_s, u" Savings "_s};
    EXPECT_EQ(activityText(account), u"Active"_s);
    EXPECT_EQ(accountTitle(account), u"Savings"_s);
    account.enabled = false;
    account.name = u" "_s;
    EXPECT_EQ(activityText(account), u"Paused"_s);
    EXPECT_EQ(accountTitle(account), u"Crypto"_s);
    EXPECT_EQ(noAccountsText(u"coingecko"_s), u"No accounts yet. Add one to connect Crypto."_s);
}

TEST(AccountWords, countTheItemsOfAFeedWithinItsBounds) {
    IntegrationConnection feed{QUuid::createUuid(), u"rss"_s, u"News"_s};
    EXPECT_EQ(feedItems(feed), 3);
    for (const auto &[stored, shown] :
         std::vector<std::pair<qint64, qint64>>{{-1, 1}, {0, 1}, {1, 1}, {5, 5}, {6, 5}}) {
        feed.feedCount = stored;
        EXPECT_EQ(feedItems(feed), shown);
    }
    EXPECT_EQ(feedItemsTitle(1), u"Show latest 1 item"_s);
    EXPECT_EQ(feedItemsTitle(2), u"Show latest 2 items"_s);
}

TEST(AccountWords, tellWhatSavingDidAndWillDo) {
    EXPECT_EQ(saveTitle(false), u"Save & connect"_s);
    EXPECT_EQ(saveTitle(true), u"Save changes"_s);
    EXPECT_EQ(formState(false, false),
              (FormState{{}, u"Connect this account to your wallpaper."_s}));
    EXPECT_EQ(formState(true, false),
              (FormState{u"checkmark.circle.fill"_s, u"Connected — showing on your wallpaper"_s}));
    for (const bool isReady : {false, true}) {
        EXPECT_EQ(formState(isReady, true),
                  (FormState{u"checkmark.circle.fill"_s, u"Saved — now on your wallpaper"_s}));
    }
}

TEST(AccountWords, tellWhatAKeyringThatDoesNotOpenMeans) {
    EXPECT_EQ(keepingFailure(SecretOutcome::done), std::nullopt);
    EXPECT_EQ(endpointFailure(SecretOutcome::done, true), std::nullopt);
    EXPECT_EQ(removalFailure(SecretOutcome::done), std::nullopt);
    for (const auto outcome : {SecretOutcome::refused, SecretOutcome::unavailable}) {
        const auto kept = keepingFailure(outcome).value_or(QString());
        EXPECT_TRUE(kept.contains(u"only until Tavi ends"_s)) << kept.toStdString();
        EXPECT_EQ(endpointFailure(outcome, true), kept);
        const auto left = endpointFailure(outcome, false).value_or(QString());
        EXPECT_TRUE(left.contains(u"Nothing was saved"_s)) << left.toStdString();
        EXPECT_TRUE(removalFailure(outcome).value_or(QString()).contains(u"starts again"_s));
    }
}

} // namespace

} // namespace zeph
