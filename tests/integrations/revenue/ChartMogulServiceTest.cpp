// SPDX-License-Identifier: MIT
#include "integrations/revenue/ChartMogulService.h"

#include "integrations/revenue/RevenueTold.h"

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

TEST(ChartMogulService, fillsAnIdentityThatIsNewEachTimeAndNoLabel) {
    const RevenueStats first = fetched(metrics());
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, fetched(metrics()).id);
    EXPECT_EQ(first.label, QString());
}

} // namespace zeph
