// SPDX-License-Identifier: MIT
#include "services/ambient/LocationManager.h"
#include "support/FakeLocation.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr Coordinate berlin{52.52, 13.405};
constexpr Coordinate paris{48.857, 2.352};

Placemark place(std::optional<QString> locality, std::optional<QString> area) {
    return {.locality = std::move(locality),
            .administrativeArea = std::move(area),
            .country = u"Somewhere"_s,
            .ocean = u"Some Sea"_s};
}

class LocationManagerTest : public testing::Test {
protected:
    FakeLocationClient client;
    FakeGeocoder geocoder;
    LocationManager manager{&client, &geocoder};
};

} // namespace

TEST_F(LocationManagerTest, becomesADelegateAndAsksForNothing) {
    EXPECT_EQ(client.delegates, 1);
    EXPECT_EQ(client.requests, 0);
    EXPECT_EQ(client.authorizationRequests, 0);
    EXPECT_EQ(manager.coordinate(), std::nullopt);
    EXPECT_EQ(manager.placeName(), std::nullopt);
}

TEST_F(LocationManagerTest, asksForAFixOnlyWhenPermissionIsGranted) {
    for (const auto status : {LocationAuthorization::notDetermined,
                              LocationAuthorization::restricted, LocationAuthorization::denied}) {
        manager.authorizationChanged(status);
        EXPECT_EQ(client.requests, 0);
    }
    manager.authorizationChanged(LocationAuthorization::authorized);
    EXPECT_EQ(client.requests, 1);
    manager.authorizationChanged(LocationAuthorization::authorized);
    EXPECT_EQ(client.requests, 2);
}

TEST_F(LocationManagerTest, changesNothingOnAnEmptyArrayOfLocations) {
    int updates = 0;
    const auto subscription = manager.onUpdate([&updates](Coordinate) { ++updates; });
    manager.locationsUpdated({berlin});
    geocoder.questions.at(0).answer({place(u"Berlin"_s, std::nullopt)});
    manager.locationsUpdated({});
    EXPECT_EQ(manager.coordinate(), berlin);
    EXPECT_EQ(manager.placeName(), u"Berlin"_s);
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(geocoder.questions.size(), 1U);
}

TEST_F(LocationManagerTest, forgetsTheFixAndItsNameWherePermissionGoes) {
    for (const auto status : {LocationAuthorization::notDetermined,
                              LocationAuthorization::restricted, LocationAuthorization::denied}) {
        manager.locationsUpdated({berlin});
        geocoder.questions.back().answer({place(u"Berlin"_s, std::nullopt)});
        std::optional<Coordinate> leftThen = berlin;
        const auto subscription = manager.onForgotten([&] { leftThen = manager.coordinate(); });
        manager.authorizationChanged(status);
        EXPECT_EQ(leftThen, std::nullopt) << "told, and after the fact";
        EXPECT_EQ(manager.coordinate(), std::nullopt);
        EXPECT_EQ(manager.placeName(), std::nullopt);
    }
}

TEST_F(LocationManagerTest, hasNothingToForgetBeforeAFix) {
    int forgotten = 0;
    const auto subscription = manager.onForgotten([&forgotten] { ++forgotten; });
    manager.authorizationChanged(LocationAuthorization::denied);
    EXPECT_EQ(forgotten, 0);
}

TEST_F(LocationManagerTest, takesNoNameForAFixThatWasForgottenMeanwhile) {
    manager.locationsUpdated({berlin});
    manager.authorizationChanged(LocationAuthorization::notDetermined);
    geocoder.questions.at(0).answer({place(u"Berlin"_s, std::nullopt)});
    EXPECT_EQ(manager.placeName(), std::nullopt);
}

TEST_F(LocationManagerTest, takesTheLastLocationOfTheArray) {
    manager.locationsUpdated({berlin, paris});
    EXPECT_EQ(manager.coordinate(), paris);
    EXPECT_EQ(geocoder.questions.at(0).position, paris);
}

TEST_F(LocationManagerTest, tellsTheFixBeforeItLooksUpItsName) {
    std::optional<Coordinate> stored;
    std::size_t questions = 99;
    std::optional<QString> name = u"unset"_s;
    const auto subscription = manager.onUpdate([&](Coordinate fix) {
        EXPECT_EQ(fix, berlin);
        stored = manager.coordinate();
        questions = geocoder.questions.size();
        name = manager.placeName();
    });
    manager.locationsUpdated({berlin});
    EXPECT_EQ(stored, berlin);
    EXPECT_EQ(questions, 0U);
    EXPECT_EQ(name, std::nullopt);
    EXPECT_EQ(geocoder.questions.size(), 1U);
}

TEST_F(LocationManagerTest, namesThePlaceByItsLocalityElseItsArea) {
    manager.locationsUpdated({berlin});
    const auto answer = geocoder.questions.at(0).answer;
    answer({place(u"Mitte"_s, u"Berlin"_s), place(u"Other"_s, u"Other"_s)});
    EXPECT_EQ(manager.placeName(), u"Mitte"_s);
    answer({place(std::nullopt, u"Berlin"_s)});
    EXPECT_EQ(manager.placeName(), u"Berlin"_s);
}

TEST_F(LocationManagerTest, clearsTheNameWhenALookupFindsNone) {
    manager.locationsUpdated({berlin});
    const auto answer = geocoder.questions.at(0).answer;
    answer({place(u"Berlin"_s, std::nullopt)});
    answer({});
    EXPECT_EQ(manager.placeName(), std::nullopt);
    answer({place(u"Berlin"_s, std::nullopt)});
    answer({place(std::nullopt, std::nullopt), place(u"Second"_s, std::nullopt)});
    EXPECT_EQ(manager.placeName(), std::nullopt);
    EXPECT_EQ(manager.coordinate(), berlin);
}

TEST_F(LocationManagerTest, keepsTheFormerNameUntilTheAnswerComes) {
    manager.locationsUpdated({berlin});
    geocoder.questions.at(0).answer({place(u"Berlin"_s, std::nullopt)});
    manager.locationsUpdated({paris});
    EXPECT_EQ(manager.placeName(), u"Berlin"_s);
}

TEST_F(LocationManagerTest, keepsTheNameOfTheLatestFixWhenAnEarlierLookupEndsAfterIt) {
    client.locate({{52.5, 13.4}});
    client.locate({{48.1, 11.6}});
    geocoder.questions.at(1).answer({place(u"Munich"_s, std::nullopt)});
    geocoder.questions.at(0).answer({place(u"Berlin"_s, std::nullopt)});
    EXPECT_EQ(manager.placeName(), u"Munich"_s);
}

TEST_F(LocationManagerTest, doesNothingOnAFailure) {
    manager.locationsUpdated({berlin});
    manager.locationFailed();
    EXPECT_EQ(manager.coordinate(), berlin);
    EXPECT_EQ(client.requests, 0);
}

TEST_F(LocationManagerTest, passesStatusAndRequestsOn) {
    client.status = LocationAuthorization::restricted;
    EXPECT_EQ(manager.authorizationStatus(), LocationAuthorization::restricted);
    manager.requestLocation();
    EXPECT_EQ(client.requests, 1);
}

TEST_F(LocationManagerTest, tellsEveryListenerUntilItsSubscriptionEnds) {
    int updates = 0;
    int others = 0;
    auto subscription = manager.onUpdate([&updates](Coordinate) { ++updates; });
    const auto other = manager.onUpdate([&others](Coordinate) { ++others; });
    client.locate({paris});
    subscription = {};
    client.locate({berlin});
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(others, 2);
    EXPECT_EQ(manager.coordinate(), berlin);
}

TEST(LocationManager, dropsAnAnswerThatComesAfterItsEnd) {
    FakeLocationClient client;
    FakeGeocoder geocoder;
    auto manager = std::make_unique<LocationManager>(&client, &geocoder);
    manager->locationsUpdated({berlin});
    manager.reset();
    client.locate({paris});
    EXPECT_EQ(geocoder.questions.size(), 1U) << "it is no delegate any more";
    geocoder.questions.at(0).answer({place(u"Berlin"_s, std::nullopt)}); // a sanitizer would tell
}

TEST(LocationManager, isQuietOnAMachineWithoutSources) {
    LocationManager manager(nullptr, nullptr);
    EXPECT_EQ(manager.authorizationStatus(), LocationAuthorization::denied);
    manager.requestLocation();
    manager.authorizationChanged(LocationAuthorization::authorized);
    manager.locationsUpdated({berlin});
    EXPECT_EQ(manager.coordinate(), berlin);
    EXPECT_EQ(manager.placeName(), std::nullopt);
}

} // namespace zeph
