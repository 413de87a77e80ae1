// SPDX-License-Identifier: MIT
#include "services/simple/HackerNewsService.h"

#include "services/simple/UrlPart.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

SimpleCard hackerNewsCard(const QJsonValue &answer, const QString &username,
                          const FramingContext &framing) {
    const QJsonObject user = answer.toObject(); // an unknown user is null
    if (!user.contains(u"id")) {
        throw ProviderHTTP::err(u"User not found"_s);
    }
    const qint64 karma = json::integer(user.value(u"karma")).value_or(0);
    return {u"@"_s + username, {{u"flame"_s, StatFraming::count(karma, framing) + u" karma"_s}}};
}

SimpleIntegrationStats HackerNewsService::fetch(const QString &username) const {
    return simpleRecord(u"hackernews"_s, m_clock, [&] {
        const QString name = username.trimmed();
        if (name.isEmpty()) {
            throw ProviderHTTP::err(u"Enter a Hacker News username."_s);
        }
        const auto user = urlPart(name);
        if (!user) {
            throw ProviderHTTP::err(u"Invalid username."_s);
        }
        const QString url = m_endpoints.hackerNews + u"/v0/user/"_s + *user + u".json"_s;
        return hackerNewsCard(ProviderHTTP::json(m_client, url), name, m_framing);
    });
}

} // namespace zeph
