// SPDX-License-Identifier: MIT
#include "golden/SampleCards.h"

#include "base/Date.h"
#include "services/simple/AhrefsService.h"
#include "services/simple/BlueskyService.h"
#include "services/simple/CoinGeckoService.h"
#include "services/simple/CurrencyService.h"
#include "services/simple/GumroadService.h"
#include "services/simple/HackerNewsService.h"
#include "services/simple/NetlifyService.h"
#include "services/simple/PolarService.h"
#include "services/simple/ProductHuntService.h"
#include "services/simple/RedditProfile.h"
#include "services/simple/TrustMRRService.h"
#include "services/simple/VercelService.h"
#include "services/simple/rss/RSSService.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();

QJsonValue answer(const QByteArray &json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

} // namespace

SimpleIntegrationStats simpleRecord(const QString &provider, SimpleCard card, Date updated) {
    SimpleIntegrationStats stats;
    stats.id = QUuid::createUuidV5(QUuid(), provider + card.headline);
    stats.provider = provider;
    stats.headline = std::move(card.headline);
    stats.chips = std::move(card.chips);
    stats.updated = updated;
    return stats;
}

SimpleIntegrationStats feedRecord(const QString &title, const QStringList &items, Date updated) {
    return simpleRecord(u"rss"_s, feedCard({title, items}, items.size()), updated);
}

std::vector<SimpleIntegrationStats> sampleCards(const FramingContext &framing, Date updated) {
    const auto record = [updated](const QString &provider, const SimpleCard &card) {
        return simpleRecord(provider, card, updated);
    };
    return {
        record(u"ahrefs"_s,
               ahrefsCard(answer(R"({"domain_rating": {"domain_rating": 71}})"), u"example.org"_s)),
        record(u"coingecko"_s,
               coinGeckoCard(answer(R"({"bitcoin": {"usd": 67204, "usd_24h_change": 2.41}})"),
                             u"bitcoin"_s)),
        record(u"hackernews"_s, hackerNewsCard(answer(R"({"id": "mlindqvist", "karma": 4210})"),
                                               u"mlindqvist"_s, framing)),
        record(u"reddit"_s, redditCard(u"quiet_desktops"_s, {12'840, 312}, true, framing)),
        record(u"producthunt"_s, productHuntCard(uR"({"followersCount":842,"followingCount":51})"_s,
                                                 u"mara"_s, framing)),
        record(
            u"bluesky"_s,
            blueskyCard(
                answer(
                    R"({"did": "x", "followersCount": 2310, "followsCount": 96, "postsCount": 418})"),
                u"mara.example.social"_s, framing)),
        record(u"currency"_s, currencyCard(answer(R"({"rate": 1.0842})"), {u"EUR"_s, u"USD"_s})),
        record(
            u"gumroad"_s,
            gumroadCard(answer(R"({"success": true, "sales": [{"price": 1900}, {"price": 2450}]})"),
                        framing)),
        record(
            u"polar"_s,
            polarCard(
                answer(
                    R"({"items": [{"mrr": 48000, "revenue": 61250, "active_subscriptions": 57, "orders": 64}]})"),
                framing)),
        record(u"vercel"_s, vercelCard(answer(
                                R"({"deployments": [{"name": "quiet-site", "state": "READY"}]})"))),
        record(
            u"netlify"_s,
            netlifyCard(answer(
                R"([{"name": "quiet.example.net", "published_deploy": {"state": "building"}}])")))};
}

SimpleIntegrationStats sampleStartup(const FramingContext &framing, Date updated) {
    const QJsonValue told = answer(
        R"({"data": {"name": "Quiet", "revenue": {"mrr": 4210, "total": 98300}, "rank": 41}})");
    return simpleRecord(u"trustmrr"_s, trustMRRCard(told, u"quiet"_s, framing), updated);
}

std::vector<SimpleIntegrationStats> oddCards(const FramingContext &framing, Date updated) {
    const QString coin = u"非常に長い名前のコイン 2.0 wrapped staked"_s;
    const QJsonObject price{{u"usd"_s, 9.3e21}, {u"usd_24h_change"_s, -99.96}};
    return {
        simpleRecord(u"ahrefs"_s,
                     ahrefsCard(answer(R"({"domain_rating": {"domain_rating": 0}})"),
                                u"a-domain-name-that-goes-on-and-on-for-ever.example.org"_s),
                     updated),
        simpleRecord(u"coingecko"_s, coinGeckoCard(QJsonObject{{coin, price}}, coin), updated),
        simpleRecord(u"reddit"_s, redditCard(u"مستخدم"_s, {largest, 0}, false, framing), updated)};
}

} // namespace zeph
