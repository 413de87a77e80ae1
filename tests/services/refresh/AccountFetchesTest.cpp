// SPDX-License-Identifier: MIT
#include "services/refresh/RefreshFixture.h"

#include "base/DescribedError.h"

#include <stdexcept>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

/// What one account of a service leads to: the calls, without the quote that belongs to every run.
class AccountFetchesTest : public RefreshFixture {
protected:
    AccountFetchesTest() {
        defaults.set(u"zeph.integrations.quote.enabled"_s, false);
        preferences.set(WidgetPlacement::off, WidgetKind::quote);
    }

    /// The calls for an account with that secret and extra.
    QStringList callsFor(const QString &provider, const std::optional<QString> &secret,
                         const std::optional<QString> &extra = std::nullopt) {
        accounts.clear();
        connect(provider, secret, extra);
        return callsNow();
    }

    QStringList callsNow() {
        launch();
        calls.clear();
        run();
        return calls;
    }
};

TEST_F(AccountFetchesTest, stripeNeedsAUsableKey) {
    EXPECT_THAT(callsFor(u"stripe"_s, u"sk"_s), ElementsAre(u"stripe sk"_s));
    EXPECT_THAT(callsFor(u"stripe"_s, std::nullopt), IsEmpty());
    EXPECT_THAT(*state.stripeStats, IsEmpty()) << "skipped without a record";
}

TEST_F(AccountFetchesTest, aKeyThatIsStoredEmptyIsNotUsable) {
    const auto id = connect(u"stripe"_s, std::nullopt).id;
    secrets.put(u"com.tavi.integrations"_s, {secretAccount(id), ""});
    EXPECT_THAT(callsNow(), IsEmpty());
}

TEST_F(AccountFetchesTest, whiteSpaceAroundAKeyIsNoPartOfIt) {
    const auto stripe = connect(u"stripe"_s, std::nullopt).id;
    secrets.put(u"com.tavi.integrations"_s, {secretAccount(stripe), "sk\n"});
    const auto github = connect(u"github"_s, std::nullopt, u"octo"_s).id;
    secrets.put(u"com.tavi.integrations"_s, {secretAccount(github), " ghp \r\n"});
    const auto blank = connect(u"vercel"_s, std::nullopt).id;
    secrets.put(u"com.tavi.integrations"_s, {secretAccount(blank), " \n"});
    EXPECT_THAT(callsNow(), ElementsAre(u"stripe sk"_s, u"github octo \"ghp\""_s));
}

TEST_F(AccountFetchesTest, gitHubIsAskedWithItsTokenOrWithout) {
    EXPECT_THAT(callsFor(u"github"_s, u"ghp"_s, u" octo\t"_s),
                ElementsAre(u"github octo \"ghp\""_s));
    EXPECT_THAT(callsFor(u"github"_s, std::nullopt, u"octo"_s), ElementsAre(u"github octo none"_s));
}

TEST_F(AccountFetchesTest, gitHubsRecordTellsWhetherItWasAskedWithAToken) {
    const auto told = [this] {
        return state.githubStats->empty() ? std::nullopt : state.githubStats->front().hasToken;
    };
    callsFor(u"github"_s, u"ghp"_s, u"octo"_s);
    EXPECT_EQ(told(), true);
    callsFor(u"github"_s, std::nullopt, u"octo"_s);
    EXPECT_EQ(told(), false);
    callsFor(u"github"_s, u" "_s, u"octo"_s);
    EXPECT_EQ(told(), false);
}

TEST_F(AccountFetchesTest, ofALockedKeyringNobodyKnowsWhetherThereIsAToken) {
    const auto id = connect(u"github"_s, std::nullopt, u"octo"_s).id;
    secrets.put(u"com.tavi.integrations"_s, {secretAccount(id), "ghp"});
    secrets.answer(SecretOutcome::refused);
    EXPECT_THAT(callsNow(), ElementsAre(u"github octo none"_s));
    ASSERT_THAT(*state.githubStats, SizeIs(1));
    EXPECT_EQ(state.githubStats->front().hasToken, std::nullopt);
}

TEST_F(AccountFetchesTest, gitHubWithoutAGraphIsAskedForNone) {
    auto &account = connect(u"github"_s, u"ghp"_s, u"octo"_s);
    account.showStats = false;
    account.contributionLayout = u"m3"_s;
    EXPECT_THAT(callsNow(), ElementsAre(u"github octo \"ghp\""_s));
    ASSERT_THAT(*state.githubStats, SizeIs(1));
    EXPECT_FALSE(state.githubStats->front().showStats);
    EXPECT_EQ(state.githubStats->front().contributions, std::nullopt);
    EXPECT_EQ(state.githubStats->front().contributionLayout, ContributionLayout::y1);
}

TEST_F(AccountFetchesTest, gitHubWithItsGraphIsAskedForTheChosenLayout) {
    for (const ContributionLayout layout : allContributionLayouts) {
        accounts.clear();
        auto &account = connect(u"github"_s, u"ghp"_s, u"octo"_s);
        account.showContributionGraph = true;
        account.contributionLayout = rawValue(layout);
        EXPECT_THAT(callsNow(), ElementsAre(u"github octo \"ghp\""_s,
                                            u"contributions octo \"ghp\" "_s + rawValue(layout)));
        ASSERT_THAT(*state.githubStats, SizeIs(1));
        EXPECT_EQ(state.githubStats->front().contributionLayout, layout);
        EXPECT_EQ(state.githubStats->front().contributions->grandTotal, 12);
        EXPECT_TRUE(state.githubStats->front().showStats);
    }
}

TEST_F(AccountFetchesTest, anUnknownLayoutIsOneYear) {
    auto &account = connect(u"github"_s, std::nullopt, u"octo"_s);
    account.showContributionGraph = true;
    account.contributionLayout = u"x9"_s;
    EXPECT_THAT(callsNow(), ElementsAre(u"github octo none"_s, u"contributions octo none y1"_s));
    EXPECT_EQ(state.githubStats->front().contributionLayout, ContributionLayout::y1);
}

TEST_F(AccountFetchesTest, revenueServicesNeedAKey) {
    EXPECT_THAT(callsFor(u"chartmogul"_s, u"k"_s), ElementsAre(u"chartmogul k"_s));
    EXPECT_THAT(callsFor(u"lemonsqueezy"_s, u"k"_s), ElementsAre(u"lemonsqueezy k"_s));
    for (const auto &provider : {u"chartmogul"_s, u"lemonsqueezy"_s, u"dodo"_s}) {
        EXPECT_THAT(callsFor(provider, std::nullopt), IsEmpty()) << provider.toStdString();
    }
}

TEST_F(AccountFetchesTest, dodoTakesItsBrandWhichMayBeEmpty) {
    EXPECT_THAT(callsFor(u"dodo"_s, u"k"_s, u" brand "_s), ElementsAre(u"dodo k \"brand\""_s));
    EXPECT_THAT(callsFor(u"dodo"_s, u"k"_s, u""_s), ElementsAre(u"dodo k \"\""_s));
    EXPECT_THAT(callsFor(u"dodo"_s, u"k"_s), ElementsAre(u"dodo k \"\""_s));
}

TEST_F(AccountFetchesTest, plausibleNeedsAKeyAndASite) {
    EXPECT_THAT(callsFor(u"plausible"_s, u"k"_s, u" a.org "_s),
                ElementsAre(u"plausible k a.org"_s));
    EXPECT_THAT(callsFor(u"plausible"_s, std::nullopt, u"a.org"_s), IsEmpty());
    EXPECT_THAT(callsFor(u"plausible"_s, u"k"_s, u" "_s), IsEmpty());
}

TEST_F(AccountFetchesTest, trustMrrNeedsAKeyAndASlug) {
    EXPECT_THAT(callsFor(u"trustmrr"_s, u"k"_s, u"shop"_s), ElementsAre(u"trustmrr k shop"_s));
    EXPECT_THAT(callsFor(u"trustmrr"_s, std::nullopt, u"shop"_s), IsEmpty());
    EXPECT_THAT(callsFor(u"trustmrr"_s, u"k"_s, u"\t"_s), IsEmpty());
}

TEST_F(AccountFetchesTest, servicesWithoutAKeyNeedTheirValueAndReadNoSecret) {
    for (const auto &provider : {u"ahrefs"_s, u"coingecko"_s, u"hackernews"_s, u"reddit"_s,
                                 u"producthunt"_s, u"bluesky"_s, u"currency"_s}) {
        EXPECT_THAT(callsFor(provider, std::nullopt, u" value\t"_s),
                    ElementsAre(provider + u" value"_s));
        EXPECT_THAT(callsFor(provider, std::nullopt, u" "_s), IsEmpty()) << provider.toStdString();
        EXPECT_THAT(callsFor(provider, std::nullopt), IsEmpty()) << provider.toStdString();
    }
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
}

TEST_F(AccountFetchesTest, rssAsksForThreeItemsUnlessToldOtherwise) {
    EXPECT_THAT(callsFor(u"rss"_s, std::nullopt, u"u"_s), ElementsAre(u"rss u 3"_s));
    EXPECT_THAT(callsFor(u"rss"_s, std::nullopt, u" "_s), IsEmpty());
    for (const qint64 count : {0, 1, 12}) {
        accounts.clear();
        connect(u"rss"_s, std::nullopt, u"u"_s).feedCount = count;
        EXPECT_THAT(callsNow(), ElementsAre(u"rss u %1"_s.arg(count)));
    }
}

TEST_F(AccountFetchesTest, theOthersNeedTheirToken) {
    for (const auto &provider : {u"vercel"_s, u"netlify"_s, u"gumroad"_s, u"polar"_s}) {
        EXPECT_THAT(callsFor(provider, u"t"_s), ElementsAre(provider + u" t"_s));
        EXPECT_THAT(callsFor(provider, std::nullopt), IsEmpty()) << provider.toStdString();
    }
}

TEST_F(AccountFetchesTest, anyOtherServiceIsIgnored) {
    for (const auto &provider : {u"openai"_s, u"claude"_s, u"cursor"_s, u"Stripe"_s, u""_s}) {
        EXPECT_THAT(callsFor(provider, u"k"_s, u"x"_s), IsEmpty()) << provider.toStdString();
    }
}

TEST_F(AccountFetchesTest, aKeyIsReadOncePerProcess) {
    connect(u"stripe"_s, std::nullopt);
    secrets.put(u"com.tavi.integrations"_s, {secretAccount(accounts[0].id), "sk"});
    launch();
    run();
    EXPECT_THAT(secrets.takeCalls(),
                ElementsAre(u"copy com.tavi.integrations "_s + secretAccount(accounts[0].id)));
    run();
    run();
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
    EXPECT_EQ(calls.count(u"stripe sk"_s), 3);
}

TEST_F(AccountFetchesTest, aMissingSecretMakesTheRecordVanishAndLeavesTheOthers) {
    connect(u"stripe"_s, u"one"_s);
    connect(u"stripe"_s, u"two"_s);
    launch();
    run();
    EXPECT_THAT(*state.stripeStats, SizeIs(2));
    keychain.erase(secretAccount(accounts[0].id));
    run();
    ASSERT_THAT(*state.stripeStats, SizeIs(1));
    EXPECT_EQ(state.stripeStats->front().connectionId, accounts[1].id);
}

TEST_F(AccountFetchesTest, whatAServiceThrowsBecomesTheErrorOfItsRecord) {
    connect(u"stripe"_s, u"bad"_s);
    connect(u"stripe"_s, u"good"_s);
    connect(u"github"_s, std::nullopt, u"octo"_s).showContributionGraph = true;
    connect(u"dodo"_s, u"k"_s);
    connect(u"plausible"_s, u"k"_s, u"a.org"_s);
    connect(u"polar"_s, u"k"_s);
    launch();
    store->upsertCustomAPI({QUuid::createUuid(), u"c"_s, u"u"_s, {}, {}});
    onCall = [](const QString &call) {
        if (call != u"stripe good"_s) {
            throw DescribedError(u"It broke."_s);
        }
    };
    run();
    ASSERT_THAT(*state.stripeStats, SizeIs(2));
    EXPECT_EQ(state.stripeStats->at(0), (recordWith<StripeStats>([&](StripeStats &made) {
                  made.connectionId = accounts[0].id;
                  made.label = u"My stripe"_s;
                  made.error = u"It broke."_s;
              })));
    EXPECT_EQ(state.stripeStats->at(1).error, std::nullopt);
    EXPECT_EQ(state.githubStats->at(0).error, u"It broke."_s);
    EXPECT_EQ(state.githubStats->at(0).contributions, std::nullopt);
    EXPECT_EQ(state.revenueStats->at(0).error, u"It broke."_s);
    EXPECT_EQ(state.analyticsStats->at(0).error, u"It broke."_s);
    EXPECT_EQ(state.simpleStats->at(0).error, u"It broke."_s);
    EXPECT_EQ(state.customResults->at(0).error, u"It broke."_s);
    EXPECT_EQ(state.customResults->at(0).name, u"c"_s);
}

TEST_F(AccountFetchesTest, anyOtherExceptionIsHeldBackToo) {
    connect(u"stripe"_s, u"k"_s);
    launch();
    onCall = [](const QString &) { throw std::runtime_error("out of luck"); };
    run();
    EXPECT_EQ(state.stripeStats->at(0).error, u"out of luck"_s);
}

TEST_F(AccountFetchesTest, aQuoteThatThrowsIsNone) {
    defaults.set(u"zeph.integrations.quote.enabled"_s, true);
    launch();
    state.quote = QuoteInfo{u"Old"_s, u"B"_s};
    onCall = [](const QString &) { throw std::runtime_error("no quote"); };
    run();
    EXPECT_EQ(*state.quote, std::nullopt);
}

} // namespace

} // namespace zeph
