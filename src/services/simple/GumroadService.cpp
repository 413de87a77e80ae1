// SPDX-License-Identifier: MIT
#include "services/simple/GumroadService.h"

#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "services/simple/UrlPart.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"
#include "services/web/Saturating.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

SimpleCard gumroadCard(const QJsonValue &answer, const FramingContext &framing) {
    const QJsonObject body = answer.toObject();
    if (json::boolean(body.value(u"success")) != true) {
        throw ProviderHTTP::err(u"Invalid Gumroad token"_s);
    }
    const QJsonArray sales = body.value(u"sales").toArray();
    qint64 cents = 0;
    for (const QJsonValueConstRef &sale : sales) {
        cents = saturating::add(cents, json::integer(sale.toObject().value(u"price")).value_or(0));
    }
    return {u"Gumroad"_s,
            {{u"banknote"_s, u"%1 today"_s.arg(StatFraming::money(cents, u"usd"_s, framing))},
             {u"creditcard"_s, u"%1 sales today"_s.arg(sales.size())}}};
}

SimpleIntegrationStats GumroadService::fetch(const QString &token) const {
    return simpleRecord(u"gumroad"_s, m_clock, [&] {
        const auto access = urlPart(token.trimmed());
        if (!access || access->isEmpty()) {
            throw ProviderHTTP::err(u"Add a Gumroad access token."_s);
        }
        const QString today = m_framing.calendar.dayKey(m_clock.now());
        const QString url =
            m_endpoints.gumroad + u"/v2/sales?access_token="_s + *access + u"&after="_s + today;
        return gumroadCard(ProviderHTTP::json(m_client, url), m_framing);
    });
}

} // namespace zeph
