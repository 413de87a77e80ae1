// SPDX-License-Identifier: MIT
#include "services/revenue/LemonSqueezyService.h"

#include "ports/Clock.h"
#include "services/revenue/LemonSqueezyAnswers.h"
#include "services/web/Authorization.h"
#include "services/web/Endpoints.h"
#include "services/web/ProviderHTTP.h"
#include "services/web/Saturating.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int lastPage = 3;

} // namespace

LemonSqueezyService::LemonSqueezyService(HttpClient &client, const Endpoints &endpoints,
                                         const Clock &clock)
    : m_client(client), m_clock(clock), m_base(endpoints.lemonSqueezy + u"/v1/"_s) {}

RevenueStats LemonSqueezyService::fetch(const QString &key) {
    RevenueStats stats;
    stats.id = QUuid::createUuid();
    stats.provider = u"lemonsqueezy"_s;
    stats.providerName = u"Lemon Squeezy"_s;
    stats.currency = u"USD"_s;
    try {
        fill(stats, {bearer(key), {"Accept", "application/vnd.api+json"}});
        stats.updated = m_clock.now();
    } catch (const DescribedError &error) {
        stats.error = error.description();
    }
    return stats;
}

void LemonSqueezyService::fill(RevenueStats &stats, const Headers &headers) {
    LemonSqueezyAnswers::readStore(ProviderHTTP::json(m_client, m_base + u"stores"_s, headers),
                                   stats);
    stats.paidCustomers = count(u"active"_s, headers);
    stats.trialUsers = count(u"on_trial"_s, headers);
    const qint64 sum = monthlySum(headers);
    stats.mrrCents = sum;
    stats.arrCents = saturating::multiply(sum, ProviderHTTP::monthsInYear);
}

qint64 LemonSqueezyService::count(const QString &status, const Headers &headers) const {
    const QString url = m_base + u"subscriptions?filter[status]="_s + status + u"&page[size]=1"_s;
    return LemonSqueezyAnswers::total(ProviderHTTP::json(m_client, url, headers));
}

qint64 LemonSqueezyService::monthlySum(const Headers &headers) {
    const QString url =
        m_base + u"subscriptions?filter[status]=active&page[size]=100&page[number]="_s;
    qint64 sum = 0;
    for (int number = 1; number <= lastPage; ++number) {
        const auto page = LemonSqueezyAnswers::subscriptions(
            ProviderHTTP::json(m_client, url + QString::number(number), headers));
        for (const LemonSqueezyAnswers::Item &item : page.items) {
            sum = saturating::add(sum, monthlyCents(item.priceId, item.quantity, headers));
        }
        if (!page.isFull) {
            break;
        }
    }
    return sum;
}

/// Nothing for a price that can't be read: one odd product must not hide all the others.
qint64 LemonSqueezyService::monthlyCents(qint64 priceId, qint64 quantity, const Headers &headers) {
    try {
        const LemonSqueezyPrice told = price(priceId, headers);
        return ProviderHTTP::monthlyCents(saturating::multiply(told.cents, quantity), told.unit,
                                          told.count);
    } catch (const DescribedError &) {
        return 0;
    }
}

LemonSqueezyPrice LemonSqueezyService::price(qint64 id, const Headers &headers) {
    const QString key = QString::number(id);
    {
        const std::scoped_lock lock(m_mutex);
        if (const auto known = m_priceCache.find(key); known != m_priceCache.end()) {
            return known->second;
        }
    }
    LemonSqueezyPrice told = LemonSqueezyAnswers::price(
        ProviderHTTP::json(m_client, m_base + u"prices/"_s + key, headers));
    const std::scoped_lock lock(m_mutex);
    m_priceCache.insert_or_assign(key, told);
    return told;
}

} // namespace zeph
