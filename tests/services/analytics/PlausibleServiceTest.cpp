// SPDX-License-Identifier: MIT
#include "services/analytics/PlausibleService.h"

#include "services/web/ContractServer.h"
#include "services/web/Endpoints.h"
#include "support/DateOf.h"
#include "support/ManualClock.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double fetchTime = 1'763'090'130.75;

Exchange aggregate(const QByteArray &site = "lantern.example") {
    return {getRequest("https://plausible.io/api/v1/stats/aggregate?site_id=" + site +
                           "&period=day&metrics=visitors,pageviews",
                       {{"Accept", "application/json"}, {"Authorization", "Bearer k1"}})};
}

AnalyticsStats fetched(const std::vector<Exchange> &conversation,
                       const QString &site = u"lantern.example"_s) {
    ContractServer server(conversation);
    const Endpoints endpoints;
    const ManualClock clock(fetchTime);
    return PlausibleService(server.client(), endpoints, clock).fetch(u"k1"_s, site);
}

QString told(const AnalyticsStats &stats) {
    const auto number = [](std::optional<qint64> value) {
        return value ? QString::number(*value) : u"-"_s;
    };
    return u"%1 of %2: %3 visitors, %4 views, %5, %6"_s.arg(
        stats.providerName, stats.site, number(stats.visitorsToday), number(stats.pageviewsToday),
        stats.updated == Date{fetchTime} ? u"updated now"_s : u"not updated"_s,
        stats.error.value_or(u"no error"_s));
}

QString toldOf(const QByteArray &body, int status = 200) {
    return told(fetched({aggregate().answering(body, status)}));
}

QString failed(const QString &error) {
    return u"Plausible of lantern.example: - visitors, - views, not updated, "_s + error;
}

} // namespace

TEST(PlausibleService, readsVisitorsAndViews) {
    EXPECT_EQ(toldOf(fixture("plausible/aggregate.json")),
              u"Plausible of lantern.example: 12 visitors, 30 views, updated now, no error"_s);
}

TEST(PlausibleService, aFigureThatIsMissingStaysAbsent) {
    EXPECT_EQ(toldOf(R"({"results":{"visitors":{"value":12}}})"),
              u"Plausible of lantern.example: 12 visitors, - views, updated now, no error"_s);
}

TEST(PlausibleService, aFigureThatIsNoWholeNumberStaysAbsent) {
    for (const char *value : {"1.5", "\"12\"", "true", "null", "[12]", "1e300"}) {
        const QByteArray body =
            QByteArray(R"({"results":{"visitors":{"value":)") + value + R"(},"pageviews":30}})";
        EXPECT_EQ(toldOf(body),
                  u"Plausible of lantern.example: - visitors, - views, updated now, no error"_s)
            << value;
    }
}

TEST(PlausibleService, aRefusalIsToldInItsWords) {
    EXPECT_EQ(toldOf(R"({"error":"Invalid API key"})", 401), failed(u"Invalid API key"_s));
    EXPECT_EQ(toldOf(fixture("plausible/error-401.json"), 401),
              failed(u"Invalid API key or site ID. Please make sure you're using a valid API key "
                     "with access to the site you've requested."_s));
}

TEST(PlausibleService, tellsEveryOtherFailure) {
    EXPECT_EQ(told(fetched({aggregate().answering(badGateway())})), failed(u"HTTP 502"_s));
    EXPECT_EQ(told(fetched({aggregate().cutOff()})), failed(u"The connection was lost."_s));
    for (const char *body : {"", "<html>", R"({"results":NaN})"}) {
        const AnalyticsStats stats = fetched({aggregate().answering(body)});
        EXPECT_TRUE(stats.error.has_value()) << body;
        EXPECT_EQ(stats.updated, std::nullopt) << body;
    }
}

TEST(PlausibleService, anAnswerOfAnotherFormIsUnexpected) {
    for (const char *body :
         {"{}", "[]", "12", "null", R"({"results":[]})", R"({"results":null})"}) {
        EXPECT_EQ(toldOf(body), failed(u"Unexpected response"_s)) << body;
    }
}

TEST(PlausibleService, theSiteGoesIntoTheUrlAsItStands) {
    EXPECT_EQ(fetched({aggregate("a%20b/c?d=e")}, u"a%20b/c?d=e"_s).site, u"a%20b/c?d=e"_s);
    EXPECT_EQ(fetched({}, u"a b"_s).error, u"Invalid URL"_s);
}

TEST(PlausibleService, fillsAnIdentityThatIsNewEachTimeAndNoLabel) {
    const AnalyticsStats first = fetched({aggregate()});
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, fetched({aggregate()}).id);
    EXPECT_EQ(first.label, QString());
}

} // namespace zeph
