// SPDX-License-Identifier: MIT
#include "services/revenue/StripeConversation.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The record when the balance, the first thing that is asked, gets this answer.
QString toldAfterBalance(const Exchange &balance) {
    return StripeConversation::told(StripeConversation::fetchedBy({balance}));
}

QString nothingBut(const QString &error) {
    return u"usd today 0 in 0, 0 new, mrr 0 of 0, available 0, not updated, error: "_s + error;
}

const char *const anItemInEuro =
    R"({"data":[{"id":"s","items":{"data":[{"price":{"unit_amount":1000,"currency":"eur",)"
    R"("recurring":{"interval":"month"}}}]}}],"has_more":false})";

} // namespace

TEST(StripeFailures, aRejectedKeyIsToldInStripesWords) {
    const Exchange balance = StripeConversation().balance;
    EXPECT_EQ(toldAfterBalance(balance.answering(fixture("stripe/error-401.json"), 401)),
              nothingBut(u"Invalid API Key provided: rk_live_****************wxyz"_s));
}

TEST(StripeFailures, aRefusalWithoutWordsIsToldByItsStatus) {
    const Exchange balance = StripeConversation().balance;
    EXPECT_EQ(toldAfterBalance(balance.answering(badGateway())), nothingBut(u"Stripe error 502"_s));
    EXPECT_EQ(toldAfterBalance(balance.answering("", 500)), nothingBut(u"Stripe error 500"_s));
    EXPECT_EQ(toldAfterBalance(balance.answering(R"({"error":"no","message":"no"})", 429)),
              nothingBut(u"Stripe error 429"_s));
    EXPECT_EQ(toldAfterBalance(balance.answering(R"({"error":{"message":7}})", 304)),
              nothingBut(u"Stripe error 304"_s));
}

TEST(StripeFailures, aNetworkThatIsDownIsToldInItsOwnWords) {
    EXPECT_EQ(toldAfterBalance(StripeConversation().balance.cutOff()),
              nothingBut(u"The connection was lost."_s));
}

TEST(StripeFailures, aBalanceOfSuccessThatIsNoJsonCountsAsEmpty) {
    for (const char *body : {"", "<html>", "[1]", "12", R"({"available":[NaN]})"}) {
        StripeConversation conversation;
        conversation.balance = conversation.balance.answering(body);
        EXPECT_EQ(StripeConversation::told(conversation.fetched()),
                  u"usd today 0 in 0, 0 new, mrr 0 of 0, available 0, updated now, no error"_s)
            << body;
    }
}

TEST(StripeFailures, aBalanceOfAnotherTypeCountsAsNothingInUsd) {
    for (const char *first : {R"({"amount":"12","currency":7})", R"({"amount":1.5})", "3", "null",
                              R"({"amount":1e300,"currency":null})"}) {
        StripeConversation conversation;
        conversation.balance =
            conversation.balance.answering(QByteArray(R"({"available":[)") + first + "]}");
        const StripeStats stats = conversation.fetched();
        EXPECT_EQ(stats.availableCents, 0) << first;
        EXPECT_EQ(stats.currency, u"usd"_s) << first;
    }
}

TEST(StripeFailures, anAccountThatCanNotBeReadLeavesTheUsersZone) {
    const StripeConversation silent;
    for (const Exchange &account :
         {silent.account.cutOff(), silent.account.answering(fixture("stripe/error-403.json"), 403),
          silent.account.answering(badGateway()), silent.account.answering("")}) {
        StripeConversation conversation;
        conversation.account = account;
        conversation.transactions = {
            StripeConversation::list("balance_transactions", StripeConversation::todayInUtc)};
        conversation.customers = {
            StripeConversation::list("customers", StripeConversation::todayInUtc)};
        const StripeStats stats = conversation.fetched();
        EXPECT_TRUE(stats.updated.has_value());
        EXPECT_EQ(stats.error, std::nullopt);
    }
}

TEST(StripeFailures, ratesThatCanNotBeReadLeaveForeignPricesUnconverted) {
    const Exchange rates = StripeConversation().rates;
    for (const Exchange &failing :
         {rates.cutOff(), rates.answering(badGateway()), rates.answering(""),
          rates.answering(R"({"result":"error","error-type":"unsupported-code"})"),
          rates.answering(R"({"rates":{"EUR":0.5,"GBP":"0.7"}})"),
          rates.answering(R"({"rates":{"EUR":0}})"), rates.answering(R"({"rates":{"EUR":-2}})"),
          rates.answering(R"({"rates":[0.5]})")}) {
        StripeConversation conversation;
        conversation.rates = failing;
        conversation.subscriptions[0].response.body = anItemInEuro;
        const StripeStats stats = conversation.fetched();
        EXPECT_EQ(stats.mrrCents, 1000) << failing.response.body.toStdString();
        EXPECT_TRUE(stats.updated.has_value());
        EXPECT_EQ(stats.error, std::nullopt);
    }
}

TEST(StripeFailures, aListThatFailsStopsThereAndTheOthersGoOn) {
    const StripeConversation silent;
    const QByteArray today = StripeConversation::todayInNewYork;
    const Exchange second =
        StripeConversation::list("balance_transactions", today + "&starting_after=txn_3QKa03");
    for (const Exchange &failing :
         {second.cutOff(), second.answering(badGateway()),
          second.answering(fixture("stripe/error-403.json"), 403), second.answering("<html>")}) {
        StripeConversation conversation;
        conversation.transactions = {
            silent.transactions[0].answering(fixture("stripe/balance_transactions-1.json")),
            failing};
        conversation.customers[0].response.body = fixture("stripe/customers.json");
        EXPECT_EQ(StripeConversation::told(conversation.fetched()),
                  u"usd today 1500 in 1, 2 new, mrr 0 of 0, available 482315, updated now, "
                  "no error"_s);
    }
}

TEST(StripeFailures, aKeyWithoutPermissionLeavesTheFiguresAtNothing) {
    StripeConversation conversation;
    const QByteArray refusal = fixture("stripe/error-403.json");
    conversation.customers[0] = conversation.customers[0].answering(refusal, 403);
    conversation.subscriptions[0] = conversation.subscriptions[0].answering(refusal, 403);
    EXPECT_EQ(StripeConversation::told(conversation.fetched()),
              u"usd today 0 in 0, 0 new, mrr 0 of 0, available 482315, updated now, no error"_s);
}

TEST(StripeFailures, figuresBeyondAllNumbersEndAtTheLimit) {
    StripeConversation conversation;
    conversation.transactions[0].response.body =
        R"({"data":[{"amount":9223372036854775807,"type":"charge"},)"
        R"({"amount":9223372036854775807,"type":"payment"}]})";
    conversation.subscriptions[0].response.body =
        R"({"data":[{"items":{"data":[{"quantity":9223372036854775807,"plan":)"
        R"({"amount":9223372036854775807,"interval":"day"}}]}}]})";
    const StripeStats stats = conversation.fetched();
    EXPECT_EQ(stats.todayRevenueCents, std::numeric_limits<qint64>::max());
    EXPECT_EQ(stats.todayPayments, 2);
    EXPECT_EQ(stats.mrrCents, std::numeric_limits<qint64>::max());
}

TEST(StripeFailures, aCancelledClientEndsInARecordWithItsWords) {
    FakeHttpClient client([](const HttpRequest &) { return FakeHttpClient::json("{}"); });
    client.cancelAll();
    const Endpoints endpoints;
    const ManualClock clock;
    const UtcCalendar calendar;
    const StripeStats stats =
        StripeService(client, endpoints, clock, calendar).fetch(u"rk_live_1"_s);
    EXPECT_EQ(stats.error, u"The request was cancelled."_s);
    EXPECT_EQ(stats.updated, std::nullopt);
}

} // namespace zeph
