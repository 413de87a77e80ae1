// SPDX-License-Identifier: MIT
#include "services/simple/AhrefsService.h"

#include "services/simple/SimpleNumbers.h"
#include "services/simple/UrlPart.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

namespace zeph {

using namespace Qt::StringLiterals;

QString ahrefsDomain(const QString &input) {
    QString domain = input.trimmed();
    domain.remove(u"https://"_s).remove(u"http://"_s);
    return domain.section(u'/', 0, 0);
}

SimpleCard ahrefsCard(const QJsonValue &answer, const QString &domain) {
    const QJsonObject rating = answer.toObject().value(u"domain_rating").toObject();
    const auto value = json::number(rating.value(u"domain_rating"));
    if (!value) {
        throw ProviderHTTP::err(u"No domain rating in response"_s);
    }
    return {domain, {{u"link"_s, u"DR "_s + fixedDecimals(*value, 0)}}};
}

SimpleIntegrationStats AhrefsService::fetch(const QString &domain) const {
    return simpleRecord(u"ahrefs"_s, m_clock, [&] {
        const QString host = ahrefsDomain(domain);
        if (host.isEmpty()) {
            throw ProviderHTTP::err(u"Enter a domain (e.g. example.com)."_s);
        }
        const auto target = urlPart(host);
        if (!target) {
            throw ProviderHTTP::err(u"Invalid domain."_s);
        }
        const QString url = m_endpoints.ahrefs + u"/v3/public/domain-rating-free?target="_s +
                            *target + u"&output=json"_s;
        return ahrefsCard(ProviderHTTP::json(m_client, url, {{"Accept", "application/json"}}),
                          host);
    });
}

} // namespace zeph
