// SPDX-License-Identifier: MIT
#include "services/simple/RedditService.h"

#include "services/simple/RedditProfile.h"
#include "services/simple/UrlPart.h"
#include "services/web/ProviderHTTP.h"

namespace zeph {

using namespace Qt::StringLiterals;

SimpleIntegrationStats RedditService::fetch(const QString &username) const {
    return simpleRecord(u"reddit"_s, m_clock, [&] {
        const QString name = redditName(username);
        const auto user = urlPart(name);
        if (!user || user->isEmpty()) {
            throw ProviderHTTP::err(u"Enter a Reddit username (e.g. brindle)."_s);
        }
        return card(name, *user);
    });
}

SimpleCard RedditService::card(const QString &name, const QString &user) const {
    const QString path = u"/user/"_s + user;
    RedditFigures figures = oldSiteFigures(html(m_endpoints.oldReddit + path));
    if (figures.karma != 0 && figures.followers) {
        return redditCard(name, figures, true, m_framing);
    }
    QString page;
    try {
        page = html(m_endpoints.reddit + path);
    } catch (const DescribedError &) {
        return redditCard(name, figures, false, m_framing);
    }
    addNewSiteFigures(page, figures);
    return redditCard(name, figures, true, m_framing);
}

QString RedditService::html(const QString &url) const {
    HttpRequest request;
    request.url = QUrl(url, QUrl::StrictMode);
    if (!request.url.isValid()) {
        throw ProviderHTTP::err(u"Invalid URL"_s);
    }
    request.setHeader("User-Agent",
                      "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7) AppleWebKit/605.1.15 "
                      "(KHTML, like Gecko) Version/17.4 Safari/605.1.15");
    request.setHeader("Accept", "text/html,application/xhtml+xml");
    const HttpResponse response = m_client.send(request);
    if (!response.isSuccess()) {
        throw ProviderHTTP::err(u"HTTP %1"_s.arg(response.status));
    }
    return QString::fromUtf8(response.body);
}

} // namespace zeph
