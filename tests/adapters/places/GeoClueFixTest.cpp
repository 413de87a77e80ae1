// SPDX-License-Identifier: MIT
#include "adapters/places/GeoClueFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// Long enough for a busy machine to answer before, short enough to wait for.
constexpr LocationPatience shortPatience{.fix = std::chrono::milliseconds(100)};

class GeoClueFix : public GeoClueFixture {};

TEST_F(GeoClueFix, asksForTheCityInTheNameOfTheDesktopEntry) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    EXPECT_EQ(geoclue.calls, (QStringList{u"GetClient"_s, u"Set"_s, u"Set"_s, u"Start"_s}));
    EXPECT_EQ(geoclue.properties.value(u"DesktopId"_s), u"com.tavi.Tavi"_s);
    EXPECT_EQ(geoclue.properties.value(u"RequestedAccuracyLevel"_s).typeId(), QMetaType::UInt);
    EXPECT_EQ(geoclue.properties.value(u"RequestedAccuracyLevel"_s).toUInt(), 4U);
}

TEST_F(GeoClueFix, tellsTheFixAndLeaves) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    EXPECT_EQ(delegate.answers(), 0U);
    geoclue.locate(lisbon);
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{lisbon}}));
    EXPECT_TRUE(called(u"DeleteClient"_s));
    EXPECT_EQ(geoclue.count(u"Stop"_s), 1);
    EXPECT_TRUE(delegate.statuses.empty()) << "the permission has not changed";
}

TEST_F(GeoClueFix, takesAFixThatComesBeforeTheStartIsAnswered) {
    geoclue.appear();
    geoclue.atStart = {{u"Latitude"_s, 38.72}, {u"Longitude"_s, -9.14}};
    listenWithConsent().requestLocation();
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes.at(0), (std::vector<Coordinate>{lisbon}));
}

TEST_F(GeoClueFix, tellsTheLaterOfTwoFixesOnce) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    geoclue.locate(Coordinate{1, 1});
    geoclue.locate(lisbon);
    ASSERT_TRUE(answered());
    geoclue.locate(Coordinate{2, 2});
    ASSERT_TRUE(called(u"DeleteClient"_s));
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{lisbon}}));
}

TEST_F(GeoClueFix, waitsForAnotherFixWhenOneIsNone) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    geoclue.locate({{u"Latitude"_s, 138.72}, {u"Longitude"_s, -9.14}});
    ASSERT_TRUE(called(u"GetAll"_s));
    geoclue.locate(QVariantMap{});
    ASSERT_TRUE(called(u"GetAll"_s, 2));
    EXPECT_EQ(delegate.answers(), 0U);
    geoclue.locate(lisbon);
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes.size(), 1U);
}

TEST_F(GeoClueFix, answersRequestsThatComeTogetherOnce) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    client->requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    client->requestLocation();
    geoclue.locate(lisbon);
    ASSERT_TRUE(answered());
    client->requestLocation();
    ASSERT_TRUE(called(u"Start"_s, 2));
    geoclue.locate(lisbon);
    EXPECT_TRUE(answered(2));
}

TEST_F(GeoClueFix, tellsARefusalAndNoPosition) {
    for (const QString &call : {u"GetClient"_s, u"Start"_s}) {
        client.reset();
        delegate.clear();
        geoclue.refused = {call};
        geoclue.appear();
        permission.grant();
        listen().requestLocation();
        ASSERT_TRUE(answered()) << call.toStdString();
        EXPECT_EQ(delegate.failures, 1);
        EXPECT_EQ(delegate.statuses, (std::vector{LocationAuthorization::denied}));
        EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::denied);
        geoclue.vanish();
    }
}

TEST_F(GeoClueFix, takesTheZonesCityWhenTheServiceIsSilent) {
    for (const QStringList &mute : {QStringList{u"GetClient"_s}, QStringList{u"Start"_s},
                                    QStringList{u"GetAll"_s}, QStringList{}}) {
        delegate.clear();
        geoclue.mute = mute;
        geoclue.appear();
        if (mute.contains(u"GetAll"_s)) {
            geoclue.atStart = {{u"Latitude"_s, 1.0}, {u"Longitude"_s, 1.0}};
        }
        listenWithConsent(shortPatience).requestLocation();
        ASSERT_TRUE(answered()) << mute.join(u',').toStdString();
        EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}}));
        EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::authorized);
        geoclue.vanish();
        geoclue.atStart = {};
    }
}

TEST_F(GeoClueFix, tellsTheFirstTrueFixAfterTheZonesCity) {
    geoclue.appear();
    listenWithConsent(shortPatience).requestLocation();
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}}));
    EXPECT_FALSE(callsSoFar().contains(u"Stop"_s)) << "it goes on listening";
    geoclue.locate(lisbon);
    ASSERT_TRUE(answered(2));
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}, {lisbon}}));
    ASSERT_TRUE(called(u"DeleteClient"_s));
    geoclue.locate(Coordinate{2, 2});
    callsSoFar();
    EXPECT_EQ(delegate.answers(), 2U);
}

TEST_F(GeoClueFix, tellsTheTrueFixOfAServiceThatStartedAnewAfterTheZonesCity) {
    geoclue.appear();
    listenWithConsent(shortPatience).requestLocation();
    ASSERT_TRUE(answered());
    FakeGeoClue next(bus.address());
    geoclue.releaseName();
    next.appear();
    geoclue.vanish();
    ASSERT_TRUE(eventually([&] { return next.count(u"Start"_s) == 1; }));
    next.locate(lisbon);
    ASSERT_TRUE(answered(2));
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}, {lisbon}}));
}

TEST_F(GeoClueFix, tellsEveryDelegate) {
    RecordingDelegate other;
    geoclue.appear();
    geoclue.atStart = {{u"Latitude"_s, 38.72}, {u"Longitude"_s, -9.14}};
    listenWithConsent();
    const auto listening = client->subscribe(other);
    client->requestLocation();
    ASSERT_TRUE(answered());
    EXPECT_EQ(other.fixes, delegate.fixes);
}

TEST_F(GeoClueFix, endsAtOnceWhenTheConsentIsWithdrawn) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    geoclue.locate(lisbon); // under way
    consent.set(ConsentState::denied);
    EXPECT_EQ(delegate.statuses, (std::vector{LocationAuthorization::denied}));
    ASSERT_TRUE(called(u"DeleteClient"_s));
    geoclue.locate(lisbon);
    callsSoFar();
    EXPECT_EQ(delegate.answers(), 0U);
    client->requestLocation();
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.failures, 1);
    EXPECT_EQ(callsSoFar().count(u"GetClient"_s), 1);
}

TEST_F(GeoClueFix, keepsListeningToNobodyWhenTheConsentIsWithdrawnAfterTheZonesCity) {
    geoclue.appear();
    listenWithConsent(shortPatience).requestLocation();
    ASSERT_TRUE(answered());
    consent.set(ConsentState::notDetermined);
    ASSERT_TRUE(called(u"DeleteClient"_s));
    geoclue.locate(lisbon);
    callsSoFar();
    EXPECT_EQ(delegate.answers(), 1U);
}

TEST_F(GeoClueFix, beginsAtOnceWhenTheConsentIsGiven) {
    geoclue.appear();
    geoclue.atStart = {{u"Latitude"_s, 38.72}, {u"Longitude"_s, -9.14}};
    listen();
    askWhenAuthorized();
    consent.set(ConsentState::granted);
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.statuses, (std::vector{LocationAuthorization::authorized}));
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{lisbon}}));
}

TEST_F(GeoClueFix, keepsAnEarlierPositionWhenTheServiceTellsNoneLater) {
    geoclue.atStart = {{u"Latitude"_s, 38.72}, {u"Longitude"_s, -9.14}};
    geoclue.appear();
    listenWithConsent();
    client->requestLocation();
    ASSERT_TRUE(answered());
    geoclue.vanish();
    client->requestLocation();
    ASSERT_TRUE(answered(2));
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{lisbon}}));
    EXPECT_EQ(delegate.failures, 1) << "the zone's city may be a thousand kilometres away";
}

TEST_F(GeoClueFix, takesTheZonesCityAfterAWithdrawalHadThePositionForgotten) {
    geoclue.atStart = {{u"Latitude"_s, 38.72}, {u"Longitude"_s, -9.14}};
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(answered());
    geoclue.vanish();
    consent.set(ConsentState::notDetermined);
    consent.set(ConsentState::granted);
    client->requestLocation();
    ASSERT_TRUE(answered(2));
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{lisbon}, {zoneCity}}));
}

TEST_F(GeoClueFix, takesTheZonesCityWithoutAService) {
    listenWithConsent().requestLocation();
    EXPECT_EQ(delegate.answers(), 0U) << "the answer comes later";
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}}));
}

TEST_F(GeoClueFix, takesTheZonesCityWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    permission.grant();
    GeoClueLocationClient lonely(nowhere.bus(), permission, [this] { return city; });
    const auto listening = lonely.subscribe(delegate);
    lonely.requestLocation();
    EXPECT_EQ(delegate.answers(), 0U) << "the answer comes later";
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}}));
}

TEST_F(GeoClueFix, failsWhenNotEvenTheZoneHasACity) {
    city.reset();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.failures, 1);
    EXPECT_EQ(client->authorizationStatus(), LocationAuthorization::authorized);
}

TEST_F(GeoClueFix, failsWithoutPermissionAndLeavesTheServiceAlone) {
    geoclue.appear();
    listen().requestLocation();
    EXPECT_EQ(delegate.failures, 0) << "the answer comes later";
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.failures, 1);
    EXPECT_TRUE(callsSoFar().isEmpty());
}

TEST_F(GeoClueFix, asksAgainWhenTheServiceStartsAnewInTheMiddle) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    // Another process of the service takes the name over before the first one ends.
    FakeGeoClue next(bus.address());
    geoclue.releaseName();
    next.appear();
    geoclue.vanish();
    ASSERT_TRUE(eventually([&] { return next.count(u"Start"_s) == 1; }));
    next.locate(lisbon);
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{lisbon}}));
}

TEST_F(GeoClueFix, takesTheZonesCityWhenTheServiceEndsForGood) {
    for (const QString &call : {u"GetClient"_s, u"Start"_s}) {
        delegate.clear();
        geoclue.calls.clear();
        geoclue.mute = {call};
        geoclue.appear();
        listenWithConsent().requestLocation();
        ASSERT_TRUE(called(call));
        geoclue.vanish();
        ASSERT_TRUE(answered()) << call.toStdString();
        EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}}));
    }
}

TEST_F(GeoClueFix, asksABrokenServiceTwiceAndNoMore) {
    geoclue.appear();
    geoclue.refused = {u"Start"_s};
    geoclue.errorName = u"org.freedesktop.DBus.Error.Failed"_s;
    listenWithConsent().requestLocation();
    ASSERT_TRUE(answered());
    EXPECT_EQ(delegate.fixes, (std::vector<std::vector<Coordinate>>{{zoneCity}}));
    EXPECT_EQ(geoclue.count(u"Start"_s), 2);
}

TEST_F(GeoClueFix, leavesTheServiceWhenTheClientEnds) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    client.reset();
    EXPECT_TRUE(called(u"DeleteClient"_s));
    EXPECT_EQ(geoclue.count(u"Stop"_s), 1);
    EXPECT_EQ(delegate.answers(), 0U);
}

TEST_F(GeoClueFix, tellsNobodyWhoseSubscriptionEnded) {
    geoclue.appear();
    listenWithConsent().requestLocation();
    ASSERT_TRUE(called(u"Start"_s));
    subscription = {};
    geoclue.locate(lisbon);
    ASSERT_TRUE(called(u"DeleteClient"_s));
    EXPECT_EQ(delegate.answers(), 0U);
}

} // namespace

} // namespace zeph
