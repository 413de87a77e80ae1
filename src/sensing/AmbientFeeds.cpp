// SPDX-License-Identifier: MIT
#include "sensing/AmbientFeeds.h"

#include "model/AppState.h"
#include "ports/Clock.h"
#include "ports/Platform.h"
#include "services/ambient/LocationManager.h"
#include "settings/PreferencesStore.h"

namespace zeph {

namespace {

constexpr double weatherInterval = 1800; // seconds between two attempts

} // namespace

AmbientFeeds::AmbientFeeds(AppState &state, const Platform &platform,
                           const PreferencesStore &preferences, const LocationManager &location,
                           const Endpoints &endpoints)
    : m_state(state),
      m_platform(platform),
      m_preferences(preferences),
      m_location(location),
      m_weather(platform.httpClient, endpoints, platform.background, m_work, platform.clock),
      m_airQuality(platform.httpClient, endpoints, platform.background, m_work, platform.clock),
      m_iss(platform.httpClient, endpoints, platform.background, &platform.geocoder, location),
      m_onThisDay(platform.httpClient, endpoints, platform.background, platform.clock,
                  platform.gregorian) {}

void AmbientFeeds::fetchDaily() {
    if (m_preferences.isOn(WidgetKind::onThisDay)) {
        m_onThisDay.fetch(
            [this](const std::optional<OnThisDayInfo> &event) { m_state.onThisDay = event; });
    }
    if (m_preferences.isOn(WidgetKind::iss)) {
        m_iss.fetch([this](const std::optional<ISSInfo> &info) { m_state.iss = info; });
    }
}

void AmbientFeeds::maybeFetchWeather() {
    const auto &position = m_location.coordinate();
    const bool isRecent = m_lastWeatherFetch && secondsApart(m_platform.clock.now(),
                                                             *m_lastWeatherFetch) < weatherInterval;
    if (position && !isRecent) {
        fetchWeather(*position, false);
    }
}

void AmbientFeeds::fetchWeatherNow(const Coordinate &position) {
    fetchWeather(position, true);
}

void AmbientFeeds::fetchWeather(const Coordinate &position, bool force) {
    // Counted from the attempt, so that a failed one is not repeated at every tick.
    m_lastWeatherFetch = m_platform.clock.now();
    m_weather.fetch(position, m_location.placeName(), force,
                    [this, place = m_place](const std::optional<WeatherInfo> &weather) {
                        if (weather && place == m_place) {
                            m_state.weather = weather;
                        }
                    });
}

void AmbientFeeds::forgetPlace() {
    ++m_place; // what was asked before is of no use
    m_lastWeatherFetch.reset();
    m_weather.forget();
    m_airQuality.forget();
    if (std::optional<ISSInfo> station = *m_state.iss) {
        station->distanceKm.reset();
        m_state.iss = station;
    }
    m_state.weather = std::nullopt;
    m_state.airQuality = std::nullopt;
}

void AmbientFeeds::fetchAirQuality(const Coordinate &position) {
    if (!m_preferences.isOn(WidgetKind::airQuality)) {
        return;
    }
    m_airQuality.fetch(position,
                       [this, place = m_place](const std::optional<AirQualityInfo> &reading) {
                           if (reading && place == m_place) {
                               m_state.airQuality = reading;
                           }
                       });
}

} // namespace zeph
