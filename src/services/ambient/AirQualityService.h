// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"
#include "model/AirQualityInfo.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace zeph {

class Background;
class Clock;
class HttpClient;
class WorkOwner;
struct Endpoints;

/// The United States air-quality index at a position. The last good answer is served again whenever
/// there is no newer one, however old it is.
class AirQualityService {
public:
    using Completion = std::function<void(const std::optional<AirQualityInfo> &)>;

    /// Nothing is told any more once `owner` has ended. All but `endpoints` outlive this object,
    /// and all but `owner` the tasks that it starts.
    AirQualityService(HttpClient &http, const Endpoints &endpoints, const Background &background,
                      WorkOwner &owner, const Clock &clock);

    /// Called on the main thread. An answer of the last 1800 seconds is served inside the call;
    /// otherwise the service is asked and `completion` called on the main thread later. It gets the
    /// last good answer where that fails, none when this object has ended by then.
    void fetch(const Coordinate &position, Completion completion);

    /// Forgets the last good answer. One that is still waited for completes all the same.
    void forget();

private:
    QString address(const Coordinate &position) const;

    HttpClient &m_http;
    QString m_root;
    const Background &m_background;
    WorkOwner &m_owner;
    const Clock &m_clock;
    std::shared_ptr<std::optional<AirQualityInfo>> m_last; // the good one; answers look for it
};

} // namespace zeph
