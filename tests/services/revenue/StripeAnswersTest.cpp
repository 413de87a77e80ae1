// SPDX-License-Identifier: MIT
#include "services/revenue/StripeAnswers.h"

#include "services/web/Json.h"
#include "services/web/ServiceError.h"
#include "support/FakeHttpClient.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QJsonObject object(const char *text) {
    return json::parse(text).toObject();
}

} // namespace

TEST(StripeAnswers, aRefusalCarriesItsDomainAndStatus) {
    try {
        StripeAnswers::object(FakeHttpClient::json(R"({"error":{"message":"no"}})", 402));
        FAIL() << "nothing was thrown";
    } catch (const ServiceError &error) {
        EXPECT_EQ(error.domain(), u"Stripe"_s);
        EXPECT_EQ(error.code(), 402);
        EXPECT_EQ(error.description(), u"no"_s);
    }
}

TEST(StripeAnswers, onlyMoneyOfSalesMovesTheRevenue) {
    StripeStats stats;
    StripeAnswers::addTransactions(
        object(R"({"data":[{"amount":100,"type":"charge"},{"amount":50,"type":"payment"},)"
               R"({"amount":-20,"type":"refund"},{"amount":-5,"type":"payment_refund"},)"
               R"({"amount":-9,"type":"stripe_fee"},{"amount":-70,"type":"payout"},)"
               R"({"amount":3,"type":"adjustment"},{"amount":7,"type":"Charge"}]})"),
        stats);
    EXPECT_EQ(stats.todayRevenueCents, 125);
    EXPECT_EQ(stats.todayPayments, 2);
}

TEST(StripeAnswers, aTransactionWithoutAmountIsAPaymentOfNothing) {
    StripeStats stats;
    StripeAnswers::addTransactions(
        object(R"({"data":[{"type":"charge"},{"amount":"5","type":"charge"},)"
               R"({"amount":1.5,"type":"charge"},{"amount":5},{"amount":5,"type":4},6,null]})"),
        stats);
    EXPECT_EQ(stats.todayRevenueCents, 0);
    EXPECT_EQ(stats.todayPayments, 3);
}

TEST(StripeAnswers, aListOfAnotherTypeAddsNothing) {
    StripeStats stats;
    for (const char *page : {"{}", R"({"data":{}})", R"({"data":null})", R"({"data":"x"})"}) {
        StripeAnswers::addTransactions(object(page), stats);
        StripeAnswers::addCustomers(object(page), stats);
        StripeAnswers::addSubscriptions(object(page), {}, stats);
    }
    EXPECT_EQ(stats, StripeStats());
}

TEST(StripeAnswers, aSubscriptionWithoutPriceAndPlanStillCounts) {
    StripeStats stats;
    StripeAnswers::addSubscriptions(
        object(R"({"data":[{"items":{"data":[{"quantity":1}]}},{},null]})"), {}, stats);
    EXPECT_EQ(stats.activeSubscriptions, 3);
    EXPECT_EQ(stats.mrrCents, 0);
}

TEST(StripeAnswers, goesOnOnlyAfterAnElementWithAnIdWhenThereIsMore) {
    EXPECT_EQ(
        StripeAnswers::lastOfMore(object(R"({"data":[{"id":"a"},{"id":"b"}],"has_more":true})")),
        u"b"_s);
    for (const char *page :
         {R"({"data":[{"id":"a"}],"has_more":false})", R"({"data":[{"id":"a"}],"has_more":1})",
          R"({"data":[{"id":"a"}],"has_more":"true"})", R"({"data":[{"id":"a"}]})",
          R"({"data":[],"has_more":true})", R"({"data":[{"id":5}],"has_more":true})",
          R"({"data":["a"],"has_more":true})", R"({"has_more":true})"}) {
        EXPECT_EQ(StripeAnswers::lastOfMore(object(page)), std::nullopt) << page;
    }
}

TEST(StripeAnswers, ratesAreTakenWholeOrNotAtAll) {
    EXPECT_EQ(StripeAnswers::rates(R"({"rates":{"EUR":0.9,"JPY":150}})").size(), 2U);
    for (const char *body : {R"({"rates":{"EUR":0.9,"JPY":null}})", R"({"rates":5})", "{}", "",
                             "NaN", R"({"rates":{"EUR":true}})"}) {
        EXPECT_TRUE(StripeAnswers::rates(body).empty()) << body;
    }
}

} // namespace zeph
