// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"
#include "model/WeatherInfo.h"

#include <functional>
#include <memory>
#include <optional>

namespace zeph {

class Background;
class Clock;
class HttpClient;
class WorkOwner;
struct Endpoints;
struct HttpRequest;

/// The current weather at a position. The last good answer is served again whenever there is no
/// newer one, however old it is.
class WeatherService {
public:
    using Completion = std::function<void(const std::optional<WeatherInfo> &)>;

    /// Nothing is told any more once `owner` has ended. All but `endpoints` outlive this object,
    /// and all but `owner` the tasks that it starts.
    WeatherService(HttpClient &http, const Endpoints &endpoints, const Background &background,
                   WorkOwner &owner, const Clock &clock);

    /// Called on the main thread. Without `force` an answer of the last 1800 seconds is served
    /// inside the call; otherwise the service is asked and `completion` called on the main thread
    /// later. It gets the last good answer where that fails, none when this object has ended by
    /// then.
    void fetch(const Coordinate &position, const std::optional<QString> &placeName, bool force,
               Completion completion);

    /// What is asked for `position`; the address is invalid when none can be made.
    static HttpRequest request(const QString &root, const Coordinate &position);

    /// Forgets the last good answer. One that is still waited for completes all the same.
    void forget();

private:
    HttpClient &m_http;
    QString m_root;
    const Background &m_background;
    WorkOwner &m_owner;
    const Clock &m_clock;
    std::shared_ptr<std::optional<WeatherInfo>> m_last; // the good one; answers look for it
};

} // namespace zeph
