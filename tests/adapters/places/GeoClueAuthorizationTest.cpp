// SPDX-License-Identifier: MIT
#include "adapters/places/GeoClueFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class GeoClueAuthorization : public GeoClueFixture {
protected:
    bool hasStatus(LocationAuthorization status) {
        return eventually([&] { return delegate.statuses == std::vector{status}; });
    }
};

TEST_F(GeoClueAuthorization, asksNobodyUnlessTold) {
    geoclue.appear();
    listen();
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::notDetermined);
    const GeoClueLocationClient fresh(connection.bus(), permission, [] { return std::nullopt; });
    EXPECT_EQ(fresh.authorizationStatus(), LocationAuthorization::notDetermined);
    client.reset();
    EXPECT_TRUE(callsSoFar().isEmpty());
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(GeoClueAuthorization, isGrantedWhenTheServiceStarts) {
    geoclue.appear();
    listen().requestWhenInUseAuthorization();
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::notDetermined);
    ASSERT_TRUE(hasStatus(LocationAuthorization::authorized));
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::authorized);
    EXPECT_EQ(permission.status(), LocationAuthorization::authorized);
    EXPECT_TRUE(called(u"DeleteClient"_s)) << "nobody asked for a fix";
    EXPECT_EQ(delegate.answers(), 0U);
    EXPECT_EQ(client->hindrance(), LocationHindrance::none);
}

TEST_F(GeoClueAuthorization, leadsToAFixInTheSameConversation) {
    geoclue.appear();
    listen();
    askWhenAuthorized();
    client->requestWhenInUseAuthorization();
    ASSERT_TRUE(hasStatus(LocationAuthorization::authorized));
    geoclue.locate(lisbon);
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{lisbon}}));
    EXPECT_EQ(geoclue.count(u"Start"_s), 1);
}

TEST_F(GeoClueAuthorization, keepsAFixThatComesWithThePermission) {
    geoclue.appear();
    geoclue.atStart = {{u"Latitude"_s, 38.72}, {u"Longitude"_s, -9.14}};
    listen();
    askWhenAuthorized();
    client->requestWhenInUseAuthorization();
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{lisbon}}));
}

TEST_F(GeoClueAuthorization, isDeniedWhenTheUserRefuses) {
    geoclue.appear();
    geoclue.refused = {u"Start"_s};
    listen();
    askWhenAuthorized();
    client->requestWhenInUseAuthorization();
    ASSERT_TRUE(hasStatus(LocationAuthorization::denied));
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::denied);
    EXPECT_EQ(delegate.answers(), 0U);
    EXPECT_EQ(defaults.writes, 0);
    client->requestWhenInUseAuthorization();
    EXPECT_EQ(callsSoFar().count(u"GetClient"_s), 1) << "the question is settled";
    EXPECT_EQ(client->hindrance(), LocationHindrance::refused);
}

TEST_F(GeoClueAuthorization, mayBeAskedForAgainAMinuteAfterARefusal) {
    geoclue.appear();
    geoclue.refused = {u"Start"_s};
    listen().requestWhenInUseAuthorization();
    ASSERT_TRUE(hasStatus(LocationAuthorization::denied));
    delegate.statuses.clear();
    now += std::chrono::minutes(1);
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::notDetermined);
    geoclue.refused.clear();
    client->requestWhenInUseAuthorization();
    EXPECT_TRUE(hasStatus(LocationAuthorization::authorized));
}

TEST_F(GeoClueAuthorization, waitsForTheUserToAnswer) {
    geoclue.appear();
    geoclue.mute = {u"Start"_s};
    listen().requestWhenInUseAuthorization();
    ASSERT_TRUE(called(u"Start"_s));
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::notDetermined);
    client->requestWhenInUseAuthorization();
    geoclue.answerLate();
    ASSERT_TRUE(hasStatus(LocationAuthorization::authorized));
    EXPECT_EQ(geoclue.count(u"Start"_s), 1);
}

TEST_F(GeoClueAuthorization, staysOpenWhenTheUserNeverAnswers) {
    geoclue.appear();
    geoclue.mute = {u"Start"_s};
    listen({.authorization = std::chrono::milliseconds(100), .agent = std::chrono::seconds(1)});
    client->requestWhenInUseAuthorization();
    ASSERT_TRUE(called(u"DeleteClient"_s)) << "the question is taken back";
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::notDetermined);
    EXPECT_TRUE(delegate.statuses.empty());
    EXPECT_EQ(delegate.answers(), 0U);
    geoclue.mute.clear();
    EXPECT_TRUE(eventually([&] {
        client->requestWhenInUseAuthorization();
        return delegate.statuses == std::vector{LocationAuthorization::authorized};
    })) << "it may be asked again";
}

TEST_F(GeoClueAuthorization, staysOpenWhenTheServiceEndsInTheMiddle) {
    geoclue.appear();
    geoclue.mute = {u"Start"_s};
    listen().requestWhenInUseAuthorization();
    ASSERT_TRUE(called(u"Start"_s));
    geoclue.vanish();
    geoclue.mute.clear();
    geoclue.appear();
    ASSERT_TRUE(eventually([&] {
        client->requestWhenInUseAuthorization(); // heard once the end of the service is known
        return geoclue.count(u"GetClient"_s) == 2;
    }));
    EXPECT_TRUE(hasStatus(LocationAuthorization::authorized));
}

TEST_F(GeoClueAuthorization, isTheUsersAloneWithoutAService) {
    listen();
    askWhenAuthorized();
    client->requestWhenInUseAuthorization();
    ASSERT_TRUE(hasStatus(LocationAuthorization::authorized));
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}}));
    EXPECT_EQ(client->hindrance(), LocationHindrance::noService);
}

TEST_F(GeoClueAuthorization, isTheUsersAloneOnADesktopWithoutAnAgent) {
    geoclue.appear();
    geoclue.mute = {u"GetClient"_s}; // as the service does while it waits for an agent
    listen({.fix = std::chrono::milliseconds(100), .agent = std::chrono::milliseconds(100)});
    askWhenAuthorized();
    client->requestWhenInUseAuthorization();
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::notDetermined);
    ASSERT_TRUE(hasStatus(LocationAuthorization::authorized));
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}}));
    EXPECT_EQ(client->hindrance(), LocationHindrance::noAgent);
}

TEST_F(GeoClueAuthorization, letsAnAgentThatComesLateHaveTheLastWord) {
    geoclue.appear();
    geoclue.mute = {u"GetClient"_s};
    listen({.agent = std::chrono::milliseconds(100)});
    delegate.onAuthorization = [this](LocationAuthorization status) {
        geoclue.mute.clear();
        geoclue.refused = {u"Start"_s};
        if (status == LocationAuthorization::authorized) {
            client->requestLocation();
        }
    };
    client->requestWhenInUseAuthorization();
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.failures, 1);
    EXPECT_EQ(delegate.statuses,
              (std::vector{LocationAuthorization::authorized, LocationAuthorization::denied}));
}

TEST_F(GeoClueAuthorization, ofAnEarlierStartFindsTheAgentMissingWhenAFixDoesNotCome) {
    geoclue.appear();
    geoclue.mute = {u"GetClient"_s};
    listenWithConsent({.fix = std::chrono::milliseconds(100)}).requestLocation();
    EXPECT_EQ(client->hindrance(), LocationHindrance::none);
    ASSERT_TRUE(answered());
    EXPECT_EQ(client->hindrance(), LocationHindrance::noAgent);
}

TEST_F(GeoClueAuthorization, findsNothingMissingWhenTheServiceOnlyHasNoFix) {
    geoclue.appear();
    listenWithConsent({.fix = std::chrono::milliseconds(100)}).requestLocation();
    ASSERT_TRUE(answered());
    EXPECT_EQ(client->hindrance(), LocationHindrance::none);
}

TEST_F(GeoClueAuthorization, asksNothingWhenItIsSettled) {
    geoclue.appear();
    listenWithConsent().requestWhenInUseAuthorization();
    permission.refuse();
    client->requestWhenInUseAuthorization();
    EXPECT_TRUE(callsSoFar().isEmpty());
    EXPECT_TRUE(delegate.statuses.empty());
}

} // namespace

} // namespace zeph
