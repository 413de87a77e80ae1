// SPDX-License-Identifier: MIT
#include "services/revenue/ChartMogulService.h"

#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "services/revenue/ChartMogulMetrics.h"
#include "services/web/Authorization.h"
#include "services/web/Endpoints.h"
#include "services/web/ProviderHTTP.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double thirtyDays = 2'592'000;

} // namespace

ChartMogulService::ChartMogulService(HttpClient &client, const Endpoints &endpoints,
                                     const Clock &clock, const Calendar &calendar)
    : m_client(client), m_clock(clock), m_calendar(calendar), m_root(endpoints.chartMogul) {}

RevenueStats ChartMogulService::fetch(const QString &key) const {
    RevenueStats stats;
    stats.id = QUuid::createUuid();
    stats.provider = u"chartmogul"_s;
    stats.providerName = u"ChartMogul"_s;
    stats.currency = u"USD"_s;
    const Date now = m_clock.now();
    const QString url =
        ChartMogulMetrics::url(m_root, m_calendar.dayKey(now - thirtyDays), m_calendar.dayKey(now));
    try {
        ChartMogulMetrics::read(ProviderHTTP::json(m_client, url, {basicUser(key)}), stats);
        stats.updated = m_clock.now();
    } catch (const DescribedError &error) {
        stats.error = error.description();
    }
    return stats;
}

} // namespace zeph
