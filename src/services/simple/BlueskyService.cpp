// SPDX-License-Identifier: MIT
#include "services/simple/BlueskyService.h"

#include "services/simple/UrlPart.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

QString blueskyHandle(const QString &input) {
    QString handle = input.trimmed().toLower();
    if (handle.startsWith(u'@')) {
        handle.remove(0, 1);
    }
    if (!handle.isEmpty() && !handle.contains(u'.')) {
        handle += u".bsky.social"_s; // where accounts begin that have no domain of their own
    }
    return handle;
}

SimpleCard blueskyCard(const QJsonValue &answer, const QString &handle,
                       const FramingContext &framing) {
    const QJsonObject profile = answer.toObject();
    if (!profile.contains(u"did")) {
        throw ProviderHTTP::err(u"Profile not found"_s);
    }
    const auto count = [&](QStringView field) {
        return StatFraming::count(json::integer(profile.value(field)).value_or(0), framing);
    };
    return {u"@"_s + handle,
            {{u"person.2"_s, count(u"followersCount") + u" followers"_s},
             {u"person.badge.plus"_s, count(u"followsCount") + u" following"_s},
             {u"bubble.left"_s, count(u"postsCount") + u" posts"_s}}};
}

SimpleIntegrationStats BlueskyService::fetch(const QString &handle) const {
    return simpleRecord(u"bluesky"_s, m_clock, [&] {
        const QString whole = blueskyHandle(handle);
        if (whole.isEmpty()) {
            throw ProviderHTTP::err(u"Enter a Bluesky handle (e.g. ada.bsky.social)."_s);
        }
        const auto actor = urlPart(whole);
        if (!actor) {
            throw ProviderHTTP::err(u"Invalid handle."_s);
        }
        const QString url =
            m_endpoints.bluesky + u"/xrpc/app.bsky.actor.getProfile?actor="_s + *actor;
        return blueskyCard(ProviderHTTP::json(m_client, url), whole, m_framing);
    });
}

} // namespace zeph
