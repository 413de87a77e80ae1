// SPDX-License-Identifier: MIT
#include "services/revenue/StripeConversation.h"

#include "adapters/locale/IcuCalendar.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QString told(const StripeConversation &conversation) {
    return StripeConversation::told(conversation.fetched());
}

QByteArray listOf(const QByteArray &elements, bool isMore = false) {
    return "{\"object\":\"list\",\"data\":[" + elements +
           "],\"has_more\":" + (isMore ? "true" : "false") + '}';
}

/// `count` transactions of one cent, the last with the id "txn_{page}".
QByteArray fullPage(int page, int count) {
    QByteArray elements;
    for (int index = 1; index <= count; ++index) {
        const QByteArray id = index == count ? QByteArray("txn_") + QByteArray::number(page) : "t";
        elements +=
            R"({"id":")" + id + R"(","amount":1,"type":"charge"})" + (index == count ? "" : ",");
    }
    return listOf(elements, true);
}

} // namespace

TEST(StripeService, readsAWholeAccount) {
    StripeConversation conversation;
    const QByteArray today = StripeConversation::todayInNewYork;
    const Exchange first = conversation.transactions[0];
    conversation.transactions = {
        first.answering(fixture("stripe/balance_transactions-1.json")),
        StripeConversation::list("balance_transactions", today + "&starting_after=txn_3QKa03")
            .answering(fixture("stripe/balance_transactions-2.json"))};
    conversation.customers[0].response.body = fixture("stripe/customers.json");
    conversation.subscriptions[0].response.body = fixture("stripe/subscriptions.json");
    EXPECT_EQ(told(conversation), u"usd today 5500 in 2, 2 new, mrr 12874 of 3, available 482315, "
                                  "updated now, no error"_s);
}

TEST(StripeService, fillsAnIdentityThatIsNewEachTimeAndNoLabel) {
    const StripeStats first = StripeConversation().fetched();
    const StripeStats second = StripeConversation().fetched();
    EXPECT_FALSE(first.connectionId.isNull());
    EXPECT_NE(first.connectionId, second.connectionId);
    EXPECT_EQ(first.label, QString());
}

TEST(StripeService, anAccountWithNothingAvailableStaysAtUsdAndGoesOnToTheLists) {
    for (const char *body : {R"({"available":[]})", "{}", R"({"available":"none"})"}) {
        StripeConversation conversation;
        conversation.balance = conversation.balance.answering(body);
        conversation.customers[0].response.body = listOf(R"({"id":"cus_1"})");
        EXPECT_EQ(told(conversation),
                  u"usd today 0 in 0, 1 new, mrr 0 of 0, available 0, updated now, no error"_s)
            << body;
    }
}

TEST(StripeService, aRefundAfterAChargeLowersTheRevenueAndNotThePayments) {
    StripeConversation conversation;
    conversation.transactions[0].response.body = listOf(
        R"({"id":"a","amount":2000,"type":"charge"},{"id":"b","amount":-500,"type":"refund"})");
    const StripeStats stats = conversation.fetched();
    EXPECT_EQ(stats.todayRevenueCents, 1500);
    EXPECT_EQ(stats.todayPayments, 1);
}

TEST(StripeService, asksForRatesAgainstTheAccountsOwnCurrency) {
    StripeConversation conversation;
    conversation.balance =
        conversation.balance.answering(R"({"available":[{"amount":70,"currency":"eur"}]})");
    conversation.rates = StripeConversation::askRates("EUR").answering(R"({"rates":{"USD":2}})");
    conversation.subscriptions[0].response.body =
        listOf(R"({"id":"s","items":{"data":[{"price":{"unit_amount":1000,"currency":"usd",)"
               R"("recurring":{"interval":"month"}}}]}})");
    EXPECT_EQ(told(conversation),
              u"eur today 0 in 0, 0 new, mrr 500 of 1, available 70, updated now, no error"_s);
}

TEST(StripeService, asksForNoRatesOfACurrencyThatCanNotStandInAUrl) {
    const StripeConversation silent;
    std::vector<Exchange> all{
        silent.balance.answering(R"({"available":[{"amount":1,"currency":"a b"}]})"),
        silent.account, silent.transactions[0], silent.customers[0], silent.subscriptions[0]};
    EXPECT_EQ(StripeConversation::told(StripeConversation::fetchedBy(all)),
              u"a b today 0 in 0, 0 new, mrr 0 of 0, available 1, updated now, no error"_s);
}

TEST(StripeService, neverAsksForATwentyFirstPage) {
    StripeConversation conversation;
    const QByteArray today = StripeConversation::todayInNewYork;
    conversation.transactions.clear();
    for (int page = 1; page <= 20; ++page) {
        const QByteArray after =
            page == 1 ? QByteArray() : "&starting_after=txn_" + QByteArray::number(page - 1);
        conversation.transactions.push_back(
            StripeConversation::list("balance_transactions", today + after)
                .answering(fullPage(page, 100)));
    }
    const StripeStats stats = conversation.fetched();
    EXPECT_EQ(stats.todayPayments, 2000);
    EXPECT_EQ(stats.todayRevenueCents, 2000);
    EXPECT_TRUE(stats.updated.has_value());
}

TEST(StripeService, startsEachListAtItsFirstPage) {
    StripeConversation conversation;
    const QByteArray today = StripeConversation::todayInNewYork;
    conversation.customers = {
        conversation.customers[0].answering(listOf(R"({"id":"cus_1"},{"id":"cus 2&"})", true)),
        StripeConversation::list("customers", today + "&starting_after=cus%202%26")
            .answering(listOf(R"({"id":"cus_3"})"))};
    conversation.subscriptions = {
        conversation.subscriptions[0].answering(listOf(R"({"id":"sub_1"})", true)),
        StripeConversation::list("subscriptions", "status=active&limit=100&starting_after=sub_1")};
    const StripeStats stats = conversation.fetched();
    EXPECT_EQ(stats.newCustomersToday, 3);
    EXPECT_EQ(stats.activeSubscriptions, 1);
}

TEST(StripeService, takesTodayInTheUsersZoneWhereTheAccountsIsNotKnown) {
    for (const char *body :
         {R"({"settings":{"dashboard":{"timezone":"Mars/Olympus"}}})",
          R"({"settings":{"dashboard":{"timezone":5}}})", R"({"settings":{}})", "{}", "[]"}) {
        StripeConversation conversation;
        conversation.account = conversation.account.answering(body);
        conversation.transactions = {
            StripeConversation::list("balance_transactions", StripeConversation::todayInUtc)};
        conversation.customers = {
            StripeConversation::list("customers", StripeConversation::todayInUtc)};
        EXPECT_TRUE(conversation.fetched().updated.has_value()) << body;
    }
}

TEST(StripeService, takesTheAccountsDayByTheCalendarOfTheProgram) {
    const StripeConversation silent;
    ContractServer server({silent.balance, silent.rates, silent.account, silent.transactions[0],
                           silent.customers[0], silent.subscriptions[0]});
    const Endpoints endpoints;
    ManualClock clock(dateOf(StripeConversation::now).secondsSince1970);
    const IcuCalendar calendar(u"th_TH"_s, u"Asia/Bangkok"_s);
    const StripeService service(server.client(), endpoints, clock, calendar);
    EXPECT_EQ(service.fetch(u"rk_live_1"_s).error, std::nullopt);
}

} // namespace zeph
