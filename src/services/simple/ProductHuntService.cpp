// SPDX-License-Identifier: MIT
#include "services/simple/ProductHuntService.h"

#include "services/simple/FirstInt.h"
#include "services/simple/UrlPart.h"
#include "services/web/ProviderHTTP.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

SimpleCard productHuntCard(const QString &page, const QString &name,
                           const FramingContext &framing) {
    const auto followers =
        firstInt(page,
                 {uR"("followersCount"\s*:\s*(\d+))"_s, uR"("followers_count"\s*:\s*(\d+))"_s,
                  uR"("followerCount"\s*:\s*(\d+))"_s},
                 Grouping::none);
    if (!followers) {
        throw ProviderHTTP::err(u"Couldn't read followers"_s);
    }
    SimpleCard card{u"@"_s + name};
    card.chips.push_back(
        {u"person.2"_s, StatFraming::count(*followers, framing) + u" followers"_s});
    const auto following = firstInt(
        page, {uR"("followingCount"\s*:\s*(\d+))"_s, uR"("followedUsersCount"\s*:\s*(\d+))"_s},
        Grouping::none);
    if (following) {
        card.chips.push_back(
            {u"person.badge.plus"_s, StatFraming::count(*following, framing) + u" following"_s});
    }
    return card;
}

SimpleIntegrationStats ProductHuntService::fetch(const QString &username) const {
    return simpleRecord(u"producthunt"_s, m_clock, [&] {
        QString name = username.trimmed();
        if (name.startsWith(u'@')) {
            name.remove(0, 1);
        }
        if (name.isEmpty()) {
            throw ProviderHTTP::err(u"Enter a Product Hunt username (e.g. harlowe)."_s);
        }
        return productHuntCard(page(name), name, m_framing);
    });
}

QString ProductHuntService::page(const QString &name) const {
    const auto user = urlPart(name);
    HttpRequest request;
    if (user) {
        request.url = QUrl(m_endpoints.productHunt + u"/@"_s + *user, QUrl::StrictMode);
    }
    if (!request.url.isValid()) {
        throw ProviderHTTP::err(u"Invalid username."_s);
    }
    request.setHeader("User-Agent",
                      "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7) AppleWebKit/605.1.15 "
                      "(KHTML, like Gecko) Safari/605.1.15");
    const HttpResponse response = m_client.send(request);
    if (response.status == 404) {
        throw ProviderHTTP::err(u"Profile not found"_s);
    }
    if (!response.isSuccess()) {
        throw ProviderHTTP::err(u"HTTP %1"_s.arg(response.status));
    }
    return QString::fromUtf8(response.body);
}

} // namespace zeph
