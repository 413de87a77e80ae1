// SPDX-License-Identifier: MIT
#include "services/ambient/SolarCalculator.h"
#include "support/CoordinatorFixture.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

constexpr Coordinate berlin{52.5, 13.4};
constexpr double halfAnHour = 1800;

class AmbientFeedsTest : public CoordinatorFixture {
protected:
    explicit AmbientFeedsTest(const QString &locale = u"en_US"_s) : CoordinatorFixture(locale) {
        for (const WidgetKind kind : {WidgetKind::onThisDay, WidgetKind::iss,
                                      WidgetKind::airQuality, WidgetKind::devices}) {
            preferences.set(WidgetPlacement::off, kind);
        }
        answerAll();
    }

    void answerAll() {
        http.setHandler([this](const HttpRequest &request) {
            const QString server = request.url.host();
            ++asked[server];
            if (server == u"air-quality-api.open-meteo.com") {
                return FakeHttpClient::json(R"({"current":{"us_aqi":42}})");
            }
            if (server == u"byabbe.se") {
                return FakeHttpClient::json(
                    R"({"events":[{"year":"1869","description":"A railway is finished."}]})");
            }
            if (server == u"api.wheretheiss.at") {
                return FakeHttpClient::json(
                    R"({"latitude":-10.5,"longitude":80.25,"altitude":419.5})");
            }
            return FakeHttpClient::json(R"({"current":{"temperature_2m":17.5,"weather_code":2}})");
        });
    }
    void failAll() {
        http.setHandler([this](const HttpRequest &request) -> HttpResponse {
            ++asked[request.url.host()];
            throw TransportError(u"There is no network."_s);
        });
    }
    /// Runs the tasks that wait and hands their answers to the main thread.
    void settle() {
        executor.runAll();
        loop.advance(0);
        executor.runAll();
        loop.advance(0);
    }
    void findPosition(const Coordinate &position = berlin) { locationClient.locate({position}); }
    void turnOn(WidgetKind kind) { preferences.set(WidgetPlacement::always, kind); }

    int weatherRequests() { return asked[u"api.open-meteo.com"_s]; }
    int airRequests() { return asked[u"air-quality-api.open-meteo.com"_s]; }

    std::map<QString, int> asked;
};

/// The user's calendar is another one.
class PersianAmbientFeedsTest : public AmbientFeedsTest {
protected:
    PersianAmbientFeedsTest() : AmbientFeedsTest(u"fa_IR"_s) {}
};

TEST_F(AmbientFeedsTest, withoutAPositionNeitherWeatherNorAirIsAskedFor) {
    turnOn(WidgetKind::airQuality);
    makeCoordinator().start();
    loop.advance(90);
    settle();
    EXPECT_EQ(weatherRequests(), 0);
    EXPECT_EQ(airRequests(), 0);
}

TEST_F(AmbientFeedsTest, aFixFetchesTheWeatherAtOnce) {
    makeCoordinator().start();
    findPosition();
    settle();
    ASSERT_TRUE(*state.weather);
    EXPECT_DOUBLE_EQ((*state.weather)->temperatureC, 17.5);
}

TEST_F(AmbientFeedsTest, twoFixesFetchTwiceAndASlowTickWithinHalfAnHourDoesNot) {
    makeCoordinator().start();
    findPosition();
    settle();
    loop.advance(90);
    findPosition();
    settle();
    EXPECT_EQ(weatherRequests(), 2);
    loop.advance(halfAnHour - 45);
    settle();
    EXPECT_EQ(weatherRequests(), 2);
    loop.advance(90);
    settle();
    EXPECT_EQ(weatherRequests(), 3);
}

TEST_F(AmbientFeedsTest, aPositionThatWasTakenBackIsAskedWithNoMoreAndNothingOfItStays) {
    turnOn(WidgetKind::airQuality);
    makeCoordinator().start();
    findPosition();
    loop.advance(45);
    settle();
    ASSERT_TRUE(*state.weather);
    ASSERT_TRUE(*state.airQuality);
    ASSERT_TRUE((*state.solar).sunrise);

    locationClient.tellAuthorization(LocationAuthorization::notDetermined);
    EXPECT_FALSE(*state.weather);
    EXPECT_FALSE(*state.airQuality);
    EXPECT_EQ(*state.solar, SolarInfo());
    const int weatherBefore = weatherRequests();
    const int airBefore = airRequests();
    loop.advance(7200);
    settle();
    EXPECT_EQ(weatherRequests(), weatherBefore);
    EXPECT_EQ(airRequests(), airBefore);
    EXPECT_EQ(*state.solar, SolarInfo());

    findPosition(); // allowed again
    settle();
    EXPECT_EQ(weatherRequests(), weatherBefore + 1);
    EXPECT_TRUE(*state.weather);
}

TEST_F(AmbientFeedsTest, whatAForgottenPositionWasToldIsNotServedToTheNextOne) {
    turnOn(WidgetKind::airQuality);
    turnOn(WidgetKind::iss);
    makeCoordinator().start();
    findPosition();
    loop.advance(45);
    settle();
    geocoder.questions.back().answer({}); // what lies beneath the station
    ASSERT_TRUE(*state.iss);
    ASSERT_TRUE((*state.iss)->distanceKm);
    locationClient.tellAuthorization(LocationAuthorization::notDetermined);
    ASSERT_TRUE(*state.iss);
    EXPECT_FALSE((*state.iss)->distanceKm);

    failAll();
    const int airBefore = airRequests();
    findPosition(); // of another town, without a network
    loop.advance(45);
    settle();
    EXPECT_FALSE(*state.weather);
    EXPECT_FALSE(*state.airQuality);
    EXPECT_GT(airRequests(), airBefore);
}

TEST_F(AmbientFeedsTest, anAnswerThatComesAfterThePositionWasTakenBackIsNotShown) {
    turnOn(WidgetKind::airQuality);
    makeCoordinator().start();
    findPosition();
    loop.advance(45); // both are asked, nothing has answered
    locationClient.tellAuthorization(LocationAuthorization::notDetermined);
    failAll();
    findPosition(); // again, before the answers of the first one came
    settle();
    EXPECT_GT(weatherRequests() + airRequests(), 1);
    EXPECT_FALSE(*state.weather);
    EXPECT_FALSE(*state.airQuality);
}

TEST_F(AmbientFeedsTest, weatherAndAirOfExactlyHalfAnHourAreAskedForAgain) {
    turnOn(WidgetKind::airQuality);
    makeCoordinator().start();
    findPosition();
    settle();
    loop.advance(45);
    settle();
    ASSERT_EQ(airRequests(), 1);
    loop.advance(halfAnHour - 2 * 45);
    settle();
    EXPECT_EQ(weatherRequests(), 1) << "45 seconds less";
    loop.advance(45);
    settle();
    EXPECT_EQ(weatherRequests(), 2);
    EXPECT_EQ(airRequests(), 1) << "45 seconds less";
    loop.advance(45);
    settle();
    EXPECT_EQ(airRequests(), 2);
}

TEST_F(AmbientFeedsTest, aTickAsksForNoWeatherThatIsFreshThoughTheAttemptIsOld) {
    makeCoordinator().start();
    findPosition();
    loop.advance(90);
    settle(); // the answer took its time, and is fresh from now on
    ASSERT_EQ(weatherRequests(), 1);
    loop.advance(halfAnHour - 90);
    settle();
    EXPECT_EQ(weatherRequests(), 1);
}

TEST_F(AmbientFeedsTest, theWeatherStaysThroughAnOutageThatIsNotRetriedAtEveryTick) {
    makeCoordinator().start();
    findPosition();
    settle();
    failAll();
    loop.advance(halfAnHour + 45);
    settle();
    EXPECT_EQ(weatherRequests(), 2);
    loop.advance(halfAnHour - 90);
    settle();
    EXPECT_EQ(weatherRequests(), 2) << "the attempt counts";
    ASSERT_TRUE(*state.weather);
    EXPECT_DOUBLE_EQ((*state.weather)->temperatureC, 17.5);
}

TEST_F(AmbientFeedsTest, theAirIsReadWhileItsWidgetIsOnAndServedForHalfAnHour) {
    makeCoordinator().start();
    findPosition();
    loop.advance(45);
    settle();
    EXPECT_EQ(airRequests(), 0);
    turnOn(WidgetKind::airQuality);
    loop.advance(45);
    settle();
    EXPECT_EQ(airRequests(), 1);
    ASSERT_TRUE(*state.airQuality);
    EXPECT_EQ((*state.airQuality)->aqi, 42);
    loop.advance(900);
    settle();
    EXPECT_EQ(airRequests(), 1);
}

TEST_F(AmbientFeedsTest, weatherAndAirAreAskedForAgainAfterTheClockWasSetBackFar) {
    turnOn(WidgetKind::airQuality);
    makeCoordinator().start();
    findPosition();
    loop.advance(45);
    settle();
    ASSERT_EQ(weatherRequests(), 1);
    ASSERT_EQ(airRequests(), 1);
    clock.advance(-7200);
    loop.advance(45);
    settle();
    EXPECT_EQ(weatherRequests(), 2);
    EXPECT_EQ(airRequests(), 2);
}

TEST_F(AmbientFeedsTest, aFailedReadingLeavesTheOldOneInPlace) {
    turnOn(WidgetKind::airQuality);
    makeCoordinator().start();
    findPosition();
    loop.advance(45);
    settle();
    failAll();
    loop.advance(2 * halfAnHour);
    settle();
    EXPECT_GT(airRequests(), 1);
    ASSERT_TRUE(*state.airQuality);
}

TEST_F(AmbientFeedsTest, historyAndTheStationAreAskedForWhileTheirWidgetsAreOn) {
    makeCoordinator().start();
    loop.advance(90);
    settle();
    EXPECT_TRUE(asked.empty());
    turnOn(WidgetKind::onThisDay);
    turnOn(WidgetKind::iss);
    loop.advance(45);
    settle();
    ASSERT_TRUE(*state.onThisDay);
    EXPECT_EQ((*state.onThisDay)->year, u"1869"_s);
    ASSERT_EQ(geocoder.questions.size(), 1U);
    geocoder.questions[0].answer({});
    settle();
    ASSERT_TRUE(*state.iss);
    EXPECT_DOUBLE_EQ((*state.iss)->altitudeKm, 420);
}

TEST_F(PersianAmbientFeedsTest, theSunAndHistoryGoByTheGregorianCalendar) {
    turnOn(WidgetKind::onThisDay);
    makeCoordinator().start();
    locationClient.locate({berlin});
    EXPECT_EQ(*state.solar, SolarCalculator::solar(berlin, clock.now(), gregorian));
    EXPECT_NE(*state.solar, SolarCalculator::solar(berlin, clock.now(), calendar));
    settle();
    QStringList history;
    for (const HttpRequest &request : http.requests()) {
        if (request.url.host() == u"byabbe.se") {
            history << request.url.path();
        }
    }
    EXPECT_EQ(history, QStringList(u"/on-this-day/11/14/events.json"_s));
}

TEST_F(AmbientFeedsTest, aDayWithoutHistoryLeavesTheWallpaper) {
    turnOn(WidgetKind::onThisDay);
    makeCoordinator();
    state.onThisDay = OnThisDayInfo{};
    failAll();
    coordinator->start();
    settle();
    EXPECT_FALSE(*state.onThisDay);
}

TEST_F(AmbientFeedsTest, aStationThatCanNotBeFoundLeavesTheWallpaper) {
    turnOn(WidgetKind::iss);
    makeCoordinator();
    state.iss = ISSInfo{};
    failAll();
    coordinator->start();
    settle();
    EXPECT_FALSE(*state.iss);
}

TEST_F(AmbientFeedsTest, answersAfterTheEndOfTheCoordinatorChangeNothing) {
    turnOn(WidgetKind::onThisDay);
    turnOn(WidgetKind::iss);
    turnOn(WidgetKind::airQuality);
    makeCoordinator().start();
    findPosition();
    loop.advance(45);
    coordinator.reset();
    settle();
    EXPECT_FALSE(*state.weather);
    EXPECT_FALSE(*state.airQuality);
    EXPECT_FALSE(*state.onThisDay);
    EXPECT_FALSE(*state.iss);
}

} // namespace
} // namespace zeph
