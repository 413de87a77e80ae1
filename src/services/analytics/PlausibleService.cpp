// SPDX-License-Identifier: MIT
#include "services/analytics/PlausibleService.h"

#include "ports/Clock.h"
#include "services/analytics/PlausibleAggregate.h"
#include "services/web/Authorization.h"
#include "services/web/Endpoints.h"
#include "services/web/ProviderHTTP.h"

using namespace Qt::StringLiterals;

namespace zeph {

PlausibleService::PlausibleService(HttpClient &client, const Endpoints &endpoints,
                                   const Clock &clock)
    : m_client(client), m_clock(clock), m_root(endpoints.plausible) {}

AnalyticsStats PlausibleService::fetch(const QString &key, const QString &site) const {
    AnalyticsStats stats;
    stats.id = QUuid::createUuid();
    stats.providerName = u"Plausible"_s;
    stats.site = site;
    try {
        const QString url = PlausibleAggregate::url(m_root, site);
        PlausibleAggregate::read(ProviderHTTP::json(m_client, url, {bearer(key)}), stats);
        stats.updated = m_clock.now();
    } catch (const DescribedError &error) {
        stats.error = error.description();
    }
    return stats;
}

} // namespace zeph
