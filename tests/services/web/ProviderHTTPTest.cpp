// SPDX-License-Identifier: MIT
#include "services/web/ProviderHTTP.h"

#include "support/FakeHttpClient.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

QString failureOf(int status, const QByteArray &body) {
    try {
        ProviderHTTP::decodeResponse({status, {}, body});
    } catch (const ServiceError &error) {
        EXPECT_EQ(error.domain(), u"Provider"_s);
        EXPECT_EQ(error.code(), 0);
        return error.description();
    }
    ADD_FAILURE() << "no failure for status " << status;
    return {};
}

} // namespace

TEST(ProviderHTTP, monthlyCentsIsBlindToTheCaseOfTheUnit) {
    EXPECT_EQ(ProviderHTTP::monthlyCents(1200, u"YEAR"_s, 1), 100);
}

TEST(ProviderHTTP, monthlyCentsCutsWeeksAndDaysOff) {
    EXPECT_EQ(ProviderHTTP::monthlyCents(1000, u"week"_s, 1), 4345);
    EXPECT_EQ(ProviderHTTP::monthlyCents(999, u"day"_s, 2), 15204);
    EXPECT_EQ(ProviderHTTP::monthlyCents(-999, u"day"_s, 2), -15204);
}

TEST(ProviderHTTP, monthlyCentsCutsMonthsAndYearsOff) {
    for (const qint64 sign : {1, -1}) {
        EXPECT_EQ(ProviderHTTP::monthlyCents(sign * 1999, u"month"_s, 2), sign * 999);
        EXPECT_EQ(ProviderHTTP::monthlyCents(sign * 1199, u"year"_s, 1), sign * 99);
        EXPECT_EQ(ProviderHTTP::monthlyCents(sign * 1000, u"year"_s, 3), sign * 27);
        EXPECT_EQ(ProviderHTTP::monthlyCents(sign * 1999, u"else"_s, 2), sign * 999);
    }
}

TEST(ProviderHTTP, monthlyCentsRaisesACountBelowOne) {
    EXPECT_EQ(ProviderHTTP::monthlyCents(1000, u"month"_s, 0), 1000);
    EXPECT_EQ(ProviderHTTP::monthlyCents(1200, u"year"_s, -3), 100);
}

TEST(ProviderHTTP, monthlyCentsTakesAnUnknownUnitForAMonth) {
    EXPECT_EQ(ProviderHTTP::monthlyCents(1000, u"fortnight"_s, 2), 500);
}

TEST(ProviderHTTP, monthlyCentsEndsAtTheLimitOfNumbers) {
    EXPECT_GT(ProviderHTTP::monthlyCents(std::numeric_limits<qint64>::max(), u"day"_s, 1), 0);
    EXPECT_LT(ProviderHTTP::monthlyCents(std::numeric_limits<qint64>::min(), u"day"_s, 1), 0);
    const qint64 largest = std::numeric_limits<qint64>::max();
    EXPECT_EQ(ProviderHTTP::monthlyCents(largest, u"year"_s, largest), 0);
}

TEST(ProviderHTTP, tellsTheServicesOwnWordsOfARefusal) {
    EXPECT_EQ(failureOf(401, R"({"error":{"message":"nope"}})"), u"nope"_s);
    EXPECT_EQ(failureOf(401, R"({"error":"nope"})"), u"nope"_s);
    EXPECT_EQ(failureOf(401, R"({"message":"first","error":"second"})"), u"first"_s);
    EXPECT_EQ(failureOf(401, R"({"error":{"message":"second"},"message":"first"})"), u"first"_s);
    EXPECT_EQ(failureOf(401, R"({"message":1,"error":"second"})"), u"second"_s);
}

TEST(ProviderHTTP, tellsTheStatusOfARefusalWithoutWords) {
    EXPECT_EQ(failureOf(502, "<html>Bad gateway</html>"), u"HTTP 502"_s);
    EXPECT_EQ(failureOf(404, ""), u"HTTP 404"_s);
    EXPECT_EQ(failureOf(304, "[1]"), u"HTTP 304"_s);
    EXPECT_EQ(failureOf(429, R"({"error":{"message":5}})"), u"HTTP 429"_s);
    EXPECT_EQ(failureOf(199, "{}"), u"HTTP 199"_s);
}

TEST(ProviderHTTP, anEmptyBodyOfSuccessIsTheParsersError) {
    EXPECT_THROW(ProviderHTTP::decodeResponse({200, {}, ""}), DescribedError);
    EXPECT_THROW(ProviderHTTP::decodeResponse({204, {}, ""}), DescribedError);
}

TEST(ProviderHTTP, acceptsAFragment) {
    EXPECT_EQ(ProviderHTTP::decodeResponse({200, {}, "12"}).toInt(), 12);
}

TEST(ProviderHTTP, asksForJsonWithAMinuteOfTime) {
    FakeHttpClient client([](const HttpRequest &) { return FakeHttpClient::json("{}"); });
    ProviderHTTP::json(client, u"https://example.org/a?b=c%20d"_s, {{"X-Key", "1"}});
    const auto requests = client.requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].method, "GET");
    EXPECT_EQ(requests[0].url.toEncoded(), "https://example.org/a?b=c%20d");
    EXPECT_EQ(requests[0].timeout, std::chrono::seconds(60));
    const std::vector<HttpHeader> expected{{"Accept", "application/json"}, {"X-Key", "1"}};
    EXPECT_EQ(requests[0].headers, expected);
}

TEST(ProviderHTTP, aCallersAcceptReplacesOurs) {
    FakeHttpClient client([](const HttpRequest &) { return FakeHttpClient::json("{}"); });
    ProviderHTTP::json(client, u"https://example.org"_s, {{"accept", "text/plain"}});
    const auto requests = client.requests();
    ASSERT_EQ(requests[0].headers.size(), 1U);
    EXPECT_EQ(requests[0].headers[0].value, "text/plain");
}

TEST(ProviderHTTP, refusesWhatIsNoUrl) {
    FakeHttpClient client([](const HttpRequest &) { return FakeHttpClient::json("{}"); });
    for (const QString &url : {u""_s, u"https://a b"_s, u"http://[::1"_s}) {
        try {
            ProviderHTTP::json(client, url);
            ADD_FAILURE() << qPrintable(url);
        } catch (const ServiceError &error) {
            EXPECT_EQ(error.description(), u"Invalid URL"_s);
        }
    }
    EXPECT_TRUE(client.requests().empty());
}

TEST(ProviderHTTP, passesATransportErrorOn) {
    FakeHttpClient client(
        [](const HttpRequest &) -> HttpResponse { throw TransportError(u"no way"_s); });
    EXPECT_THROW(ProviderHTTP::json(client, u"https://example.org"_s), TransportError);
}

} // namespace zeph
