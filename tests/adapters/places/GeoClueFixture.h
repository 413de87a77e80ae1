// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/places/FakeGeoClue.h"
#include "adapters/places/GeoClueLocationClient.h"
#include "adapters/places/LocationPermission.h"
#include "settings/StoredConsent.h"
#include "support/FakeUserDefaults.h"

#include <functional>
#include <vector>

namespace zeph {

/// Notes what a location client tells.
class RecordingDelegate : public LocationClientDelegate {
public:
    void authorizationChanged(LocationAuthorization status) override {
        statuses.push_back(status);
        if (onAuthorization) {
            onAuthorization(status);
        }
    }
    void locationsUpdated(const std::vector<Coordinate> &positions) override {
        fixes.push_back(positions);
    }
    void locationFailed() override { ++failures; }

    std::size_t answers() const { return fixes.size() + static_cast<std::size_t>(failures); }

    void clear() {
        statuses.clear();
        fixes.clear();
        failures = 0;
    }

    std::vector<LocationAuthorization> statuses;
    std::vector<std::vector<Coordinate>> fixes;
    int failures = 0;
    std::function<void(LocationAuthorization)> onAuthorization;
};

/// A private bus with a GeoClue that the test plays; it is not there before `geoclue.appear()`.
class GeoClueFixture : public testing::Test {
protected:
    static constexpr Coordinate lisbon{38.72, -9.14};
    static constexpr Coordinate zoneCity{52.5, 13.37};

    GeoClueLocationClient &listen(LocationPatience patience = {}) {
        client = std::make_unique<GeoClueLocationClient>(
            connection.bus(), permission, [this] { return city; }, patience);
        subscription = client->subscribe(delegate);
        return *client;
    }
    /// A client of a user who allowed it at an earlier start.
    GeoClueLocationClient &listenWithConsent(LocationPatience patience = {}) {
        permission.grant();
        return listen(patience);
    }
    /// As the owner of the delegate does: asks for a fix as soon as that is allowed.
    void askWhenAuthorized() {
        delegate.onAuthorization = [this](LocationAuthorization status) {
            if (status == LocationAuthorization::authorized) {
                client->requestLocation();
            }
        };
    }
    bool answered(std::size_t answers = 1) {
        return eventually([&] { return delegate.answers() == answers; });
    }
    bool called(const QString &member, int times = 1) {
        return eventually([&] { return geoclue.count(member) == times; });
    }

    /// What the service was asked, with all that was sent until now.
    QStringList callsSoFar() {
        connection.bus().send(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.GeoClue2"), QStringLiteral("/"), QString(),
            QStringLiteral("Probe")));
        EXPECT_TRUE(eventually([&] { return geoclue.calls.contains(QStringLiteral("Probe")); }));
        geoclue.calls.removeAll(QStringLiteral("Probe"));
        return geoclue.calls;
    }

    PrivateBus bus;
    FakeGeoClue geoclue{bus.address()};
    BusConnection connection{bus.address()};
    FakeUserDefaults defaults;
    std::chrono::steady_clock::time_point now;
    StoredConsent consent{defaults, QStringLiteral("zeph.consent.location")};
    LocationPermission permission{consent, [this] { return now; }};
    std::optional<Coordinate> city = zoneCity;
    RecordingDelegate delegate;
    std::unique_ptr<GeoClueLocationClient> client;
    Subscription subscription;
};

} // namespace zeph
