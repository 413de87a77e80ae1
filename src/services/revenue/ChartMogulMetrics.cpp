// SPDX-License-Identifier: MIT
#include "services/revenue/ChartMogulMetrics.h"

#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

namespace zeph::ChartMogulMetrics {

using namespace Qt::StringLiterals;

QString url(const QString &root, const QString &start, const QString &end) {
    return root + u"/v1/metrics/all?start-date="_s + start + u"&end-date="_s + end;
}

void read(const QJsonValue &body, RevenueStats &stats) {
    const QJsonArray entries = body.toObject().value(u"entries").toArray();
    if (entries.isEmpty()) {
        throw ProviderHTTP::err(u"No metrics returned"_s);
    }
    const QJsonObject last = entries.last().toObject();
    stats.mrrCents = json::integer(last.value(u"mrr"));
    stats.arrCents = json::integer(last.value(u"arr"));
    stats.paidCustomers = json::integer(last.value(u"customers"));
}

} // namespace zeph::ChartMogulMetrics
