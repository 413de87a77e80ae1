// SPDX-License-Identifier: MIT
#include "services/revenue/LemonSqueezyService.h"

#include "services/revenue/RevenueTold.h"

#include <atomic>
#include <functional>
#include <future>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

Exchange ask(const QByteArray &pathAndQuery) {
    return {getRequest("https://api.lemonsqueezy.com/v1/" + pathAndQuery,
                       {{"Accept", "application/vnd.api+json"}, {"Authorization", "Bearer k1"}})};
}

const char *const onePriceYearly = R"({"data":{"attributes":{"unit_price":1200,)"
                                   R"("renewal_interval_unit":"year",)"
                                   R"("renewal_interval_quantity":1}}})";

QByteArray subscription(int priceId, int quantity = 1) {
    return R"({"attributes":{"first_subscription_item":{"price_id":)" +
           QByteArray::number(priceId) + R"(,"quantity":)" + QByteArray::number(quantity) + "}}}";
}

/// A whole fetch from a shop that sells nothing; a test changes the answers it is about.
struct Conversation {
    Exchange stores = ask("stores").answering(fixture("lemonsqueezy/stores.json"));
    Exchange active = ask("subscriptions?filter[status]=active&page[size]=1")
                          .answering(fixture("lemonsqueezy/count-active.json"));
    Exchange onTrial = ask("subscriptions?filter[status]=on_trial&page[size]=1")
                           .answering(fixture("lemonsqueezy/count-on_trial.json"));
    std::vector<Exchange> rest = {page(1).answering(R"({"data":[]})")};

    static Exchange page(int number) {
        return ask("subscriptions?filter[status]=active&page[size]=100&page[number]=" +
                   QByteArray::number(number));
    }
    static Exchange price(int id) { return ask("prices/" + QByteArray::number(id)); }

    std::vector<Exchange> all() const {
        std::vector<Exchange> all{stores, active, onTrial};
        all.insert(all.end(), rest.begin(), rest.end());
        return all;
    }
    RevenueStats fetched() const { return fetchedBy(all()); }

    static RevenueStats fetchedBy(std::vector<Exchange> all) {
        ContractServer server(std::move(all));
        const Endpoints endpoints;
        const ManualClock clock(dateOf(fetchTime).secondsSince1970);
        return LemonSqueezyService(server.client(), endpoints, clock).fetch(u"k1"_s);
    }
};

/// Answers every question of a small shop from any thread; `whilePriced` runs during the first
/// request for a price.
class SmallShop : public HttpClient {
public:
    HttpResponse send(const HttpRequest &request) override {
        const QByteArray url = request.url.toEncoded();
        if (url.contains("/prices/")) {
            if (pricesAsked++ == 0 && whilePriced) {
                whilePriced();
            }
            return FakeHttpClient::json(onePriceYearly);
        }
        return FakeHttpClient::json(url.contains("page[number]=1")
                                        ? "{\"data\":[" + subscription(7) + "]}"
                                        : QByteArray("{}"));
    }
    void cancelAll() override {}

    std::atomic<int> pricesAsked = 0;
    std::function<void()> whilePriced;
};

} // namespace

TEST(LemonSqueezyService, sumsSubscriptionsByTheirPricesAskingForEachOnce) {
    Conversation conversation;
    conversation.rest = {
        Conversation::page(1).answering(fixture("lemonsqueezy/subscriptions-1.json")),
        Conversation::price(1001).answering(fixture("lemonsqueezy/prices-1001.json")),
        Conversation::price(1002).answering(fixture("lemonsqueezy/prices-1002.json"))};
    EXPECT_EQ(told(conversation.fetched()),
              u"lemonsqueezy | Lemon Squeezy | EUR | mrr 1299 | arr 15588 | paid 42 | trial 5 | "
              "total 845210 | updated now | no error"_s);
}

TEST(LemonSqueezyService, aYearlyPriceTimesTwoAddsASixthOfIt) {
    Conversation conversation;
    conversation.rest = {Conversation::page(1).answering("{\"data\":[" + subscription(7, 2) + "]}"),
                         Conversation::price(7).answering(onePriceYearly)};
    EXPECT_EQ(conversation.fetched().mrrCents, 200);
}

TEST(LemonSqueezyService, aPriceIsMultipliedBeforeItIsDivided) {
    Conversation conversation;
    conversation.rest = {
        Conversation::page(1).answering("{\"data\":[" + subscription(7, 12) + "]}"),
        Conversation::price(7).answering(R"({"data":{"attributes":{"unit_price":100,)"
                                         R"("renewal_interval_unit":"year"}}})")};
    EXPECT_EQ(conversation.fetched().mrrCents, 100) << "not twelve times 8";
}

TEST(LemonSqueezyService, aPriceAsTextReadsAsItsNumber) {
    Conversation conversation;
    conversation.rest = {
        Conversation::page(1).answering("{\"data\":[" + subscription(1002) + "]}"),
        Conversation::price(1002).answering(fixture("lemonsqueezy/prices-1002.json"))};
    EXPECT_EQ(conversation.fetched().mrrCents, 999);
}

TEST(LemonSqueezyService, subscriptionsBeyondThreeHundredAddNothingButAreCounted) {
    const QByteArray full = "{\"data\":[" + repeated(subscription(7), 100) + "]}";
    Conversation conversation;
    conversation.active = conversation.active.answering(R"({"meta":{"page":{"total":301}}})");
    conversation.rest = {
        Conversation::page(1).answering(full), Conversation::price(7).answering(onePriceYearly),
        Conversation::page(2).answering(full), Conversation::page(3).answering(full)};
    const RevenueStats stats = conversation.fetched();
    EXPECT_EQ(stats.mrrCents, 30000);
    EXPECT_EQ(stats.paidCustomers, 301);
}

TEST(LemonSqueezyService, stopsAfterAPageThatIsNotFull) {
    const QByteArray nearlyFull = "{\"data\":[" + repeated(subscription(7), 99) + "]}";
    Conversation conversation;
    conversation.rest = {Conversation::page(1).answering(nearlyFull),
                         Conversation::price(7).answering(onePriceYearly)};
    EXPECT_EQ(conversation.fetched().mrrCents, 9900);
}

TEST(LemonSqueezyService, aBodyWithoutAListEndsThePages) {
    const QByteArray full = "{\"data\":[" + repeated(subscription(7), 100) + "]}";
    Conversation conversation;
    conversation.rest = {Conversation::page(1).answering(full),
                         Conversation::price(7).answering(onePriceYearly),
                         Conversation::page(2).answering(R"({"data":{}})")};
    EXPECT_EQ(conversation.fetched().mrrCents, 10000);
}

TEST(LemonSqueezyService, aPriceThatFailsAddsNothingAndTheOthersCount) {
    const QByteArray page = "{\"data\":[" + subscription(8) + ',' + subscription(7) + "]}";
    for (const Exchange &failing :
         {Conversation::price(8).cutOff(), Conversation::price(8).answering(badGateway()),
          Conversation::price(8).answering(""), Conversation::price(8).answering("{}"),
          Conversation::price(8).answering(R"({"errors":[]})", 404)}) {
        Conversation conversation;
        conversation.rest = {Conversation::page(1).answering(page), failing,
                             Conversation::price(7).answering(onePriceYearly)};
        EXPECT_EQ(told(conversation.fetched()),
                  u"lemonsqueezy | Lemon Squeezy | EUR | mrr 100 | arr 1200 | paid 42 | trial 5 | "
                  "total 845210 | updated now | no error"_s);
    }
}

TEST(LemonSqueezyService, aPriceThatFailedIsAskedForAgain) {
    const QByteArray page = "{\"data\":[" + subscription(7) + ',' + subscription(7) + "]}";
    Conversation conversation;
    conversation.rest = {Conversation::page(1).answering(page), Conversation::price(7).cutOff(),
                         Conversation::price(7).answering(onePriceYearly)};
    EXPECT_EQ(conversation.fetched().mrrCents, 100);
}

TEST(LemonSqueezyService, keepsPricesForTheLifeOfTheObject) {
    SmallShop shop;
    const Endpoints endpoints;
    ManualClock clock;
    LemonSqueezyService service(shop, endpoints, clock);
    EXPECT_EQ(service.fetch(u"a"_s).mrrCents, 100);
    clock.advance(365 * 86400.0);
    EXPECT_EQ(service.fetch(u"b"_s).mrrCents, 100);
    EXPECT_EQ(shop.pricesAsked, 1);
    EXPECT_EQ(LemonSqueezyService(shop, endpoints, clock).fetch(u"c"_s).mrrCents, 100);
    EXPECT_EQ(shop.pricesAsked, 2);
}

TEST(LemonSqueezyService, letsAnotherFetchThroughDuringARequest) {
    SmallShop shop;
    const Endpoints endpoints;
    const ManualClock clock;
    LemonSqueezyService service(shop, endpoints, clock);
    std::future<RevenueStats> other;
    shop.whilePriced = [&] {
        other = std::async(std::launch::async, [&service] { return service.fetch(u"b"_s); });
        EXPECT_EQ(other.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    };
    EXPECT_EQ(service.fetch(u"a"_s).mrrCents, 100);
    EXPECT_EQ(other.get().mrrCents, 100);
}

TEST(LemonSqueezyService, servesSeveralThreadsAtOnce) {
    SmallShop shop;
    const Endpoints endpoints;
    const ManualClock clock;
    LemonSqueezyService service(shop, endpoints, clock);
    std::vector<std::future<RevenueStats>> fetches;
    for (int thread = 0; thread < 8; ++thread) {
        fetches.push_back(
            std::async(std::launch::async, [&service] { return service.fetch(u"a"_s); }));
    }
    for (auto &fetch : fetches) {
        EXPECT_EQ(fetch.get().mrrCents, 100);
    }
}

TEST(LemonSqueezyService, storesOfAnotherFormLeaveUsdAndGoOn) {
    for (const char *body : {"{}", "[]", R"({"data":[]})", R"({"data":[{"attributes":null}]})"}) {
        Conversation conversation;
        conversation.stores = conversation.stores.answering(body);
        EXPECT_EQ(told(conversation.fetched()),
                  u"lemonsqueezy | Lemon Squeezy | USD | mrr 0 | arr 0 | paid 42 | trial 5 | "
                  "total - | updated now | no error"_s)
            << body;
    }
}

TEST(LemonSqueezyService, aFailureTellsItsWordsAndKeepsWhatWasRead) {
    const Conversation silent;
    const QByteArray refusal = fixture("lemonsqueezy/error-401.json");
    const QString start = u"lemonsqueezy | Lemon Squeezy | "_s;
    const QString end = u" | not updated | error: "_s;
    EXPECT_EQ(told(Conversation::fetchedBy({silent.stores.answering(refusal, 401)})),
              start + u"USD | mrr - | arr - | paid - | trial - | total -"_s + end +
                  u"Unauthenticated."_s);
    EXPECT_EQ(told(Conversation::fetchedBy({silent.stores, silent.active.cutOff()})),
              start + u"EUR | mrr - | arr - | paid - | trial - | total 845210"_s + end +
                  u"The connection was lost."_s);
    EXPECT_EQ(told(Conversation::fetchedBy(
                  {silent.stores, silent.active, silent.onTrial.answering(badGateway())})),
              start + u"EUR | mrr - | arr - | paid 42 | trial - | total 845210"_s + end +
                  u"HTTP 502"_s);
}

TEST(LemonSqueezyService, aPageThatFailsLeavesNoSum) {
    const QByteArray full = "{\"data\":[" + repeated(subscription(7), 100) + "]}";
    Conversation conversation;
    conversation.rest = {Conversation::page(1).answering(full),
                         Conversation::price(7).answering(onePriceYearly),
                         Conversation::page(2).answering(badGateway())};
    EXPECT_EQ(told(conversation.fetched()),
              u"lemonsqueezy | Lemon Squeezy | EUR | mrr - | arr - | paid 42 | trial 5 | "
              "total 845210 | not updated | error: HTTP 502"_s);
}

TEST(LemonSqueezyService, anEmptyBodyIsAnErrorAtEachStep) {
    const Conversation silent;
    for (std::size_t step = 0; step < 4; ++step) {
        std::vector<Exchange> all = silent.all();
        all.resize(step + 1);
        all[step] = all[step].answering("");
        const RevenueStats stats = Conversation::fetchedBy(all);
        EXPECT_TRUE(stats.error.has_value()) << step;
        EXPECT_EQ(stats.updated, std::nullopt) << step;
    }
}

TEST(LemonSqueezyService, figuresBeyondAllNumbersEndAtTheLimit) {
    Conversation conversation;
    conversation.rest = {Conversation::page(1).answering("{\"data\":[" + subscription(7, 3) + "]}"),
                         Conversation::price(7).answering(
                             R"({"data":{"attributes":{"unit_price":9223372036854775807}}})")};
    const RevenueStats stats = conversation.fetched();
    EXPECT_EQ(stats.mrrCents, std::numeric_limits<qint64>::max());
    EXPECT_EQ(stats.arrCents, std::numeric_limits<qint64>::max());
}

} // namespace zeph
