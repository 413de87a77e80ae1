// SPDX-License-Identifier: MIT
#include "services/forms/ConnectionStatus.h"

#include "model/AppState.h"
#include "services/accounts/IntegrationConnection.h"
#include "support/QtPrinters.h"
#include "wording/FramingFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class ConnectionStatusTest : public Framing {
protected:
    std::optional<ConnectionStatus> status(const QString &provider) const {
        return connectionStatus({account, provider, u"Main"_s}, state, context);
    }

    /// The text of a status that is no error.
    QString connected(const QString &provider) const {
        const auto told = status(provider);
        EXPECT_TRUE(told && !told->isError);
        return told.value_or(ConnectionStatus()).text;
    }

    /// A record of the account that was fetched whole.
    template <typename Record>
    Record fetched() const {
        Record record;
        if constexpr (requires { record.connectionId; }) {
            record.connectionId = account;
        } else {
            record.id = account;
        }
        record.updated = Date{1'700'000'000};
        return record;
    }

    /// A record tells nothing before it is there and fetched, and its error above all.
    template <typename Record>
    void expectOrder(const QString &provider, Published<std::vector<Record>> &list) {
        SCOPED_TRACE(provider.toStdString());
        list = std::vector<Record>();
        EXPECT_EQ(status(provider), std::nullopt);
        auto record = fetched<Record>();
        record.updated.reset();
        list = std::vector{record};
        EXPECT_EQ(status(provider), std::nullopt);
        record.error = u"The key was refused"_s;
        list = std::vector{record};
        EXPECT_EQ(status(provider), (ConnectionStatus{u"The key was refused"_s, true}));
        record.updated = Date{1};
        list = std::vector{record};
        EXPECT_EQ(status(provider), (ConnectionStatus{u"The key was refused"_s, true}));
        list = std::vector{Record(), fetched<Record>()};
        EXPECT_TRUE(connected(provider).startsWith(u"Connected"_s)) << "not the first, but its own";
        list = std::vector{Record()};
        EXPECT_EQ(status(provider), std::nullopt) << "the record of another account";
    }

    const QUuid account = QUuid::createUuid();
    AppState state{Date{1'700'000'000}};
};

TEST_F(ConnectionStatusTest, isLookedForAmongTheRecordsOfTheFamily) {
    expectOrder(u"stripe"_s, state.stripeStats);
    expectOrder(u"github"_s, state.githubStats);
    for (const auto &provider : {u"chartmogul"_s, u"lemonsqueezy"_s, u"dodo"_s}) {
        expectOrder(provider, state.revenueStats);
    }
    for (const auto &provider : {u"openai"_s, u"claude"_s}) {
        expectOrder(provider, state.aiUsage);
    }
    expectOrder(u"plausible"_s, state.analyticsStats);
    for (const auto &provider :
         {u"trustmrr"_s, u"ahrefs"_s, u"coingecko"_s, u"hackernews"_s, u"reddit"_s, u"rss"_s,
          u"producthunt"_s, u"bluesky"_s, u"currency"_s, u"gumroad"_s, u"polar"_s, u"vercel"_s,
          u"netlify"_s}) {
        expectOrder(provider, state.simpleStats);
    }
}

TEST_F(ConnectionStatusTest, aServiceThatIsNotKnownHasNone) {
    state.simpleStats = std::vector{fetched<SimpleIntegrationStats>()};
    EXPECT_EQ(status(u"my shop"_s), std::nullopt);
}

TEST_F(ConnectionStatusTest, stripeTellsTodayAndTheMonth) {
    auto stats = fetched<StripeStats>();
    stats.todayRevenueCents = 41250;
    stats.mrrCents = 1842000;
    state.stripeStats = std::vector{stats};
    EXPECT_EQ(connected(u"stripe"_s), u"Connected · $412.5 today, $18,420 MRR"_s);
    stats.currency = u"eur"_s;
    state.stripeStats = std::vector{stats};
    EXPECT_EQ(connected(u"stripe"_s), u"Connected · €412.5 today, €18,420 MRR"_s);
}

TEST_F(ConnectionStatusTest, gitHubTellsThreeCounts) {
    auto stats = fetched<GitHubStats>();
    stats.totalStars = 1204;
    stats.followers = 318;
    stats.openPRs = 4;
    state.githubStats = std::vector{stats};
    EXPECT_EQ(connected(u"github"_s), u"Connected · 1,204 stars, 318 followers, 4 open PRs"_s);
}

TEST_F(ConnectionStatusTest, aRevenueServiceTellsWhatItKnows) {
    auto stats = fetched<RevenueStats>();
    stats.currency = u"usd"_s;
    state.revenueStats = std::vector{stats};
    EXPECT_EQ(connected(u"dodo"_s), u"Connected"_s);
    stats.paidCustomers = 0;
    state.revenueStats = std::vector{stats};
    EXPECT_EQ(connected(u"dodo"_s), u"Connected · 0 paid"_s);
    stats.mrrCents = 120000;
    stats.totalRevenueCents = 9900;
    state.revenueStats = std::vector{stats};
    EXPECT_EQ(connected(u"dodo"_s), u"Connected · $1,200 MRR, 0 paid, $99 all-time"_s);
}

TEST_F(ConnectionStatusTest, anAIServiceTellsTheMonthsSpending) {
    auto stats = fetched<AIUsageStats>();
    state.aiUsage = std::vector{stats};
    EXPECT_EQ(connected(u"openai"_s), u"Connected"_s);
    stats.monthCostUSD = 12.3456;
    state.aiUsage = std::vector{stats};
    EXPECT_EQ(connected(u"claude"_s), u"Connected · $12.35 spent this month"_s);
}

TEST_F(ConnectionStatusTest, plausibleTellsTheDaysFigures) {
    auto stats = fetched<AnalyticsStats>();
    stats.visitorsToday = 12;
    stats.pageviewsToday = 1030;
    state.analyticsStats = std::vector{stats};
    EXPECT_EQ(connected(u"plausible"_s), u"Connected · 12 visitors, 1,030 pageviews today"_s);
    stats.pageviewsToday.reset();
    state.analyticsStats = std::vector{stats};
    EXPECT_EQ(connected(u"plausible"_s), u"Connected · 12 visitors today"_s);
    stats.visitorsToday.reset();
    state.analyticsStats = std::vector{stats};
    EXPECT_EQ(connected(u"plausible"_s), u"Connected"_s);
}

TEST_F(ConnectionStatusTest, aSmallServiceTellsItsFirstTwoChips) {
    auto stats = fetched<SimpleIntegrationStats>();
    stats.chips = {{u"flame"_s, u"1,204 karma"_s}};
    state.simpleStats = std::vector{stats};
    EXPECT_EQ(connected(u"reddit"_s), u"Connected · 1,204 karma"_s);
    stats.chips.push_back({u"person.2"_s, u"9 followers"_s});
    stats.chips.push_back({u"star"_s, u"left out"_s});
    state.simpleStats = std::vector{stats};
    EXPECT_EQ(connected(u"reddit"_s), u"Connected · 1,204 karma, 9 followers"_s);
}

} // namespace

} // namespace zeph
