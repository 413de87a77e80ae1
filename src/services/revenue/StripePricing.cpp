// SPDX-License-Identifier: MIT
#include "services/revenue/StripePricing.h"

#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"
#include "services/web/Saturating.h"

#include <algorithm>

namespace zeph::StripePricing {

using namespace Qt::StringLiterals;

namespace {

constexpr double weeksInMonth = 4.333333333333333;
constexpr double daysInMonth = 30.416666666666668;

struct Price {
    qint64 monthCents = 0;
    std::optional<QString> currency = {};
};

std::optional<Price> priceOf(const QJsonObject &item, qint64 quantity) {
    const auto price = json::object(item.value(u"price"));
    if (!price) {
        return std::nullopt;
    }
    const auto amount = json::integer(price->value(u"unit_amount"));
    const auto recurring = json::object(price->value(u"recurring"));
    if (!amount || !recurring) {
        return std::nullopt;
    }
    return Price{monthlyCents(saturating::multiply(*amount, quantity), *recurring),
                 json::text(price->value(u"currency"))};
}

/// The older form of a price, which tells its own interval.
std::optional<Price> planOf(const QJsonObject &item, qint64 quantity) {
    const auto plan = json::object(item.value(u"plan"));
    if (!plan) {
        return std::nullopt;
    }
    const auto amount = json::integer(plan->value(u"amount"));
    if (!amount) {
        return std::nullopt;
    }
    return Price{monthlyCents(saturating::multiply(*amount, quantity), *plan),
                 json::text(plan->value(u"currency"))};
}

/// A rate that is missing leaves the amount as it is: a table that failed to load must not turn
/// revenue into nothing.
qint64 converted(qint64 cents, const QString &from, const QString &to, const ExchangeRates &rates) {
    const QString code = from.toUpper();
    if (code == to.toUpper()) {
        return cents;
    }
    const auto rate = rates.find(code);
    if (rate == rates.end() || !(rate->second > 0)) {
        return cents;
    }
    return saturating::rounded(static_cast<double>(cents) / rate->second);
}

qint64 itemCents(const QJsonObject &item, const QString &currency, const ExchangeRates &rates) {
    const qint64 quantity = json::integer(item.value(u"quantity")).value_or(1);
    auto price = priceOf(item, quantity);
    if (!price) {
        price = planOf(item, quantity);
    }
    if (!price) {
        return 0;
    }
    return converted(price->monthCents, price->currency.value_or(currency), currency, rates);
}

} // namespace

qint64 monthlyCents(qint64 amount, const QJsonObject &recurring) {
    const QString interval = json::text(recurring.value(u"interval")).value_or(u"month"_s);
    const qint64 told = json::integer(recurring.value(u"interval_count")).value_or(1);
    const auto count = static_cast<double>(std::max<qint64>(told, 1));
    const auto cents = static_cast<double>(amount);
    if (interval == u"year") {
        return saturating::rounded(cents / (count * ProviderHTTP::monthsInYear));
    }
    if (interval == u"week") {
        return saturating::rounded(cents * weeksInMonth / count);
    }
    if (interval == u"day") {
        return saturating::rounded(cents * daysInMonth / count);
    }
    return saturating::rounded(cents / count);
}

qint64 applyDiscount(qint64 amount, const std::optional<QJsonObject> &discount) {
    const auto coupon = discount ? json::object(discount->value(u"coupon")) : std::nullopt;
    if (!coupon) {
        return amount;
    }
    if (const auto percent = json::number(coupon->value(u"percent_off"))) {
        return saturating::rounded(static_cast<double>(amount) * (1 + *percent / -100));
    }
    if (const auto off = json::integer(coupon->value(u"amount_off"))) {
        return std::max<qint64>(saturating::subtract(amount, *off), 0);
    }
    return amount;
}

qint64 subscriptionCents(const QJsonObject &subscription, const QString &currency,
                         const ExchangeRates &rates) {
    qint64 sum = 0;
    const QJsonArray items = subscription.value(u"items").toObject().value(u"data").toArray();
    for (const QJsonValue item : items) {
        sum = saturating::add(sum, itemCents(item.toObject(), currency, rates));
    }
    return applyDiscount(sum, json::object(subscription.value(u"discount")));
}

} // namespace zeph::StripePricing
