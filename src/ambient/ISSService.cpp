// SPDX-License-Identifier: MIT
#include "ambient/ISSService.h"

#include "ambient/AmbientAnswers.h"
#include "ambient/LocationManager.h"
#include "ambient/SurfaceDistance.h"
#include "integrations/web/Endpoints.h"
#include "integrations/web/ProviderHTTP.h"
#include "platform/Geocoder.h"
#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"

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

ISSService::ISSService(HttpClient &http, const Endpoints &endpoints, TaskExecutor &tasks,
                       RunLoop &runLoop, Geocoder *geocoder, const LocationManager &location)
    : m_http(http),
      m_root(endpoints.station),
      m_tasks(tasks),
      m_runLoop(runLoop),
      m_geocoder(geocoder),
      m_location(location),
      m_self(std::make_shared<ISSService *>(this)) {}

ISSService::~ISSService() = default;

void ISSService::fetch(Completion completion) {
    m_tasks.run([&http = m_http, &runLoop = m_runLoop, weak = std::weak_ptr(m_self),
                 address = m_root + u"/v1/satellites/25544"_s, completion = std::move(completion)] {
        const auto station = ask(http, address);
        // The own position and the names of places belong to the main thread, and no task waits
        // for an answer from there, which never comes while the process ends.
        runLoop.post([weak, station, completion] {
            const auto self = weak.lock();
            if (!self) {
                return;
            }
            station ? (*self)->name(*station, completion) : completion(std::nullopt);
        });
    });
}

void ISSService::name(const StationPosition &station, const Completion &completion) {
    if (m_geocoder == nullptr) {
        completion(describe(station, {}));
        return;
    }
    m_geocoder->reverseGeocode(station.coordinate,
                               [weak = std::weak_ptr(m_self), station,
                                completion](const std::vector<Placemark> &placemarks) {
                                   if (const auto self = weak.lock()) {
                                       completion((*self)->describe(station, placemarks));
                                   }
                               });
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
