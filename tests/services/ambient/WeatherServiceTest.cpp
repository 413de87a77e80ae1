// SPDX-License-Identifier: MIT
#include "services/ambient/WeatherService.h"

#include "services/ambient/BrokenAnswers.h"
#include "services/ambient/ServiceFixture.h"
#include "support/Fixture.h"
#include "support/QtPrinters.h"
#include "support/RequestText.h"
#include "wording/WeatherDescription.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr Coordinate berlin{52.52, 13.405};

class WeatherServiceTest : public ServiceFixture {
protected:
    /// What the completion got; fails unless it came exactly once.
    std::optional<WeatherInfo> fetch(bool force = false) {
        int calls = 0;
        std::optional<WeatherInfo> got;
        service->fetch(berlin, u"Berlin"_s, force, [&](const auto &info) {
            ++calls;
            got = info;
        });
        settle();
        EXPECT_EQ(calls, 1);
        return got;
    }

    /// What an answer with these current conditions makes.
    std::optional<WeatherInfo> fetchWith(const QByteArray &conditions) {
        answer(R"({"current":)" + conditions + "}");
        return fetch(true);
    }

    std::unique_ptr<WeatherService> service =
        std::make_unique<WeatherService>(http, endpoints, background, owner, clock);
};

} // namespace

TEST_F(WeatherServiceTest, asksForTheCurrentConditions) {
    answer(fixture("open-meteo/forecast.json"));
    fetch();
    ASSERT_EQ(requestCount(), 1U);
    const HttpRequest request = http.requests().front();
    EXPECT_EQ(requestText(request),
              "GET https://api.open-meteo.com/v1/forecast?latitude=52.520&longitude=13.405"
              "&current=temperature_2m,apparent_temperature,weather_code,is_day&timezone=auto");
    EXPECT_EQ(request.timeout, std::chrono::seconds(60));
}

TEST_F(WeatherServiceTest, roundsAPositionToThreeDecimals) {
    const auto query = [](const Coordinate &position) {
        const HttpRequest request = WeatherService::request(u"http://127.0.0.1:8080"_s, position);
        return request.url.query().section(u'&', 0, 1);
    };
    EXPECT_EQ(query({-33.86785, 151.2}), u"latitude=-33.868&longitude=151.200"_s);
    EXPECT_EQ(query({0, -180}), u"latitude=0.000&longitude=-180.000"_s);
    EXPECT_EQ(query({0.0625, 0.1875}), u"latitude=0.062&longitude=0.188"_s);
    EXPECT_EQ(query({-0.0001, 1e-9}), u"latitude=-0.000&longitude=0.000"_s);
}

TEST_F(WeatherServiceTest, readsTheWholeAnswer) {
    answer(fixture("open-meteo/forecast.json"));
    const auto info = fetch();
    ASSERT_TRUE(info);
    EXPECT_EQ(info->temperatureC, 6.4);
    EXPECT_EQ(info->apparentC, 3.1);
    EXPECT_EQ(info->code, 61);
    EXPECT_FALSE(info->isDay);
    EXPECT_EQ(info->locationName, u"Berlin"_s);
    EXPECT_EQ(info->updated, clock.now());
}

TEST_F(WeatherServiceTest, answersOnTheMainThreadAfterTheTask) {
    answer(fixture("open-meteo/forecast.json"));
    int calls = 0;
    service->fetch(berlin, std::nullopt, false, [&calls](const auto &info) {
        ++calls;
        EXPECT_EQ(info->locationName, std::nullopt);
    });
    EXPECT_EQ(requestCount(), 0U);
    tasks.runAll();
    EXPECT_EQ(requestCount(), 1U);
    EXPECT_EQ(calls, 0);
    runLoop.drain();
    EXPECT_EQ(calls, 1);
}

TEST_F(WeatherServiceTest, takesAnAnswerWithoutIsDayForDay) {
    EXPECT_TRUE(fetchWith(R"({"temperature_2m":1})")->isDay);
}

TEST_F(WeatherServiceTest, takesOnlyTheInteger1AmongIntegersForDay) {
    EXPECT_TRUE(fetchWith(R"({"temperature_2m":1,"is_day":1})")->isDay);
    EXPECT_FALSE(fetchWith(R"({"temperature_2m":1,"is_day":0})")->isDay);
    EXPECT_FALSE(fetchWith(R"({"temperature_2m":1,"is_day":2})")->isDay);
    EXPECT_FALSE(fetchWith(R"({"temperature_2m":1,"is_day":-1})")->isDay);
    for (const char *noInteger : {"null", "\"0\"", "0.5", "1e300", "[]", "{}"}) {
        const auto info =
            fetchWith(QByteArray(R"({"temperature_2m":1,"is_day":)") + noInteger + "}");
        ASSERT_TRUE(info) << noInteger;
        EXPECT_TRUE(info->isDay) << noInteger;
    }
}

TEST_F(WeatherServiceTest, readsAStringWeatherCodeAs0HenceClear) {
    const auto info = fetchWith(R"({"temperature_2m":1,"weather_code":"61"})");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->code, 0);
    EXPECT_EQ(describe(info->code, info->isDay).text, u"Clear"_s);
}

TEST_F(WeatherServiceTest, readsACodeThatIsNoIntegerAs0) {
    EXPECT_EQ(fetchWith(R"({"temperature_2m":1})")->code, 0);
    EXPECT_EQ(fetchWith(R"({"temperature_2m":1,"weather_code":61.5})")->code, 0);
    EXPECT_EQ(fetchWith(R"({"temperature_2m":1,"weather_code":1e300})")->code, 0);
    EXPECT_EQ(fetchWith(R"({"temperature_2m":1,"weather_code":true})")->code, 0);
    EXPECT_EQ(fetchWith(R"({"temperature_2m":1,"weather_code":-7})")->code, -7);
}

TEST_F(WeatherServiceTest, leavesAFeltTemperatureThatIsNoNumberOut) {
    EXPECT_EQ(fetchWith(R"({"temperature_2m":-1.5})")->apparentC, std::nullopt);
    EXPECT_EQ(fetchWith(R"({"temperature_2m":1,"apparent_temperature":"3"})")->apparentC,
              std::nullopt);
    EXPECT_EQ(fetchWith(R"({"temperature_2m":1,"apparent_temperature":null})")->apparentC,
              std::nullopt);
    EXPECT_EQ(fetchWith(R"({"temperature_2m":1,"apparent_temperature":-3})")->apparentC, -3.0);
}

TEST_F(WeatherServiceTest, needsATemperature) {
    for (const char *conditions :
         {"{}", R"({"temperature_2m":"6.4"})", R"({"temperature_2m":null})",
          R"({"temperature_2m":true})", R"({"temperature_2m":1e999})", "[6.4]", "6.4",
          R"({"apparent_temperature":3.1,"weather_code":61,"is_day":0})"}) {
        EXPECT_EQ(fetchWith(conditions), std::nullopt) << conditions;
    }
}

TEST_F(WeatherServiceTest, servesAnAnswerOf1800SecondsWithinTheCall) {
    answer(fixture("open-meteo/forecast.json"));
    const auto first = fetch();
    clock.advance(1799.9);
    std::optional<WeatherInfo> served;
    service->fetch(berlin, u"Elsewhere"_s, false, [&served](const auto &info) { served = info; });
    EXPECT_EQ(served, first);
    EXPECT_EQ(tasks.waiting(), 0U);
    EXPECT_EQ(requestCount(), 1U);
    clock.advance(0.1);
    EXPECT_EQ(fetch()->updated, clock.now());
    EXPECT_EQ(requestCount(), 2U);
}

TEST_F(WeatherServiceTest, ignoresTheAgeOfTheLastAnswerWhenForced) {
    answer(fixture("open-meteo/forecast.json"));
    fetch();
    clock.advance(1);
    EXPECT_EQ(fetch(true)->updated, clock.now());
    EXPECT_EQ(requestCount(), 2U);
}

TEST_F(WeatherServiceTest, takesAPageThatCanBeReadWhateverItsStatus) {
    answer(fixture("open-meteo/forecast.json"), 503);
    const auto info = fetch();
    ASSERT_TRUE(info);
    EXPECT_EQ(info->temperatureC, 6.4);
}

TEST_F(WeatherServiceTest, hasNothingWhereTheFirstAnswerIsBroken) {
    for (const BrokenAnswer &broken : brokenAnswers()) {
        server = broken.handler;
        EXPECT_EQ(fetch(), std::nullopt) << broken.name;
    }
    EXPECT_EQ(requestCount(), brokenAnswers().size());
}

TEST_F(WeatherServiceTest, servesTheLastGoodAnswerAfterAFailureAndAsksAgain) {
    answer(fixture("open-meteo/forecast.json"));
    const auto good = fetch();
    clock.advance(1800);
    std::size_t asked = 1;
    for (const BrokenAnswer &broken : brokenAnswers()) {
        server = broken.handler;
        EXPECT_EQ(fetch(), good) << broken.name;
        EXPECT_EQ(requestCount(), ++asked) << broken.name; // a failure does not count as an answer
    }
    clock.advance(1e6);
    EXPECT_EQ(fetch(), good);
}

TEST_F(WeatherServiceTest, keepsTheAgeOfTheLastAnswerThroughAForcedFailure) {
    answer(fixture("open-meteo/forecast.json"));
    const auto good = fetch();
    clock.advance(1000);
    answer("");
    EXPECT_EQ(fetch(true), good);
    clock.advance(799);
    fetch();
    EXPECT_EQ(requestCount(), 2U);
    clock.advance(1);
    fetch();
    EXPECT_EQ(requestCount(), 3U);
}

TEST_F(WeatherServiceTest, hasNothingWithoutAnAddress) {
    endpoints.weather = u"http://[::1"_s;
    int calls = 0;
    service = std::make_unique<WeatherService>(http, endpoints, background, owner, clock);
    service->fetch(berlin, std::nullopt, true, [&calls](const auto &info) {
        ++calls;
        EXPECT_EQ(info, std::nullopt);
    });
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(tasks.waiting(), 0U);
}

TEST_F(WeatherServiceTest, servesTheLastGoodAnswerWhenCancelled) {
    answer(fixture("open-meteo/forecast.json"));
    const auto good = fetch();
    http.cancelAll();
    EXPECT_EQ(fetch(true), good);
}

TEST_F(WeatherServiceTest, answersAbsentOnAFailureAfterItsEnd) {
    answer(fixture("open-meteo/forecast.json"));
    fetch();
    answer("");
    int calls = 0;
    service->fetch(berlin, std::nullopt, true, [&calls](const auto &info) {
        ++calls;
        EXPECT_EQ(info, std::nullopt);
    });
    tasks.runAll();
    service.reset();
    runLoop.drain();
    EXPECT_EQ(calls, 1);
}

TEST_F(WeatherServiceTest, stillHandsAGoodAnswerOnAfterItsEnd) {
    answer(fixture("open-meteo/forecast.json"));
    std::optional<WeatherInfo> got;
    service->fetch(berlin, std::nullopt, true, [&got](const auto &info) { got = info; });
    service.reset();
    settle();
    ASSERT_TRUE(got);
    EXPECT_EQ(got->code, 61);
}

TEST_F(WeatherServiceTest, keepsTheAnswerOfTheTaskThatEndsLast) {
    answer(R"({"current":{"temperature_2m":1}})");
    service->fetch(berlin, u"first"_s, true, [](const auto &) {});
    service->fetch(berlin, u"second"_s, true, [](const auto &) {});
    tasks.runAt(1);
    tasks.runAt(0);
    runLoop.drain();
    EXPECT_EQ(fetch()->locationName, u"first"_s);
    EXPECT_EQ(requestCount(), 2U);
}

} // namespace zeph
