// SPDX-License-Identifier: MIT
#include "services/revenue/DodoAmounts.h"

#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"
#include "services/web/Saturating.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qsizetype pageSize = 100;
constexpr double minorUnits = 100;

/// Currencies whose amounts are told in whole units.
constexpr std::array<QStringView, 16> zeroDecimal = {u"BIF", u"CLP", u"DJF", u"GNF", u"JPY", u"KMF",
                                                     u"KRW", u"MGA", u"PYG", u"RWF", u"UGX", u"VND",
                                                     u"VUV", u"XAF", u"XOF", u"XPF"};

QString currencyOf(const QJsonObject &item) {
    return json::text(item.value(u"currency")).value_or(u"USD"_s);
}

void add(DodoAmounts::ByCurrency &amounts, const QString &currency, qint64 amount) {
    qint64 &sum = amounts[currency];
    sum = saturating::add(sum, amount);
}

qint64 monthlyCents(const QJsonObject &item) {
    return ProviderHTTP::monthlyCents(
        json::integer(item.value(u"recurring_pre_tax_amount")).value_or(0),
        json::text(item.value(u"payment_frequency_interval")).value_or(u"Month"_s),
        json::integer(item.value(u"payment_frequency_count")).value_or(1));
}

bool hasForeign(const DodoAmounts::ByCurrency &amounts) {
    return std::any_of(amounts.begin(), amounts.end(),
                       [](const auto &entry) { return entry.first != u"USD"; });
}

qint64 inUsd(const QString &currency, qint64 amount, const ExchangeRates &rates) {
    if (currency == u"USD") {
        return amount;
    }
    const auto rate = rates.find(currency);
    if (rate == rates.end() || !(rate->second > 0)) {
        return 0;
    }
    const bool isWhole =
        std::find(zeroDecimal.begin(), zeroDecimal.end(), currency) != zeroDecimal.end();
    const double units = static_cast<double>(amount) / (isWhole ? 1 : minorUnits);
    return saturating::rounded(units / rate->second * minorUnits);
}

} // namespace

bool DodoAmounts::addSubscriptions(const QJsonValue &body) {
    const QJsonArray items = body.toObject().value(u"items").toArray();
    for (const QJsonValue element : items) {
        const QJsonObject item = element.toObject();
        add(monthly, currencyOf(item), monthlyCents(item));
    }
    return items.size() >= pageSize;
}

bool DodoAmounts::addPayments(const QJsonValue &body) {
    const QJsonArray items = body.toObject().value(u"items").toArray();
    for (const QJsonValue element : items) {
        const QJsonObject item = element.toObject();
        add(total, currencyOf(item), json::integer(item.value(u"total_amount")).value_or(0));
        if (const auto customer = customerID(item)) {
            customers.insert(*customer);
        }
    }
    return items.size() >= pageSize;
}

bool DodoAmounts::needsRates() const {
    return hasForeign(monthly) || hasForeign(total);
}

std::optional<QString> DodoAmounts::customerID(const QJsonObject &item) {
    if (auto id = json::text(item.value(u"customer_id"))) {
        return id;
    }
    return json::text(item.value(u"customer").toObject().value(u"customer_id"));
}

ExchangeRates DodoAmounts::usdRates(const QJsonValue &body) {
    ExchangeRates rates;
    const QJsonObject told = body.toObject().value(u"rates").toObject();
    for (auto entry = told.begin(); entry != told.end(); ++entry) {
        if (const auto rate = json::number(entry.value())) {
            rates.emplace(entry.key(), *rate);
        }
    }
    return rates;
}

qint64 DodoAmounts::usdCents(const ByCurrency &amounts, const ExchangeRates &rates) {
    qint64 sum = 0;
    for (const auto &[currency, amount] : amounts) {
        sum = saturating::add(sum, inUsd(currency, amount, rates));
    }
    return sum;
}

} // namespace zeph
