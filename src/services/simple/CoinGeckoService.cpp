// SPDX-License-Identifier: MIT
#include "services/simple/CoinGeckoService.h"

#include "base/Capitalized.h"
#include "services/simple/SimpleNumbers.h"
#include "services/simple/UrlPart.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

namespace zeph {

using namespace Qt::StringLiterals;

SimpleCard coinGeckoCard(const QJsonValue &answer, const QString &coinId) {
    const QJsonObject coin = answer.toObject().value(coinId).toObject();
    const auto price = json::number(coin.value(u"usd"));
    if (!price) {
        throw ProviderHTTP::err(u"Coin not found"_s);
    }
    SimpleCard card{capitalized(coinId)};
    card.chips.push_back({u"bitcoinsign.circle"_s, u"$"_s + fixedDecimals(*price, 2)});
    if (const auto change = json::number(coin.value(u"usd_24h_change"))) {
        const QString sign = *change >= 0 ? u"+"_s : QString();
        card.chips.push_back(
            {u"chart.line.uptrend.xyaxis"_s, sign + fixedDecimals(*change, 1) + u"% today"_s});
    }
    return card;
}

SimpleIntegrationStats CoinGeckoService::fetch(const QString &coinId) const {
    return simpleRecord(u"coingecko"_s, m_clock, [&] {
        const QString coin = coinId.trimmed().toLower();
        if (coin.isEmpty()) {
            throw ProviderHTTP::err(u"Enter a coin id (e.g. bitcoin, ethereum)."_s);
        }
        const auto ids = urlPart(coin);
        if (!ids) {
            throw ProviderHTTP::err(u"Invalid coin id."_s);
        }
        const QString url = m_endpoints.coinGecko + u"/api/v3/simple/price?ids="_s + *ids +
                            u"&vs_currencies=usd&include_24hr_change=true"_s;
        return coinGeckoCard(ProviderHTTP::json(m_client, url), coin);
    });
}

} // namespace zeph
