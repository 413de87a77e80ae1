// SPDX-License-Identifier: MIT
#include "services/ambient/AirQualityService.h"

#include "services/ambient/BrokenAnswers.h"
#include "services/ambient/ServiceFixture.h"
#include "support/Fixture.h"
#include "support/RequestText.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr Coordinate berlin{52.52, 13.405};

class AirQualityServiceTest : public ServiceFixture {
protected:
    /// What the completion got; fails unless it came exactly once.
    std::optional<AirQualityInfo> fetch(const Coordinate &position = berlin) {
        int calls = 0;
        std::optional<AirQualityInfo> got;
        service->fetch(position, [&](const auto &info) {
            ++calls;
            got = info;
        });
        settle();
        EXPECT_EQ(calls, 1);
        return got;
    }

    std::unique_ptr<AirQualityService> service =
        std::make_unique<AirQualityService>(http, endpoints, background, owner, clock);
};

} // namespace

TEST_F(AirQualityServiceTest, asksForTheIndexOfThePosition) {
    answer(fixture("open-meteo/air-quality.json"));
    EXPECT_EQ(fetch(), (AirQualityInfo{57, clock.now()}));
    ASSERT_EQ(requestCount(), 1U);
    EXPECT_EQ(requestText(http.requests().front()),
              "GET https://air-quality-api.open-meteo.com/v1/air-quality"
              "?latitude=52.52&longitude=13.405&current=us_aqi\n"
              "Accept: application/json");
    EXPECT_EQ(http.requests().front().timeout, std::chrono::seconds(60));
}

TEST_F(AirQualityServiceTest, writesAPositionInTheShortestFormThatReadsBack) {
    fetch({-33.86785, 0.1 + 0.2});
    fetch({0, -180});
    fetch({90, 100});
    fetch({1e-9, 13});
    std::vector<std::string> queries;
    for (const HttpRequest &request : http.requests()) {
        queries.push_back(request.url.query().section(u'&', 0, 1).toStdString());
    }
    EXPECT_THAT(queries,
                testing::ElementsAre("latitude=-33.86785&longitude=0.30000000000000004",
                                     "latitude=0&longitude=-180", "latitude=90&longitude=100",
                                     "latitude=1e-09&longitude=13"));
}

TEST_F(AirQualityServiceTest, answersOnTheMainThreadAfterTheTask) {
    answer(fixture("open-meteo/air-quality.json"));
    int calls = 0;
    service->fetch(berlin, [&calls](const auto &) { ++calls; });
    EXPECT_EQ(requestCount(), 0U);
    tasks.runAll();
    EXPECT_EQ(requestCount(), 1U);
    EXPECT_EQ(calls, 0);
    runLoop.drain();
    EXPECT_EQ(calls, 1);
}

TEST_F(AirQualityServiceTest, servesAnAnswerOf1800SecondsWithinTheCall) {
    answer(fixture("open-meteo/air-quality.json"));
    const auto first = fetch();
    clock.advance(1799.9);
    std::optional<AirQualityInfo> served;
    service->fetch(berlin, [&served](const auto &info) { served = info; });
    EXPECT_EQ(served, first);
    EXPECT_EQ(tasks.waiting(), 0U);
    clock.advance(0.1);
    EXPECT_EQ(fetch()->updated, clock.now());
    EXPECT_EQ(requestCount(), 2U);
}

TEST_F(AirQualityServiceTest, needsAnIntegerIndex) {
    for (const char *body :
         {R"({"current":{}})", R"({"current":{"us_aqi":"57"}})", R"({"current":{"us_aqi":57.5}})",
          R"({"current":{"us_aqi":true}})", R"({"current":{"us_aqi":null}})",
          R"({"current":{"us_aqi":1e300}})", R"({"current":{"us_aqi":9223372036854775808}})",
          R"({"current":[57]})", R"({"us_aqi":57})", R"([{"current":{"us_aqi":57}}])"}) {
        answer(body);
        EXPECT_EQ(fetch(), std::nullopt) << body;
    }
}

TEST_F(AirQualityServiceTest, refusesAPageThatIsNoSuccess) {
    answer(fixture("open-meteo/air-quality.json"), 500);
    EXPECT_EQ(fetch(), std::nullopt);
}

TEST_F(AirQualityServiceTest, hasNothingWhereTheFirstAnswerIsBroken) {
    for (const BrokenAnswer &broken : brokenAnswers()) {
        server = broken.handler;
        EXPECT_EQ(fetch(), std::nullopt) << broken.name;
    }
    EXPECT_EQ(requestCount(), brokenAnswers().size());
}

TEST_F(AirQualityServiceTest, servesTheLastGoodAnswerAfterAFailureAndAsksAgain) {
    answer(fixture("open-meteo/air-quality.json"));
    const auto good = fetch();
    clock.advance(1800);
    std::size_t asked = 1;
    for (const BrokenAnswer &broken : brokenAnswers()) {
        server = broken.handler;
        EXPECT_EQ(fetch(), good) << broken.name;
        EXPECT_EQ(requestCount(), ++asked) << broken.name;
    }
}

TEST_F(AirQualityServiceTest, hasNothingWithoutAnAddress) {
    endpoints.airQuality = u"http://[::1"_s;
    service = std::make_unique<AirQualityService>(http, endpoints, background, owner, clock);
    EXPECT_EQ(fetch(), std::nullopt);
    EXPECT_EQ(requestCount(), 0U);
}

TEST_F(AirQualityServiceTest, servesTheLastGoodAnswerWhenCancelled) {
    answer(fixture("open-meteo/air-quality.json"));
    const auto good = fetch();
    clock.advance(1800);
    http.cancelAll();
    EXPECT_EQ(fetch(), good);
}

TEST_F(AirQualityServiceTest, answersAfterItsEndAsWell) {
    answer(fixture("open-meteo/air-quality.json"));
    std::vector<std::optional<AirQualityInfo>> got;
    service->fetch(berlin, [&got](const auto &info) { got.push_back(info); });
    service->fetch(berlin, [&got](const auto &info) { got.push_back(info); });
    tasks.runAt(0);
    service.reset();
    answer("");
    settle();
    EXPECT_THAT(got, testing::ElementsAre(AirQualityInfo{57, clock.now()}, std::nullopt));
}

} // namespace zeph
