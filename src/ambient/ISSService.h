// SPDX-License-Identifier: MIT
#pragma once

#include "core/records/ISSInfo.h"
#include "core/values/Coordinate.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zeph {

class Geocoder;
class HttpClient;
class LocationManager;
class RunLoop;
class TaskExecutor;
struct Endpoints;
struct Placemark;
struct StationPosition;

/// Where the space station is at this moment, in words. Keeps nothing.
class ISSService {
public:
    using Completion = std::function<void(const std::optional<ISSInfo> &)>;

    /// A null `geocoder` stands for a machine that knows no place names. All but `endpoints`
    /// outlive this object and the tasks it starts.
    ISSService(HttpClient &http, const Endpoints &endpoints, TaskExecutor &tasks, RunLoop &runLoop,
               Geocoder *geocoder, const LocationManager &location);
    ~ISSService();
    ISSService(const ISSService &) = delete;
    ISSService &operator=(const ISSService &) = delete;

    /// Called on the main thread, where `completion` is called later: absent when the position
    /// can't be had, without a place where that has no name, without a distance while the machine
    /// does not know where it is itself. Not called any more once this object has ended.
    void fetch(Completion completion);

    /// What the first of `placemarks` is called: a city with its country, else the country, the
    /// ocean or the lake.
    static std::optional<QString> placeName(const std::vector<Placemark> &placemarks);

private:
    /// Looks up the name of the place; an answer to be told comes on the main thread.
    void name(const StationPosition &station, const Completion &completion);
    ISSInfo describe(const StationPosition &station,
                     const std::vector<Placemark> &placemarks) const;

    HttpClient &m_http;
    QString m_root;
    TaskExecutor &m_tasks;
    RunLoop &m_runLoop;
    Geocoder *m_geocoder;
    const LocationManager &m_location;
    std::shared_ptr<ISSService *> m_self; // ends with this object; late answers look for it
};

} // namespace zeph
