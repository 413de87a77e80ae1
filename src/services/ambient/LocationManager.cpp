// SPDX-License-Identifier: MIT
#include "services/ambient/LocationManager.h"

#include "ports/Geocoder.h"

#include <memory>
#include <utility>

namespace zeph {

namespace {

std::optional<QString> nameOf(const std::vector<Placemark> &placemarks) {
    if (placemarks.empty()) {
        return std::nullopt;
    }
    const Placemark &first = placemarks.front();
    return first.locality ? first.locality : first.administrativeArea;
}

} // namespace

LocationManager::LocationManager(LocationClient *client, Geocoder *geocoder)
    : m_client(client), m_geocoder(geocoder) {
    if (m_client != nullptr) {
        m_subscription = m_client->subscribe(*this);
    }
}

Subscription LocationManager::onUpdate(std::function<void(Coordinate)> handler) {
    return m_updates.subscribe([this, handler = std::move(handler)] { handler(*m_coordinate); });
}

Subscription LocationManager::onForgotten(std::function<void()> handler) {
    return m_forgotten.subscribe(std::move(handler));
}

LocationAuthorization LocationManager::authorizationStatus() const {
    return m_client != nullptr ? m_client->authorizationStatus() : LocationAuthorization::denied;
}

void LocationManager::requestLocation() {
    if (m_client != nullptr) {
        m_client->requestLocation();
    }
}

void LocationManager::authorizationChanged(LocationAuthorization status) {
    if (status == LocationAuthorization::authorized) {
        requestLocation();
    } else {
        forget();
    }
}

void LocationManager::forget() {
    if (!m_coordinate) {
        return;
    }
    m_coordinate.reset();
    m_placeName.reset();
    m_forgotten.send();
}

void LocationManager::locationsUpdated(const std::vector<Coordinate> &fixes) {
    if (fixes.empty()) {
        return;
    }
    const Coordinate position = fixes.back();
    m_coordinate = position;
    m_updates.send();
    lookUpName(position);
}

void LocationManager::locationFailed() {}

void LocationManager::lookUpName(const Coordinate &position) {
    if (m_geocoder == nullptr) {
        return;
    }
    m_geocoder->reverseGeocode(
        position,
        m_lookups.whileAlive([this, lookup = ++m_lookup](const std::vector<Placemark> &placemarks) {
            if (m_coordinate && lookup == m_lookup) { // neither forgotten nor overtaken
                m_placeName = nameOf(placemarks);
            }
        }));
}

} // namespace zeph
