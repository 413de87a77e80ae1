// SPDX-License-Identifier: MIT
#include "ambient/LocationManager.h"

#include "platform/Geocoder.h"

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
    : m_client(client), m_geocoder(geocoder), m_self(std::make_shared<LocationManager *>(this)) {
    if (m_client != nullptr) {
        m_client->setDelegate(this);
    }
}

LocationManager::~LocationManager() {
    if (m_client != nullptr) {
        m_client->setDelegate(nullptr);
    }
}

void LocationManager::setOnUpdate(std::function<void(Coordinate)> onUpdate) {
    m_onUpdate = std::move(onUpdate);
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
    }
}

void LocationManager::locationsUpdated(const std::vector<Coordinate> &fixes) {
    if (fixes.empty()) {
        return;
    }
    const Coordinate position = fixes.back();
    m_coordinate = position;
    if (m_onUpdate) {
        m_onUpdate(position);
    }
    lookUpName(position);
}

void LocationManager::locationFailed() {}

void LocationManager::lookUpName(const Coordinate &position) {
    if (m_geocoder == nullptr) {
        return;
    }
    m_geocoder->reverseGeocode(
        position, [weak = std::weak_ptr(m_self)](const std::vector<Placemark> &placemarks) {
            if (const auto self = weak.lock()) {
                (*self)->m_placeName = nameOf(placemarks);
            }
        });
}

} // namespace zeph
