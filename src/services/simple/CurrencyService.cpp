// SPDX-License-Identifier: MIT
#include "services/simple/CurrencyService.h"

#include "ports/Clock.h"
#include "services/simple/SimpleNumbers.h"
#include "services/simple/UrlPart.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype codeLength = 3;

QString format(double rate) {
    if (rate >= 100) {
        return fixedDecimals(rate, 0);
    }
    return fixedDecimals(rate, rate >= 1 ? 2 : 4);
}

} // namespace

std::optional<CurrencyPair> currencyPair(const QString &text) {
    QString separated = text;
    for (const QChar separator : {u'-', u':', u' '}) {
        separated.replace(separator, u'/');
    }
    const QStringList parts = separated.split(u'/', Qt::SkipEmptyParts);
    if (parts.size() < 2 || parts[0].size() != codeLength || parts[1].size() != codeLength) {
        return std::nullopt;
    }
    return CurrencyPair{parts[0], parts[1]};
}

SimpleCard currencyCard(const QJsonValue &answer, const CurrencyPair &pair) {
    const auto rate = json::number(answer.toObject().value(u"rate"));
    if (!rate) {
        throw ProviderHTTP::err(u"No rate for "_s + pair.from + u'/' + pair.to);
    }
    return {pair.from + u" → "_s + pair.to,
            {{u"arrow.left.arrow.right"_s,
              u"1 "_s + pair.from + u" = "_s + format(*rate) + u' ' + pair.to}}};
}

SimpleIntegrationStats CurrencyService::fetch(const QString &pair) {
    const QString key = pair.trimmed().toUpper();
    if (auto kept = fresh(key)) {
        return *kept;
    }
    SimpleIntegrationStats stats = simpleRecord(u"currency"_s, m_clock, [&] {
        const auto codes = currencyPair(key);
        if (!codes) {
            throw ProviderHTTP::err(u"Enter a pair like USD/INR."_s);
        }
        const QString url = m_endpoints.frankfurter + u"/v2/rate/"_s +
                            urlPart(codes->from).value_or(codes->from) + u'/' +
                            urlPart(codes->to).value_or(codes->to);
        return currencyCard(ProviderHTTP::json(m_client, url), *codes);
    });
    if (!stats.error) {
        keep(key, stats);
    }
    return stats;
}

std::optional<SimpleIntegrationStats> CurrencyService::fresh(const QString &key) const {
    const Date now = m_clock.now();
    const std::scoped_lock lock(m_lock);
    const auto stats = m_cache.find(key);
    const auto time = m_lastFetch.find(key);
    if (stats == m_cache.end() || time == m_lastFetch.end() ||
        secondsApart(now, time->second) >= ttl) {
        return std::nullopt;
    }
    return stats->second;
}

void CurrencyService::keep(const QString &key, const SimpleIntegrationStats &stats) {
    const Date now = m_clock.now();
    const std::scoped_lock lock(m_lock);
    m_cache[key] = stats;
    m_lastFetch[key] = now;
}

} // namespace zeph
