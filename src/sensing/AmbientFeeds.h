// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "base/WorkOwner.h"
#include "services/ambient/AirQualityService.h"
#include "services/ambient/ISSService.h"
#include "services/ambient/OnThisDayService.h"
#include "services/ambient/WeatherService.h"

#include <optional>

namespace zeph {

class AppState;
class LocationManager;
class PreferencesStore;
struct Endpoints;
struct Platform;

/// What the outside world tells without any account. Whatever is off, or needs a position that is
/// not known, asks nothing. Main thread only; the asking itself is done in tasks.
class AmbientFeeds {
public:
    /// Asks for nothing yet. All but `endpoints` outlive this object and the tasks it starts.
    AmbientFeeds(AppState &state, const Platform &platform, const PreferencesStore &preferences,
                 const LocationManager &location, const Endpoints &endpoints);

    /// The day in history and the station, which need no position. An answer that there is
    /// nothing is published too.
    void fetchDaily();

    /// The weather where the last attempt is half an hour old. A failure leaves the old one, and so
    /// does an answer that is not yet half an hour old (`WeatherService`): an hour at most.
    void maybeFetchWeather();

    /// The weather at `position`, however recent the last attempt.
    void fetchWeatherNow(const Coordinate &position);

    /// A failure leaves the old reading.
    void fetchAirQuality(const Coordinate &position);

    /// Forgets all that came from the position; for the next one it is asked without waiting.
    void forgetPlace();

private:
    void fetchWeather(const Coordinate &position, bool force);

    AppState &m_state;
    const Platform &m_platform;
    const PreferencesStore &m_preferences;
    const LocationManager &m_location;
    WorkOwner m_work;
    WeatherService m_weather;
    AirQualityService m_airQuality;
    ISSService m_iss;
    OnThisDayService m_onThisDay;
    std::optional<Date> m_lastWeatherFetch; // when the last attempt began
    int m_place = 0;                        // how many were forgotten before this one
};

} // namespace zeph
