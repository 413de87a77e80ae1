// SPDX-License-Identifier: MIT
#include "services/simple/NetlifyService.h"

#include "services/simple/DeployStatus.h"
#include "services/web/Authorization.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

namespace zeph {

using namespace Qt::StringLiterals;

SimpleCard netlifyCard(const QJsonValue &answer) {
    const auto site = json::object(answer.toArray().first());
    if (!site) {
        throw ProviderHTTP::err(u"No sites found"_s);
    }
    const QJsonObject deploy = site->value(u"published_deploy").toObject();
    const QString state = json::text(deploy.value(u"state")).value_or(QString());
    return {json::text(site->value(u"name")).value_or(u"Netlify"_s),
            {DeployStatus::chip(state.toUpper())}};
}

SimpleIntegrationStats NetlifyService::fetch(const QString &token) const {
    return simpleRecord(u"netlify"_s, m_clock, [&] {
        if (token.isEmpty()) {
            throw ProviderHTTP::err(u"Add a Netlify token."_s);
        }
        const QString url = m_endpoints.netlify + u"/api/v1/sites?per_page=1&sort_by=updated_at"_s;
        return netlifyCard(ProviderHTTP::json(m_client, url, {bearer(token)}));
    });
}

} // namespace zeph
