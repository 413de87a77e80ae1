// SPDX-License-Identifier: MIT
#include "services/refresh/RefreshFixture.h"

#include <algorithm>
#include <new>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

class IntegrationRefreshTest : public RefreshFixture {
protected:
    void withoutQuote() {
        defaults.set(u"zeph.integrations.quote.enabled"_s, false);
        preferences.set(WidgetPlacement::off, WidgetKind::quote);
        loop.drain();
    }
    static CustomAPIConfig endpoint(const QString &name) {
        return {QUuid::createUuid(), name, u"https://"_s + name, {}, {}};
    }
};

TEST_F(IntegrationRefreshTest, withoutAccountsEveryListIsEmptiedAndNoEndpointTaskStarts) {
    withoutQuote();
    launch();
    state.stripeStats = {StripeStats{}};
    state.githubStats = {GitHubStats{}};
    state.revenueStats = {RevenueStats{}};
    state.analyticsStats = {AnalyticsStats{}};
    state.simpleStats = {SimpleIntegrationStats{}};
    state.customResults = {CustomAPIResult{}};
    refresh->fetchIntegrations();
    EXPECT_EQ(executor.waiting(), 5U);
    EXPECT_THAT(*state.customResults, IsEmpty());
    executor.runAll();
    EXPECT_THAT(*state.stripeStats, SizeIs(1)) << "assigned off the main thread";
    loop.drain();
    EXPECT_THAT(*state.stripeStats, IsEmpty());
    EXPECT_THAT(*state.githubStats, IsEmpty());
    EXPECT_THAT(*state.revenueStats, IsEmpty());
    EXPECT_THAT(*state.analyticsStats, IsEmpty());
    EXPECT_THAT(*state.simpleStats, IsEmpty());
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(IntegrationRefreshTest, eachFamilyIsOneTaskInAFixedOrder) {
    connect(u"polar"_s, u"p"_s);
    connect(u"plausible"_s, u"a"_s, u"site"_s);
    connect(u"dodo"_s, u"d"_s);
    connect(u"github"_s, std::nullopt, u"octo"_s);
    connect(u"stripe"_s, u"s"_s);
    launch();
    store->upsertCustomAPI(endpoint(u"c"_s));
    executor.runAll();
    refresh->fetchIntegrations();
    EXPECT_EQ(executor.waiting(), 7U) << "five families, the quote and the endpoints";
    EXPECT_THAT(calls, IsEmpty()) << "asked on the main thread";
    executor.runAll();
    EXPECT_THAT(calls, ElementsAre(u"stripe s"_s, u"github octo none"_s, u"dodo d \"\""_s,
                                   u"plausible a site"_s, u"polar p"_s, u"quote"_s,
                                   u"custom https://c"_s));
}

TEST_F(IntegrationRefreshTest, accountsOfAFamilyAreAskedInStoredOrder) {
    connect(u"rss"_s, std::nullopt, u"b"_s);
    connect(u"reddit"_s, std::nullopt, u"a"_s);
    connect(u"rss"_s, std::nullopt, u"c"_s);
    launch();
    run();
    EXPECT_THAT(calls, ElementsAre(u"rss b 3"_s, u"reddit a"_s, u"rss c 3"_s, u"quote"_s));
    ASSERT_THAT(*state.simpleStats, SizeIs(3));
    for (std::size_t index = 0; index < accounts.size(); ++index) {
        EXPECT_EQ(state.simpleStats->at(index).id, accounts[index].id);
        EXPECT_EQ(state.simpleStats->at(index).label, accounts[index].name);
    }
}

TEST_F(IntegrationRefreshTest, everyRecordIsStampedWithItsAccount) {
    connect(u"stripe"_s, u"k"_s);
    connect(u"github"_s, std::nullopt, u"octo"_s);
    connect(u"chartmogul"_s, u"k"_s);
    connect(u"plausible"_s, u"k"_s, u"site"_s);
    connect(u"vercel"_s, u"k"_s);
    launch();
    run();
    ASSERT_THAT(*state.stripeStats, SizeIs(1));
    EXPECT_EQ(state.stripeStats->front(), (recordWith<StripeStats>([&](StripeStats &made) {
                  made.connectionId = accounts[0].id;
                  made.label = u"My stripe"_s;
                  made.todayRevenueCents = 100;
              })));
    ASSERT_THAT(*state.githubStats, SizeIs(1));
    EXPECT_EQ(state.githubStats->front().connectionId, accounts[1].id);
    EXPECT_EQ(state.githubStats->front().label, u"My github"_s);
    EXPECT_THAT(*state.revenueStats, ElementsAre(recordWith<RevenueStats>([&](RevenueStats &made) {
        made.id = accounts[2].id;
        made.provider = u"chartmogul"_s;
        made.label = u"My chartmogul"_s;
    })));
    EXPECT_THAT(*state.analyticsStats,
                ElementsAre(recordWith<AnalyticsStats>([&](AnalyticsStats &made) {
                    made.id = accounts[3].id;
                    made.label = u"My plausible"_s;
                    made.site = u"site"_s;
                })));
    EXPECT_THAT(*state.simpleStats,
                ElementsAre(recordWith<SimpleIntegrationStats>([&](SimpleIntegrationStats &made) {
                    made.id = accounts[4].id;
                    made.provider = u"vercel"_s;
                    made.label = u"My vercel"_s;
                    made.headline = u"k"_s;
                })));
}

TEST_F(IntegrationRefreshTest, aDisabledAccountIsNotAskedAndItsRecordVanishes) {
    connect(u"stripe"_s, u"one"_s);
    connect(u"stripe"_s, u"two"_s);
    launch();
    run();
    EXPECT_THAT(*state.stripeStats, SizeIs(2));
    auto disabled = store->connections().front();
    disabled.enabled = false;
    store->updateConnection(disabled);
    calls.clear();
    run();
    EXPECT_THAT(calls, ElementsAre(u"stripe two"_s, u"quote"_s));
    ASSERT_THAT(*state.stripeStats, SizeIs(1));
    EXPECT_EQ(state.stripeStats->front().connectionId, accounts[1].id);
}

TEST_F(IntegrationRefreshTest, anAccountThatIsNotReadyIsLeftOutBeforeAnySecretIsRead) {
    addUnconnected(u"stripe"_s);
    addUnconnected(u"rss"_s, u"https://a.org"_s);
    addUnconnected(u"github"_s, u"octo"_s);
    connect(u"plausible"_s, u"k"_s, u" "_s);
    launch();
    secrets.takeCalls();
    run();
    EXPECT_THAT(calls, ElementsAre(u"quote"_s));
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
}

TEST_F(IntegrationRefreshTest, removingTheLastAccountOfAFamilyEmptiesIt) {
    connect(u"dodo"_s, u"k"_s);
    launch();
    run();
    EXPECT_THAT(*state.revenueStats, SizeIs(1));
    removeForGood(*store, accounts[0].id);
    run();
    EXPECT_THAT(*state.revenueStats, IsEmpty());
}

TEST_F(IntegrationRefreshTest, listsAreReplacedWholeAndAtOnce) {
    connect(u"stripe"_s, u"one"_s);
    connect(u"stripe"_s, u"two"_s);
    launch();
    std::vector<std::size_t> sizes;
    const auto subscription =
        state.objectWillChange.subscribe([&] { sizes.push_back(state.stripeStats->size()); });
    refresh->fetchIntegrations();
    executor.runAt(0);
    EXPECT_THAT(sizes, ElementsAre(0U)) << "the empty list of endpoints alone";
    loop.drain();
    EXPECT_THAT(sizes, ElementsAre(0U, 0U));
    EXPECT_THAT(*state.stripeStats, SizeIs(2));
}

TEST_F(IntegrationRefreshTest, endpointsAreAskedInOrderAndAnswerWithWhatTheyHave) {
    launch();
    const auto a = endpoint(u"a"_s);
    const auto b = endpoint(u"b"_s);
    store->upsertCustomAPI(b);
    store->upsertCustomAPI(a);
    run();
    EXPECT_THAT(*state.customResults,
                ElementsAre(recordWith<CustomAPIResult>([&](CustomAPIResult &made) {
                                made.id = b.id;
                                made.name = u"b"_s;
                            }),
                            recordWith<CustomAPIResult>([&](CustomAPIResult &made) {
                                made.id = a.id;
                                made.name = u"a"_s;
                            })));
}

TEST_F(IntegrationRefreshTest, aRunKeepsTheEndpointsThatItStartedWith) {
    launch();
    const auto a = endpoint(u"a"_s);
    store->upsertCustomAPI(a);
    executor.runAll();
    refresh->fetchIntegrations();
    removeForGood(*store, a.id);
    executor.runAll();
    loop.drain();
    EXPECT_THAT(*state.customResults, SizeIs(1));
    run();
    EXPECT_THAT(*state.customResults, IsEmpty());
}

TEST_F(IntegrationRefreshTest, theQuoteIsWantedByItsSwitchOrItsWidget) {
    for (const auto &[isEnabled, placement, isAsked] :
         std::vector<std::tuple<bool, WidgetPlacement, bool>>{
             {true, WidgetPlacement::always, true},
             {true, WidgetPlacement::off, true},
             {false, WidgetPlacement::always, true},
             {false, WidgetPlacement::off, false}}) {
        defaults.set(u"zeph.integrations.quote.enabled"_s, isEnabled);
        preferences.set(placement, WidgetKind::quote);
        launch();
        calls.clear();
        state.quote = QuoteInfo{u"Old"_s, u"B"_s};
        run();
        EXPECT_EQ(calls.contains(u"quote"_s), isAsked);
        EXPECT_EQ(*state.quote, isAsked ? quote : std::nullopt);
    }
}

TEST_F(IntegrationRefreshTest, anUnwantedQuoteIsClearedAtOnce) {
    withoutQuote();
    launch();
    state.quote = QuoteInfo{u"Old"_s, u"B"_s};
    refresh->fetchIntegrations();
    EXPECT_EQ(*state.quote, std::nullopt);
}

TEST_F(IntegrationRefreshTest, noQuoteIsAssignedAsWell) {
    quote = std::nullopt;
    launch();
    state.quote = QuoteInfo{u"Old"_s, u"B"_s};
    run();
    EXPECT_EQ(*state.quote, std::nullopt);
}

TEST_F(IntegrationRefreshTest, ofTwoRunsTheListOfTheLaterFinisherStands) {
    connect(u"stripe"_s, u"one"_s);
    connect(u"stripe"_s, u"two"_s);
    launch();
    refresh->fetchIntegrations(); // tasks 0 to 5, with both accounts
    removeForGood(*store, accounts[0].id);
    executor.runAt(6);            // the erasing of the secret
    refresh->fetchIntegrations(); // tasks 6 to 11, with one account
    executor.runAt(6);
    loop.drain();
    EXPECT_THAT(*state.stripeStats, SizeIs(1));
    keychain.set(u"one"_s, secretAccount(accounts[0].id)); // as a slow run still holds it
    executor.runAt(0);
    loop.drain();
    ASSERT_THAT(*state.stripeStats, SizeIs(2)) << "a slow run brings a removed account back";
    EXPECT_EQ(state.stripeStats->front().connectionId, accounts[0].id);
    executor.runAll();
    run();
    EXPECT_THAT(*state.stripeStats, SizeIs(1)) << "until the next one";
}

TEST_F(IntegrationRefreshTest, twoRunsSideBySideAreBothCarriedOut) {
    connect(u"stripe"_s, u"k"_s);
    launch();
    refresh->fetchIntegrations();
    refresh->fetchIntegrations();
    EXPECT_EQ(executor.waiting(), 12U);
    executor.runAll();
    loop.drain();
    EXPECT_EQ(calls.count(u"stripe k"_s), 2);
    EXPECT_THAT(*state.stripeStats, SizeIs(1));
}

TEST_F(IntegrationRefreshTest, aKeyringThatFailsCostsItsAccountAndNoOther) {
    const auto broken = connect(u"stripe"_s, u"a"_s);
    connect(u"stripe"_s, u"b"_s);
    launch();
    keychain.erase(secretAccount(broken.id));
    secrets.setHook([&broken](const QString &call) {
        if (call.endsWith(secretAccount(broken.id))) {
            throw std::bad_alloc();
        }
    });
    run();
    EXPECT_THAT(calls, ElementsAre(u"stripe b"_s, u"quote"_s));
    EXPECT_THAT(*state.stripeStats, SizeIs(1));
}

TEST_F(IntegrationRefreshTest, endpointsCanBeAskedAlone) {
    connect(u"stripe"_s, u"a"_s);
    launch();
    store->upsertCustomAPI(endpoint(u"c"_s));
    executor.runAll();
    refresh->fetchCustomAPIs();
    executor.runAll();
    EXPECT_THAT(calls, ElementsAre(u"custom https://c"_s));
}

TEST_F(IntegrationRefreshTest, aPromptThatStaysOpenHoldsTwoRunsAFamilyAndNoMore) {
    connect(u"stripe"_s, u"a"_s);
    launch();
    for (int round = 0; round < 50; ++round) {
        refresh->fetchIntegrations();
    }
    EXPECT_EQ(executor.waiting(), 12U) << "two of five families and of the quote";
    executor.runAll();
    loop.drain();
    executor.runAll();
    loop.drain();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), u"stripe a"_s), 3);
    EXPECT_EQ(executor.waiting(), 0U);
}

TEST_F(IntegrationRefreshTest, aRunThatWaitsIsForgottenWhenNothingIsWantedAnyMore) {
    withoutQuote();
    preferences.set(WidgetPlacement::always, WidgetKind::quote);
    loop.drain();
    launch();
    const auto only = endpoint(u"c"_s);
    store->upsertCustomAPI(only);
    executor.runAll();
    for (int run = 0; run < 3; ++run) {
        refresh->fetchIntegrations();
    }
    preferences.set(WidgetPlacement::off, WidgetKind::quote);
    removeForGood(*store, only.id);
    refresh->fetchIntegrations();
    for (int round = 0; round < 3; ++round) {
        executor.runAll();
        loop.drain();
    }
    EXPECT_EQ(std::count(calls.begin(), calls.end(), u"custom https://c"_s), 2);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), u"quote"_s), 2);
}

TEST_F(IntegrationRefreshTest, aFamilyWithoutAccountsIsEmptiedEvenWhileItsRunsHang) {
    const auto account = connect(u"stripe"_s, u"a"_s);
    launch();
    refresh->fetchIntegrations();
    refresh->fetchIntegrations();
    state.stripeStats = {StripeStats{}};
    removeForGood(*store, account.id);
    refresh->fetchIntegrations();
    EXPECT_THAT(*state.stripeStats, IsEmpty());
}

TEST_F(IntegrationRefreshTest, aTaskThatStartsAfterTheEndDoesNothing) {
    connect(u"stripe"_s, u"k"_s);
    launch();
    refresh->fetchIntegrations();
    refresh.reset();
    executor.runAll();
    loop.drain();
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(IntegrationRefreshTest, aTaskUnderWayAtTheEndFinishesAndAssignsNothing) {
    connect(u"stripe"_s, u"one"_s);
    connect(u"stripe"_s, u"two"_s);
    launch();
    state.quote = QuoteInfo{u"Old"_s, u"B"_s};
    refresh->fetchIntegrations();
    onCall = [this](const QString &call) {
        if (call == u"stripe one"_s) {
            refresh.reset();
        }
        loop.drain(); // while the task holds its tools
    };
    executor.runAll();
    loop.drain();
    EXPECT_THAT(calls, ElementsAre(u"stripe one"_s, u"stripe two"_s));
    EXPECT_THAT(*state.stripeStats, IsEmpty());
    EXPECT_EQ(*state.quote, (QuoteInfo{u"Old"_s, u"B"_s}));
}

TEST_F(IntegrationRefreshTest, resultsThatArriveAfterTheEndAreDropped) {
    connect(u"stripe"_s, u"k"_s);
    launch();
    refresh->fetchIntegrations();
    executor.runAll();
    refresh.reset();
    loop.drain();
    EXPECT_THAT(*state.stripeStats, IsEmpty());
    EXPECT_EQ(*state.quote, std::nullopt);
}

} // namespace

} // namespace zeph
