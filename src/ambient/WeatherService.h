// SPDX-License-Identifier: MIT
#pragma once

#include "core/records/WeatherInfo.h"
#include "core/values/Coordinate.h"

#include <functional>
#include <memory>
#include <optional>

namespace zeph {

class Clock;
class HttpClient;
class RunLoop;
class TaskExecutor;
struct Endpoints;
struct HttpRequest;

/// The current weather at a position. The last good answer is served again whenever there is no
/// newer one, however old it is.
class WeatherService {
public:
    using Completion = std::function<void(const std::optional<WeatherInfo> &)>;

    /// All but `endpoints` outlive this object and the tasks it starts.
    WeatherService(HttpClient &http, const Endpoints &endpoints, TaskExecutor &tasks,
                   RunLoop &runLoop, const Clock &clock);
    ~WeatherService();
    WeatherService(const WeatherService &) = delete;
    WeatherService &operator=(const WeatherService &) = delete;

    /// Called on the main thread. Without `force` an answer of the last 1800 seconds is served
    /// inside the call; otherwise the service is asked and `completion` called on the main thread
    /// later. It gets the last good answer where that fails.
    void fetch(const Coordinate &position, const std::optional<QString> &placeName, bool force,
               Completion completion);

    /// What is asked for `position`; the address is invalid when none can be made.
    static HttpRequest request(const QString &root, const Coordinate &position);

private:
    struct Last;

    HttpClient &m_http;
    QString m_root;
    TaskExecutor &m_tasks;
    RunLoop &m_runLoop;
    const Clock &m_clock;
    std::shared_ptr<Last> m_last; // ends with this object; tasks under way look for it
};

} // namespace zeph
