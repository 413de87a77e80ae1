// SPDX-License-Identifier: MIT
#pragma once

#include "model/StripeStats.h"
#include "services/revenue/StripeService.h"
#include "services/web/ContractServer.h"
#include "services/web/Endpoints.h"
#include "support/DateOf.h"
#include "support/ManualClock.h"
#include "support/UtcCalendar.h"

namespace zeph {

/// A whole fetch from an account that sold nothing, request by request; a test changes the answers
/// it is about. It is 22:15 in New York, where the account is, and already the next day in UTC.
struct StripeConversation {
    static Exchange ask(const QByteArray &pathAndQuery) {
        return {getRequest("https://api.stripe.com/v1/" + pathAndQuery,
                           {{"Authorization", "Bearer rk_live_1"}})};
    }
    static Exchange askRates(const QByteArray &base) {
        return {getRequest("https://open.er-api.com/v6/latest/" + base, {})};
    }

    static constexpr const char *now = "2025-11-14T03:15:30.750Z";
    static constexpr const char *todayInNewYork = "created%5Bgte%5D=1763010000&limit=100";
    static constexpr const char *todayInUtc = "created%5Bgte%5D=1763078400&limit=100";
    static constexpr const char *emptyList = R"({"object":"list","data":[],"has_more":false})";

    Exchange balance = ask("balance").answering(fixture("stripe/balance.json"));
    Exchange rates = askRates("USD").answering(fixture("exchangerates/usd.json"));
    Exchange account = ask("account").answering(fixture("stripe/account.json"));
    std::vector<Exchange> transactions = {list("balance_transactions", todayInNewYork)};
    std::vector<Exchange> customers = {list("customers", todayInNewYork)};
    std::vector<Exchange> subscriptions = {list("subscriptions", "status=active&limit=100")};

    static Exchange list(const QByteArray &name, const QByteArray &query) {
        return ask(name + '?' + query).answering(emptyList);
    }

    /// The record, or nothing but a failed test when the service says what isn't written here.
    StripeStats fetched() const {
        std::vector<Exchange> all{balance, rates, account};
        all.insert(all.end(), transactions.begin(), transactions.end());
        all.insert(all.end(), customers.begin(), customers.end());
        all.insert(all.end(), subscriptions.begin(), subscriptions.end());
        return fetchedBy(all);
    }

    static StripeStats fetchedBy(const std::vector<Exchange> &all) {
        ContractServer server(all);
        const Endpoints endpoints;
        ManualClock clock(dateOf(now).secondsSince1970);
        const UtcCalendar calendar;
        return StripeService(server.client(), endpoints, clock, calendar)
            .fetch(QStringLiteral("rk_live_1"));
    }

    /// The record in one line.
    static QString told(const StripeStats &stats) {
        return QStringLiteral("%1 today %2 in %3, %4 new, mrr %5 of %6, available %7, %8, %9")
            .arg(stats.currency)
            .arg(stats.todayRevenueCents)
            .arg(stats.todayPayments)
            .arg(stats.newCustomersToday)
            .arg(stats.mrrCents)
            .arg(stats.activeSubscriptions)
            .arg(stats.availableCents)
            .arg(stats.updated == dateOf(now) ? QStringLiteral("updated now")
                 : stats.updated              ? QStringLiteral("updated at another time")
                                              : QStringLiteral("not updated"))
            .arg(stats.error ? QStringLiteral("error: ") + *stats.error
                             : QStringLiteral("no error"));
    }
};

} // namespace zeph
