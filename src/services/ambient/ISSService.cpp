// SPDX-License-Identifier: MIT
#include "services/ambient/ISSService.h"

#include "base/Background.h"
#include "base/SurfaceDistance.h"
#include "ports/Geocoder.h"
#include "services/ambient/AmbientAnswers.h"
#include "services/ambient/LocationManager.h"
#include "services/web/Endpoints.h"
#include "services/web/ProviderHTTP.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double metersInKilometer = 1000.0;

std::optional<StationPosition> ask(HttpClient &http, const QString &address) {
    try {
        return AmbientAnswers::station(ProviderHTTP::json(http, address));
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

} // namespace

ISSService::ISSService(HttpClient &http, const Endpoints &endpoints, const Background &background,
                       Geocoder *geocoder, const LocationManager &location)
    : m_http(http),
      m_root(endpoints.station),
      m_background(background),
      m_geocoder(geocoder),
      m_location(location) {}

void ISSService::fetch(Completion completion) {
    // The own position and the names of places belong to the main thread, and no task waits for an
    // answer from there, which never comes while the process ends.
    m_background.run(
        m_work,
        [&http = m_http, address = m_root + u"/v1/satellites/25544"_s] {
            return ask(http, address);
        },
        [this, completion = std::move(completion)](const std::optional<StationPosition> &station) {
            station ? name(*station, completion) : completion(std::nullopt);
        });
}

void ISSService::name(const StationPosition &station, const Completion &completion) {
    if (m_geocoder == nullptr) {
        completion(describe(station, {}));
        return;
    }
    m_geocoder->reverseGeocode(
        station.coordinate,
        m_work.whileAlive([this, station, completion](const std::vector<Placemark> &placemarks) {
            completion(describe(station, placemarks));
        }));
}

ISSInfo ISSService::describe(const StationPosition &station,
                             const std::vector<Placemark> &placemarks) const {
    ISSInfo info;
    info.place = placeName(placemarks);
    info.altitudeKm = station.altitudeKm;
    if (const auto &own = m_location.coordinate()) {
        info.distanceKm = surfaceDistanceMeters(*own, station.coordinate) / metersInKilometer;
    }
    return info;
}

std::optional<QString> ISSService::placeName(const std::vector<Placemark> &placemarks) {
    if (placemarks.empty()) {
        return std::nullopt;
    }
    const Placemark &first = placemarks.front();
    if (const auto &city = first.locality ? first.locality : first.administrativeArea) {
        return first.country ? *city + u", "_s + *first.country : *city;
    }
    if (first.country) {
        return first.country;
    }
    return first.ocean ? first.ocean : first.inlandWater;
}

} // namespace zeph
