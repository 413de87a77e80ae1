// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"
#include "base/WorkOwner.h"
#include "model/ISSInfo.h"

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

class Background;
class Geocoder;
class HttpClient;
class LocationManager;
struct Endpoints;
struct Placemark;
struct StationPosition;

/// Where the space station is at this moment, in words. Keeps nothing.
class ISSService {
public:
    using Completion = std::function<void(const std::optional<ISSInfo> &)>;

    /// A null `geocoder` stands for a machine that knows no place names. All but `endpoints`
    /// outlive this object and the tasks that it starts.
    ISSService(HttpClient &http, const Endpoints &endpoints, const Background &background,
               Geocoder *geocoder, const LocationManager &location);

    /// Called on the main thread, where `completion` is called later: absent when the position
    /// can't be had, without a place where that has no name, without a distance while the machine
    /// does not know where it is itself. Not called any more once this object has ended.
    void fetch(Completion completion);

    /// What the first of `placemarks` is called: a city with its country, else the country, the
    /// ocean or the lake.
    static std::optional<QString> placeName(const std::vector<Placemark> &placemarks);

private:
    /// Looks up the name of the place.
    void name(const StationPosition &station, const Completion &completion);
    ISSInfo describe(const StationPosition &station,
                     const std::vector<Placemark> &placemarks) const;

    HttpClient &m_http;
    QString m_root;
    const Background &m_background;
    Geocoder *m_geocoder;
    const LocationManager &m_location;
    WorkOwner m_work;
};

} // namespace zeph
