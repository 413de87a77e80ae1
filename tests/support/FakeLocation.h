// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Geocoder.h"
#include "ports/LocationClient.h"

namespace zeph {

/// A location client that the test answers for.
class FakeLocationClient : public LocationClient {
public:
    Subscription subscribe(LocationClientDelegate &delegate) override {
        ++delegates;
        return m_events.subscribe([this, &delegate] { m_tell(delegate); });
    }
    LocationAuthorization authorizationStatus() const override { return status; }
    LocationHindrance hindrance() const override { return hindered; }
    void requestLocation() override { ++requests; }
    void requestWhenInUseAuthorization() override { ++authorizationRequests; }

    /// Tells every delegate of these fixes.
    void locate(const std::vector<Coordinate> &fixes) {
        m_tell = [&fixes](LocationClientDelegate &delegate) { delegate.locationsUpdated(fixes); };
        m_events.send();
    }

    /// Has that permission from now on, and tells every delegate.
    void tellAuthorization(LocationAuthorization now) {
        status = now;
        m_tell = [now](LocationClientDelegate &delegate) { delegate.authorizationChanged(now); };
        m_events.send();
    }

    int delegates = 0; ///< that subscribed until now
    LocationAuthorization status = LocationAuthorization::notDetermined;
    LocationHindrance hindered = LocationHindrance::none;
    int requests = 0;
    int authorizationRequests = 0;

private:
    ChangePublisher m_events;
    std::function<void(LocationClientDelegate &)> m_tell;
};

/// A geocoder that keeps the questions until the test answers them.
class FakeGeocoder : public Geocoder {
public:
    struct Question {
        Coordinate position;
        std::function<void(const std::vector<Placemark> &)> answer;
    };
    void reverseGeocode(const Coordinate &position,
                        std::function<void(const std::vector<Placemark> &)> answer) override {
        questions.push_back({position, std::move(answer)});
    }

    std::vector<Question> questions;
};

} // namespace zeph
