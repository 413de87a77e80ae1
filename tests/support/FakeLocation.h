// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geocoder.h"
#include "platform/LocationClient.h"

namespace zeph {

/// A location client that the test answers for.
class FakeLocationClient : public LocationClient {
public:
    void setDelegate(LocationClientDelegate *next) override { delegate = next; }
    LocationAuthorization authorizationStatus() const override { return status; }
    void requestLocation() override { ++requests; }
    void requestWhenInUseAuthorization() override { ++authorizationRequests; }

    LocationClientDelegate *delegate = nullptr;
    LocationAuthorization status = LocationAuthorization::notDetermined;
    int requests = 0;
    int authorizationRequests = 0;
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
