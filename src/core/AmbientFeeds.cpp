// SPDX-License-Identifier: MIT
#include "core/AmbientFeeds.h"

#include "ambient/LocationManager.h"
#include "ambient/OnThisDayService.h"
#include "core/AppState.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"
#include "presentation/preferences/PreferencesStore.h"

namespace zeph {

namespace {

constexpr double weatherAge = 1800; // seconds

} // namespace

AmbientFeeds::AmbientFeeds(AppState &state, const Platform &platform,
                           const PreferencesStore &preferences, const LocationManager &location,
                           const Endpoints &endpoints)
    : m_state(state),
      m_platform(platform),
      m_preferences(preferences),
      m_location(location),
      m_weather(platform.httpClient, endpoints, platform.taskExecutor, platform.runLoop,
                platform.clock),
      m_airQuality(platform.httpClient, endpoints, platform.taskExecutor, platform.runLoop,
                   platform.clock),
      m_iss(platform.httpClient, endpoints, platform.taskExecutor, platform.runLoop,
            &platform.geocoder, location),
      m_onThisDay(std::make_shared<OnThisDayService>(platform.httpClient, endpoints, platform.clock,
                                                     platform.calendar)),
      m_self(std::make_shared<AmbientFeeds *>(this)) {}

AmbientFeeds::~AmbientFeeds() = default;

void AmbientFeeds::fetchDaily() {
    if (m_preferences.isOn(WidgetKind::onThisDay)) {
        fetchOnThisDay();
    }
    if (m_preferences.isOn(WidgetKind::iss)) {
        m_iss.fetch([this](const std::optional<ISSInfo> &info) { m_state.iss = info; });
    }
}

void AmbientFeeds::fetchOnThisDay() {
    m_platform.taskExecutor.run(
        [service = m_onThisDay, weak = std::weak_ptr(m_self), &loop = m_platform.runLoop] {
            loop.post([weak, event = service->fetch()] {
                if (const auto self = weak.lock()) {
                    (*self)->m_state.onThisDay = event;
                }
            });
        });
}

void AmbientFeeds::maybeFetchWeather() {
    const auto &position = m_location.coordinate();
    const bool isRecent =
        m_lastWeatherFetch && m_platform.clock.now() - *m_lastWeatherFetch < weatherAge;
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
                    [weak = std::weak_ptr(m_self)](const std::optional<WeatherInfo> &weather) {
                        const auto self = weak.lock();
                        if (self && weather) {
                            (*self)->m_state.weather = weather;
                        }
                    });
}

void AmbientFeeds::fetchAirQuality(const Coordinate &position) {
    if (!m_preferences.isOn(WidgetKind::airQuality)) {
        return;
    }
    m_airQuality.fetch(
        position, [weak = std::weak_ptr(m_self)](const std::optional<AirQualityInfo> &reading) {
            const auto self = weak.lock();
            if (self && reading) {
                (*self)->m_state.airQuality = reading;
            }
        });
}

} // namespace zeph
