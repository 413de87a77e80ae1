// SPDX-License-Identifier: MIT
#include "services/revenue/StripeAnswers.h"

#include "services/revenue/StripePricing.h"
#include "services/web/Json.h"
#include "services/web/Saturating.h"
#include "services/web/ServiceError.h"

namespace zeph::StripeAnswers {

using namespace Qt::StringLiterals;

namespace {

QJsonObject objectOrEmpty(const QByteArray &body) {
    try {
        return json::parse(body).toObject();
    } catch (const DescribedError &) {
        return {};
    }
}

void addTransaction(const QJsonObject &transaction, StripeStats &stats) {
    const qint64 amount = json::integer(transaction.value(u"amount")).value_or(0);
    const auto type = json::text(transaction.value(u"type"));
    const bool comesIn = type == u"charge" || type == u"payment";
    const bool goesBack = type == u"refund" || type == u"payment_refund"; // a negative amount
    if (comesIn) {
        stats.todayPayments = saturating::add(stats.todayPayments, 1);
    }
    if (comesIn || goesBack) {
        stats.todayRevenueCents = saturating::add(stats.todayRevenueCents, amount);
    }
}

} // namespace

QJsonObject object(const HttpResponse &response) {
    QJsonObject body = objectOrEmpty(response.body);
    if (!response.isSuccess()) {
        const auto words = json::text(body.value(u"error").toObject().value(u"message"));
        throw ServiceError(u"Stripe"_s, response.status,
                           words.value_or(u"Stripe error %1"_s.arg(response.status)));
    }
    return body;
}

void readBalance(const QJsonObject &balance, StripeStats &stats) {
    const QJsonArray available = balance.value(u"available").toArray();
    if (available.isEmpty()) {
        return;
    }
    const QJsonObject first = available.first().toObject();
    stats.availableCents = json::integer(first.value(u"amount")).value_or(0);
    stats.currency = json::text(first.value(u"currency")).value_or(u"usd"_s);
}

std::optional<QString> timeZone(const QJsonObject &account) {
    const QJsonObject settings = account.value(u"settings").toObject();
    return json::text(settings.value(u"dashboard").toObject().value(u"timezone"));
}

ExchangeRates rates(const QByteArray &body) {
    ExchangeRates rates;
    const QJsonObject told = objectOrEmpty(body).value(u"rates").toObject();
    for (auto entry = told.begin(); entry != told.end(); ++entry) {
        const auto rate = json::number(entry.value());
        if (!rate) {
            return {};
        }
        rates.emplace(entry.key(), *rate);
    }
    return rates;
}

void addTransactions(const QJsonObject &page, StripeStats &stats) {
    const QJsonArray transactions = page.value(u"data").toArray();
    for (const QJsonValue transaction : transactions) {
        addTransaction(transaction.toObject(), stats);
    }
}

void addCustomers(const QJsonObject &page, StripeStats &stats) {
    stats.newCustomersToday =
        saturating::add(stats.newCustomersToday, page.value(u"data").toArray().size());
}

void addSubscriptions(const QJsonObject &page, const ExchangeRates &rates, StripeStats &stats) {
    const QJsonArray subscriptions = page.value(u"data").toArray();
    for (const QJsonValue subscription : subscriptions) {
        stats.activeSubscriptions = saturating::add(stats.activeSubscriptions, 1);
        const qint64 cents =
            StripePricing::subscriptionCents(subscription.toObject(), stats.currency, rates);
        stats.mrrCents = saturating::add(stats.mrrCents, cents);
    }
}

std::optional<QString> lastOfMore(const QJsonObject &page) {
    const QJsonArray data = page.value(u"data").toArray();
    if (json::boolean(page.value(u"has_more")) != true || data.isEmpty()) {
        return std::nullopt;
    }
    return json::text(data.last().toObject().value(u"id"));
}

} // namespace zeph::StripeAnswers
