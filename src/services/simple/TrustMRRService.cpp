// SPDX-License-Identifier: MIT
#include "services/simple/TrustMRRService.h"

#include "services/simple/SimpleNumbers.h"
#include "services/simple/UrlPart.h"
#include "services/web/Authorization.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Chips = std::vector<IntegrationChip>;

void addRevenue(const QJsonObject &revenue, const FramingContext &framing, Chips &chips) {
    if (const auto cents = usdToCents(revenue.value(u"mrr"))) {
        chips.push_back(
            {u"repeat"_s, u"%1 MRR"_s.arg(StatFraming::money(*cents, u"usd"_s, framing))});
    }
    if (const auto cents = usdToCents(revenue.value(u"total"))) {
        chips.push_back(
            {u"banknote"_s, u"%1 all-time"_s.arg(StatFraming::money(*cents, u"usd"_s, framing))});
    }
}

void addPeople(const QJsonObject &data, const FramingContext &framing, Chips &chips) {
    const qint64 customers = intFromJSON(data.value(u"customers")).value_or(0);
    const qint64 subscriptions = intFromJSON(data.value(u"activeSubscriptions")).value_or(0);
    if (customers >= 1) {
        chips.push_back(
            {u"person.2"_s, u"%1 customers"_s.arg(StatFraming::count(customers, framing))});
    } else if (subscriptions >= 1) {
        chips.push_back(
            {u"person.2"_s, u"%1 active subs"_s.arg(StatFraming::count(subscriptions, framing))});
    }
}

} // namespace

SimpleCard trustMRRCard(const QJsonValue &answer, const QString &slug,
                        const FramingContext &framing) {
    const auto data = json::object(answer.toObject().value(u"data"));
    if (!data) {
        throw ProviderHTTP::err(u"Unexpected response from TrustMRR."_s);
    }
    SimpleCard card{json::text(data->value(u"name")).value_or(slug)};
    addRevenue(data->value(u"revenue").toObject(), framing, card.chips);
    addPeople(*data, framing, card.chips);
    if (const auto rank = intFromJSON(data->value(u"rank"))) {
        card.chips.push_back({u"rosette"_s, u"Rank #%1"_s.arg(*rank)});
    } else if (card.chips.empty()) {
        card.chips.push_back({u"building.2"_s, u"Connected · "_s + card.headline});
    }
    return card;
}

SimpleIntegrationStats TrustMRRService::fetch(const QString &key, const QString &slug) const {
    return simpleRecord(u"trustmrr"_s, m_clock, [&] {
        const QString name = slug.trimmed();
        if (name.isEmpty()) {
            throw ProviderHTTP::err(
                u"Add a startup slug, the last part of its page on trustmrr.com (e.g. acme)."_s);
        }
        const QString url =
            m_endpoints.trustMRR + u"/api/v1/startups/"_s + urlPart(name).value_or(name);
        return trustMRRCard(ProviderHTTP::json(m_client, url, {bearer(key)}), name, m_framing);
    });
}

} // namespace zeph
