// SPDX-License-Identifier: MIT
#include "services/revenue/ChartMogulService.h"

#include "adapters/locale/IcuCalendar.h"
#include "services/revenue/RevenueTold.h"

#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The one question: the last thirty days with the key as user name and an empty password.
Exchange metrics() {
    return {getRequest("https://api.chartmogul.com/v1/metrics/all"
                       "?start-date=2025-10-15&end-date=2025-11-14",
                       {{"Accept", "application/json"}, {"Authorization", "Basic a2V5OTo="}})};
}

RevenueStats fetched(const Exchange &exchange) {
    ContractServer server({exchange});
    const Endpoints endpoints;
    const ManualClock clock(dateOf(fetchTime).secondsSince1970);
    const UtcCalendar calendar;
    return ChartMogulService(server.client(), endpoints, clock, calendar).fetch(u"key9"_s);
}

QString toldOf(const QByteArray &body, int status = 200) {
    return told(fetched(metrics().answering(body, status)));
}

QString failed(const QString &error) {
    return u"chartmogul | ChartMogul | USD | mrr - | arr - | paid - | trial - | total - | "
           "not updated | error: "_s +
           error;
}

} // namespace

TEST(ChartMogulService, readsTheLastOfThreeEntries) {
    EXPECT_EQ(toldOf(fixture("chartmogul/metrics-all.json")),
              u"chartmogul | ChartMogul | USD | mrr 1048125 | arr 12577500 | paid 325 | trial - | "
              "total - | updated now | no error"_s);
}

TEST(ChartMogulService, aFractionalMrrStaysAbsent) {
    EXPECT_EQ(toldOf(R"({"entries":[{"mrr":100},{"mrr":10.5,"arr":120.0,"customers":"3"}]})"),
              u"chartmogul | ChartMogul | USD | mrr - | arr 120 | paid - | trial - | total - | "
              "updated now | no error"_s);
}

TEST(ChartMogulService, anEntryWithoutFiguresLeavesThemAbsent) {
    for (const char *body : {R"({"entries":[{}]})", R"({"entries":[null]})",
                             R"({"entries":[{"mrr":null,"arr":1e300,"customers":true}]})"}) {
        EXPECT_EQ(toldOf(body), u"chartmogul | ChartMogul | USD | mrr - | arr - | paid - | "
                                "trial - | total - | updated now | no error"_s)
            << body;
    }
}

TEST(ChartMogulService, anAnswerWithoutEntriesIsAnError) {
    for (const char *body : {R"({"entries":[]})", "{}", R"({"entries":{}})", "[]", "12", "null"}) {
        EXPECT_EQ(toldOf(body), failed(u"No metrics returned"_s)) << body;
    }
}

TEST(ChartMogulService, tellsEveryFailure) {
    EXPECT_EQ(toldOf(R"({"message":"Access denied"})", 401), failed(u"Access denied"_s));
    EXPECT_EQ(told(fetched(metrics().answering(badGateway()))), failed(u"HTTP 502"_s));
    EXPECT_EQ(told(fetched(metrics().cutOff())), failed(u"The connection was lost."_s));
    EXPECT_TRUE(fetched(metrics().answering("")).error.has_value());
    EXPECT_EQ(fetched(metrics().answering("")).updated, std::nullopt);
    EXPECT_TRUE(fetched(metrics().answering(R"({"entries":[NaN]})")).error.has_value());
}

TEST(ChartMogulService, beginsThirtyTimes86400SecondsAgo) {
    const UtcCalendar calendar;
    const Endpoints endpoints;
    for (const auto &[time, start] : {std::pair{"2025-11-14T00:00:00Z", "2025-10-15"},
                                      std::pair{"2025-11-13T23:59:59Z", "2025-10-14"}}) {
        FakeHttpClient http;
        const ManualClock clock(dateOf(time).secondsSince1970);
        ChartMogulService(http, endpoints, clock, calendar).fetch(u"k"_s);
        EXPECT_EQ(QUrlQuery(http.requests().front().url).queryItemValue(u"start-date"_s),
                  QString::fromLatin1(start));
    }
    // The night after the clocks went forward, thirty such days end on the day before.
    const IcuCalendar berlin(u"en_US"_s, u"Europe/Berlin"_s);
    FakeHttpClient http;
    const ManualClock clock(dateOf("2026-04-15T00:30:00+02:00").secondsSince1970);
    ChartMogulService(http, endpoints, clock, berlin).fetch(u"k"_s);
    EXPECT_EQ(http.requests().front().url.query(), u"start-date=2026-03-15&end-date=2026-04-15"_s);
}

TEST(ChartMogulService, fillsAnIdentityThatIsNewEachTimeAndNoLabel) {
    const RevenueStats first = fetched(metrics());
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, fetched(metrics()).id);
    EXPECT_EQ(first.label, QString());
}

} // namespace zeph
