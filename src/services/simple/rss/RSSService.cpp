// SPDX-License-Identifier: MIT
#include "services/simple/rss/RSSService.h"

#include "services/web/ProviderHTTP.h"

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

HttpRequest feedRequest(const QString &url) {
    HttpRequest request;
    request.url = QUrl(url.trimmed(), QUrl::StrictMode);
    if (!request.url.isValid()) { // an empty address is none
        throw ProviderHTTP::err(u"Enter a feed URL (https://…/feed)."_s);
    }
    request.setHeader("User-Agent", "Mozilla/5.0 (compatible; Tavi/1.0)");
    return request;
}

} // namespace

SimpleCard feedCard(const RSSParser::Feed &feed, qint64 count) {
    SimpleCard card{feed.title.isEmpty() ? u"Feed"_s : feed.title};
    for (const QString &title : feed.items.first(std::min<qsizetype>(
             std::clamp(count, fewestFeedItems, mostFeedItems), feed.items.size()))) {
        card.chips.push_back({u"chevron.forward"_s, title});
    }
    return card;
}

RSSService::RSSService(HttpClient &client, const Clock &clock) : m_client(client), m_clock(clock) {}

SimpleIntegrationStats RSSService::fetch(const QString &url, qint64 count) const {
    return simpleRecord(u"rss"_s, m_clock, [&] {
        const HttpResponse response = m_client.send(feedRequest(url));
        if (!response.isSuccess()) {
            throw ProviderHTTP::err(u"HTTP %1"_s.arg(response.status));
        }
        const auto feed = RSSParser().parse(response.body);
        if (!feed) {
            throw ProviderHTTP::err(u"Couldn't read feed"_s);
        }
        return feedCard(*feed, count);
    });
}

} // namespace zeph
