// SPDX-License-Identifier: MIT
#pragma once

#include "core/records/AirQualityInfo.h"
#include "core/values/Coordinate.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace zeph {

class Clock;
class HttpClient;
class RunLoop;
class TaskExecutor;
struct Endpoints;

/// The United States air-quality index at a position. The last good answer is served again whenever
/// there is no newer one, however old it is.
class AirQualityService {
public:
    using Completion = std::function<void(const std::optional<AirQualityInfo> &)>;

    /// All but `endpoints` outlive this object and the tasks it starts.
    AirQualityService(HttpClient &http, const Endpoints &endpoints, TaskExecutor &tasks,
                      RunLoop &runLoop, const Clock &clock);
    ~AirQualityService();
    AirQualityService(const AirQualityService &) = delete;
    AirQualityService &operator=(const AirQualityService &) = delete;

    /// Called on the main thread. An answer of the last 1800 seconds is served inside the call;
    /// otherwise the service is asked and `completion` called on the main thread later. It gets the
    /// last good answer where that fails.
    void fetch(const Coordinate &position, Completion completion);

private:
    struct Last;

    QString address(const Coordinate &position) const;

    HttpClient &m_http;
    QString m_root;
    TaskExecutor &m_tasks;
    RunLoop &m_runLoop;
    const Clock &m_clock;
    std::shared_ptr<Last> m_last; // ends with this object; tasks under way look for it
};

} // namespace zeph
