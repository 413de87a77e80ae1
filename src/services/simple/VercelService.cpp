// SPDX-License-Identifier: MIT
#include "services/simple/VercelService.h"

#include "services/simple/DeployStatus.h"
#include "services/web/Authorization.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

namespace zeph {

using namespace Qt::StringLiterals;

SimpleCard vercelCard(const QJsonValue &answer) {
    const auto deployment = json::object(answer.toObject().value(u"deployments").toArray().first());
    if (!deployment) {
        throw ProviderHTTP::err(u"No deployments yet"_s);
    }
    auto state = json::text(deployment->value(u"state"));
    if (!state) {
        state = json::text(deployment->value(u"readyState"));
    }
    return {json::text(deployment->value(u"name")).value_or(u"Vercel"_s),
            {DeployStatus::chip(state.value_or(QString()).toUpper())}};
}

SimpleIntegrationStats VercelService::fetch(const QString &token) const {
    return simpleRecord(u"vercel"_s, m_clock, [&] {
        if (token.isEmpty()) {
            throw ProviderHTTP::err(u"Add a Vercel token."_s);
        }
        return vercelCard(ProviderHTTP::json(
            m_client, m_endpoints.vercel + u"/v6/deployments?limit=1"_s, {bearer(token)}));
    });
}

} // namespace zeph
