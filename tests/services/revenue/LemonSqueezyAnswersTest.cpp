// SPDX-License-Identifier: MIT
#include "services/revenue/LemonSqueezyAnswers.h"

#include "services/web/Json.h"
#include "services/web/ServiceError.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

LemonSqueezyPrice priceOf(const QByteArray &attributes) {
    return LemonSqueezyAnswers::price(json::parse(R"({"data":{"attributes":)" + attributes + "}}"));
}

} // namespace

TEST(LemonSqueezyAnswers, readsAPriceAsNumberOrAsText) {
    const LemonSqueezyPrice expected{999, u"year"_s, 2};
    EXPECT_EQ(priceOf(R"({"unit_price":999,"renewal_interval_unit":"year",)"
                      R"("renewal_interval_quantity":2})"),
              expected);
    EXPECT_EQ(priceOf(R"({"unit_price":"999","renewal_interval_unit":"year",)"
                      R"("renewal_interval_quantity":2})"),
              expected);
    EXPECT_EQ(priceOf(R"({"unit_price":"+12"})").cents, 12);
    EXPECT_EQ(priceOf(R"({"unit_price":"-12"})").cents, -12);
}

TEST(LemonSqueezyAnswers, aPriceWithoutIntervalIsForAMonth) {
    const LemonSqueezyPrice expected{5, u"month"_s, 1};
    EXPECT_EQ(priceOf(R"({"unit_price":5})"), expected);
    EXPECT_EQ(priceOf(R"({"unit_price":5,"renewal_interval_unit":null,)"
                      R"("renewal_interval_quantity":"3"})"),
              expected);
}

TEST(LemonSqueezyAnswers, refusesAPriceWithoutAWholeAmount) {
    for (const char *price : {"null", "9.5", "\"9.5\"", "\" 9\"", "\"9 \"", "\"\"", "\"-\"",
                              "\"9e3\"", "\"0x9\"", "\"99999999999999999999\"", "true", "[9]"}) {
        try {
            priceOf(QByteArray(R"({"unit_price":)") + price + '}');
            ADD_FAILURE() << price;
        } catch (const ServiceError &error) {
            EXPECT_EQ(error.description(), u"price not found"_s);
        }
    }
    for (const char *body : {"{}", "[]", "3", R"({"data":[]})", R"({"data":{"attributes":7}})"}) {
        EXPECT_THROW(LemonSqueezyAnswers::price(json::parse(body)), ServiceError) << body;
    }
}

TEST(LemonSqueezyAnswers, looksOnlyAtTheFirstStore) {
    RevenueStats stats;
    LemonSqueezyAnswers::readStore(
        json::parse(R"({"data":[{"attributes":{"total_revenue":70,"currency":"EUR"}},)"
                    R"({"attributes":{"total_revenue":9,"currency":"GBP"}}]})"),
        stats);
    EXPECT_EQ(stats.totalRevenueCents, 70);
    EXPECT_EQ(stats.currency, u"EUR"_s);
}

TEST(LemonSqueezyAnswers, aStoreWithoutFiguresIsInUsdWithoutRevenue) {
    RevenueStats stats;
    stats.currency = u"before"_s;
    LemonSqueezyAnswers::readStore(
        json::parse(R"({"data":[{"attributes":{"total_revenue":"70","currency":4}}]})"), stats);
    EXPECT_EQ(stats.totalRevenueCents, std::nullopt);
    EXPECT_EQ(stats.currency, u"USD"_s);
}

TEST(LemonSqueezyAnswers, storesOfAnotherFormChangeNothing) {
    RevenueStats stats;
    stats.currency = u"before"_s;
    const RevenueStats before = stats;
    for (const char *body : {"{}", "[]", "null", R"({"data":[]})", R"({"data":{}})",
                             R"({"data":[4]})", R"({"data":[{"attributes":[]}]})"}) {
        LemonSqueezyAnswers::readStore(json::parse(body), stats);
        EXPECT_EQ(stats, before) << body;
    }
}

TEST(LemonSqueezyAnswers, aTotalThatIsNotToldIsNothing) {
    EXPECT_EQ(LemonSqueezyAnswers::total(json::parse(R"({"meta":{"page":{"total":42}}})")), 42);
    for (const char *body : {"{}", "[]", R"({"meta":[]})", R"({"meta":{"page":7}})",
                             R"({"meta":{"page":{"total":"42"}}})"}) {
        EXPECT_EQ(LemonSqueezyAnswers::total(json::parse(body)), 0) << body;
    }
}

TEST(LemonSqueezyAnswers, leavesOutSubscriptionsWithoutAWholePriceId) {
    const auto page = LemonSqueezyAnswers::subscriptions(json::parse(
        R"({"data":[{"attributes":{"first_subscription_item":{"price_id":1,"quantity":4}}},)"
        R"({"attributes":{"first_subscription_item":{"price_id":2,"quantity":"x"}}},)"
        R"({"attributes":{"first_subscription_item":{"price_id":"3"}}},)"
        R"({"attributes":{"first_subscription_item":{"price_id":3.5}}},)"
        R"({"attributes":{"first_subscription_item":null}},{"attributes":[]},{},9]})"));
    const std::vector<LemonSqueezyAnswers::Item> expected{{1, 4}, {2, 1}};
    EXPECT_EQ(page.items, expected);
    EXPECT_FALSE(page.isFull);
}

} // namespace zeph
