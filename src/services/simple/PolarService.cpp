// SPDX-License-Identifier: MIT
#include "services/simple/PolarService.h"

#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "services/simple/SimpleNumbers.h"
#include "services/web/Authorization.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// From the first day of this month to today.
QString periodQuery(const Calendar &calendar, Date now) {
    const auto month = calendar.interval(CalendarUnit::month, now);
    return u"?start_date="_s + calendar.dayKey(month ? month->start : now) + u"&end_date="_s +
           calendar.dayKey(now) + u"&interval=month"_s;
}

} // namespace

SimpleCard polarCard(const QJsonValue &answer, const FramingContext &framing) {
    const auto period = json::object(answer.toObject().value(u"items").toArray().last());
    if (!period) {
        throw ProviderHTTP::err(u"No metrics returned"_s);
    }
    const auto money = [&](qint64 cents) { return StatFraming::money(cents, u"usd"_s, framing); };
    SimpleCard card{u"Polar"_s};
    if (const auto cents = intFromJSON(period->value(u"mrr"))) {
        card.chips.push_back({u"repeat"_s, money(*cents) + u" MRR"_s});
    }
    if (const auto cents = intFromJSON(period->value(u"revenue"))) {
        card.chips.push_back({u"banknote"_s, money(*cents) + u" this month"_s});
    }
    if (const auto count = intFromJSON(period->value(u"active_subscriptions"))) {
        card.chips.push_back(
            {u"person.2"_s, StatFraming::count(*count, framing) + u" active subs"_s});
    }
    if (const auto count = intFromJSON(period->value(u"orders"))) {
        card.chips.push_back({u"creditcard"_s, StatFraming::count(*count, framing) + u" orders"_s});
    }
    return card;
}

SimpleIntegrationStats PolarService::fetch(const QString &token) const {
    return simpleRecord(u"polar"_s, m_clock, [&] {
        if (token.isEmpty()) {
            throw ProviderHTTP::err(u"Add a Polar access token."_s);
        }
        const QString url =
            m_endpoints.polar + u"/v1/metrics/"_s + periodQuery(m_framing.calendar, m_clock.now());
        return polarCard(ProviderHTTP::json(m_client, url, {bearer(token)}), m_framing);
    });
}

} // namespace zeph
