// SPDX-License-Identifier: MIT
#include "services/revenue/LemonSqueezyAnswers.h"

#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

#include <algorithm>

namespace zeph::LemonSqueezyAnswers {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype pageSize = 100;

/// Digits with a sign at most: the library would pass over blanks.
std::optional<qint64> wholeText(const QString &text) {
    QStringView digits = text;
    if (digits.startsWith(u'+') || digits.startsWith(u'-')) {
        digits = digits.sliced(1);
    }
    const bool plain =
        std::all_of(digits.begin(), digits.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    bool ok = false;
    const qint64 whole = text.toLongLong(&ok);
    return plain && ok ? std::optional(whole) : std::nullopt;
}

std::optional<qint64> unitPrice(const QJsonValue &value) {
    const auto text = json::text(value);
    return text ? wholeText(*text) : json::integer(value);
}

} // namespace

void readStore(const QJsonValue &body, RevenueStats &stats) {
    const QJsonArray stores = body.toObject().value(u"data").toArray();
    const auto attributes = json::object(stores.first().toObject().value(u"attributes"));
    if (!attributes) {
        return;
    }
    stats.totalRevenueCents = json::integer(attributes->value(u"total_revenue"));
    stats.currency = json::text(attributes->value(u"currency")).value_or(u"USD"_s);
}

qint64 total(const QJsonValue &body) {
    const QJsonObject meta = body.toObject().value(u"meta").toObject();
    return json::integer(meta.value(u"page").toObject().value(u"total")).value_or(0);
}

Page subscriptions(const QJsonValue &body) {
    const QJsonArray data = body.toObject().value(u"data").toArray();
    Page page;
    page.isFull = data.size() >= pageSize;
    for (const QJsonValue element : data) {
        const QJsonObject attributes = element.toObject().value(u"attributes").toObject();
        const QJsonObject item = attributes.value(u"first_subscription_item").toObject();
        if (const auto id = json::integer(item.value(u"price_id"))) {
            page.items.push_back({*id, json::integer(item.value(u"quantity")).value_or(1)});
        }
    }
    return page;
}

LemonSqueezyPrice price(const QJsonValue &body) {
    const QJsonObject data = body.toObject().value(u"data").toObject();
    const QJsonObject attributes = data.value(u"attributes").toObject();
    const auto cents = unitPrice(attributes.value(u"unit_price"));
    if (!cents) {
        throw ProviderHTTP::err(u"price not found"_s);
    }
    return {*cents, json::text(attributes.value(u"renewal_interval_unit")).value_or(u"month"_s),
            json::integer(attributes.value(u"renewal_interval_quantity")).value_or(1)};
}

} // namespace zeph::LemonSqueezyAnswers
