// SPDX-License-Identifier: MIT
#include "services/analytics/PlausibleAggregate.h"

#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

namespace zeph::PlausibleAggregate {

using namespace Qt::StringLiterals;

QString url(const QString &root, const QString &site) {
    return root + u"/api/v1/stats/aggregate?site_id="_s + site +
           u"&period=day&metrics=visitors,pageviews"_s;
}

void read(const QJsonValue &body, AnalyticsStats &stats) {
    const auto results = json::object(body.toObject().value(u"results"));
    if (!results) {
        throw ProviderHTTP::err(u"Unexpected response"_s);
    }
    stats.visitorsToday = json::integer(results->value(u"visitors").toObject().value(u"value"));
    stats.pageviewsToday = json::integer(results->value(u"pageviews").toObject().value(u"value"));
}

} // namespace zeph::PlausibleAggregate
