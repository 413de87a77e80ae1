// SPDX-License-Identifier: MIT
#include "services/revenue/DodoService.h"

#include "services/revenue/RevenueTold.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

Exchange ask(const QByteArray &pathAndQuery) {
    return {getRequest("https://live.dodopayments.com/" + pathAndQuery,
                       {{"Accept", "application/json"}, {"Authorization", "Bearer k1"}})};
}

Exchange subscriptions(int page, const QByteArray &suffix = {}) {
    return ask("subscriptions?status=active&page_size=100&page_number=" + QByteArray::number(page) +
               suffix)
        .answering(R"({"items":[]})");
}

Exchange payments(int page, const QByteArray &suffix = {}) {
    return ask("payments?status=succeeded&page_size=100&page_number=" + QByteArray::number(page) +
               suffix)
        .answering(R"({"items":[]})");
}

Exchange rates() {
    return Exchange{
        getRequest("https://open.er-api.com/v6/latest/USD", {{"Accept", "application/json"}})}
        .answering(fixture("exchangerates/usd.json"));
}

RevenueStats fetched(std::vector<Exchange> conversation, const QString &brand = {}) {
    ContractServer server(std::move(conversation));
    const Endpoints endpoints;
    const ManualClock clock(dateOf(fetchTime).secondsSince1970);
    return DodoService(server.client(), endpoints, clock).fetch(u"k1"_s, brand);
}

QString failed(const QString &error) {
    return u"dodo | Dodo Payments | USD | mrr - | arr - | paid - | trial - | total - | "
           "not updated | error: "_s +
           error;
}

QByteArray itemsOf(const QByteArray &elements) {
    return "{\"items\":[" + elements + "]}";
}

} // namespace

TEST(DodoService, sumsSubscriptionsAndPaymentsInUsd) {
    EXPECT_EQ(told(fetched({subscriptions(0).answering(fixture("dodo/subscriptions-0.json")),
                            payments(0).answering(fixture("dodo/payments-0.json")), rates()})),
              u"dodo | Dodo Payments | USD | mrr 4500 | arr 54000 | paid 2 | trial - | "
              "total 4367 | updated now | no error"_s);
}

TEST(DodoService, anAccountInUsdAloneNeverAsksForRates) {
    const QByteArray item = R"({"currency":"USD","recurring_pre_tax_amount":100,)"
                            R"("total_amount":70,"customer_id":"c"})";
    EXPECT_EQ(told(fetched({subscriptions(0).answering(itemsOf(item)),
                            payments(0).answering(itemsOf(item))})),
              u"dodo | Dodo Payments | USD | mrr 100 | arr 1200 | paid 1 | trial - | total 70 | "
              "updated now | no error"_s);
}

TEST(DodoService, anAccountThatSoldNothingHasFiguresOfNothing) {
    for (const char *body : {R"({"items":[]})", "{}", "[]", "null"}) {
        EXPECT_EQ(told(fetched({subscriptions(0).answering(body), payments(0).answering(body)})),
                  u"dodo | Dodo Payments | USD | mrr 0 | arr 0 | paid 0 | trial - | total 0 | "
                  "updated now | no error"_s)
            << body;
    }
}

TEST(DodoService, aCustomerWithTenPaymentsCountsOnce) {
    const QByteArray payment = R"({"total_amount":5,"customer":{"customer_id":"c"}})";
    const RevenueStats stats =
        fetched({subscriptions(0), payments(0).answering(itemsOf(repeated(payment, 10)))});
    EXPECT_EQ(stats.paidCustomers, 1);
    EXPECT_EQ(stats.totalRevenueCents, 50);
}

TEST(DodoService, aPaymentWithoutACustomerCountsInTheTotalAlone) {
    const RevenueStats stats =
        fetched({subscriptions(0), payments(0).answering(itemsOf(R"({"total_amount":5})"))});
    EXPECT_EQ(stats.paidCustomers, 0);
    EXPECT_EQ(stats.totalRevenueCents, 5);
}

TEST(DodoService, readsAtMostFivePagesOfEach) {
    const QByteArray full =
        itemsOf(repeated(R"({"recurring_pre_tax_amount":1,"total_amount":2})", 100));
    std::vector<Exchange> conversation;
    for (int page = 0; page < 5; ++page) {
        conversation.push_back(subscriptions(page).answering(full));
    }
    for (int page = 0; page < 5; ++page) {
        conversation.push_back(payments(page).answering(full));
    }
    const RevenueStats stats = fetched(conversation);
    EXPECT_EQ(stats.mrrCents, 500);
    EXPECT_EQ(stats.totalRevenueCents, 1000);
}

TEST(DodoService, stopsAfterAPageThatIsNotFullOrEmpty) {
    const QByteArray full = itemsOf(repeated(R"({"recurring_pre_tax_amount":1})", 100));
    const QByteArray nearlyFull = itemsOf(repeated(R"({"total_amount":1})", 99));
    const RevenueStats stats = fetched(
        {subscriptions(0).answering(full), subscriptions(1), payments(0).answering(nearlyFull)});
    EXPECT_EQ(stats.mrrCents, 100);
    EXPECT_EQ(stats.totalRevenueCents, 99);
}

TEST(DodoService, asksForOneBrandOnEveryPage) {
    const QByteArray full = itemsOf(repeated("{}", 100));
    fetched({subscriptions(0, "&brand_id=brand%20%C3%BC").answering(full),
             subscriptions(1, "&brand_id=brand%20%C3%BC"), payments(0, "&brand_id=brand%20%C3%BC")},
            u" brand ü\n"_s);
}

TEST(DodoService, aBlankBrandAsksForAllTogether) {
    EXPECT_EQ(fetched({subscriptions(0), payments(0)}, u" \n"_s).error, std::nullopt);
}

TEST(DodoService, withoutRatesForeignAmountsDropOut) {
    for (const Exchange &failing :
         {rates().cutOff(), rates().answering(badGateway()), rates().answering(""),
          rates().answering(R"({"rates":null})"), rates().answering(R"({"rates":{"EUR":0}})"),
          rates().answering(R"({"rates":{"EUR":0.5}})", 503)}) {
        EXPECT_EQ(told(fetched({subscriptions(0).answering(fixture("dodo/subscriptions-0.json")),
                                payments(0), failing})),
                  u"dodo | Dodo Payments | USD | mrr 2500 | arr 30000 | paid 0 | trial - | "
                  "total 0 | updated now | no error"_s)
            << failing.response.body.toStdString();
    }
}

TEST(DodoService, aFailureOfAListIsToldInItsWords) {
    const QByteArray refusal = fixture("dodo/error-401.json");
    EXPECT_EQ(told(fetched({subscriptions(0).answering(refusal, 401)})),
              failed(u"Invalid API key"_s));
    EXPECT_EQ(told(fetched({subscriptions(0).answering(badGateway())})), failed(u"HTTP 502"_s));
    EXPECT_EQ(told(fetched({subscriptions(0).cutOff()})), failed(u"The connection was lost."_s));
    EXPECT_EQ(told(fetched({subscriptions(0), payments(0).answering(R"({"error":"no"})", 403)})),
              failed(u"no"_s));
    EXPECT_EQ(told(fetched({subscriptions(0), payments(0).cutOff()})),
              failed(u"The connection was lost."_s));
}

TEST(DodoService, aBodyThatIsNoJsonIsAnError) {
    for (const char *body : {"", "<html>", R"({"items":[NaN]})"}) {
        const RevenueStats stats = fetched({subscriptions(0), payments(0).answering(body)});
        EXPECT_TRUE(stats.error.has_value()) << body;
        EXPECT_EQ(stats.mrrCents, std::nullopt) << body;
        EXPECT_EQ(stats.updated, std::nullopt) << body;
    }
}

} // namespace zeph
