// SPDX-License-Identifier: MIT
#include "integrations/analytics/PlausibleService.h"

#include "integrations/analytics/PlausibleAggregate.h"
#include "integrations/web/Authorization.h"
#include "integrations/web/Endpoints.h"
#include "integrations/web/ProviderHTTP.h"
#include "platform/Clock.h"

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
