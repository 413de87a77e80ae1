// SPDX-License-Identifier: MIT
#include "ambient/WeatherService.h"

#include "ambient/AmbientAnswers.h"
#include "core/values/FixedDecimals.h"
#include "integrations/web/Endpoints.h"
#include "integrations/web/Json.h"
#include "platform/Clock.h"
#include "platform/HttpClient.h"
#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"

#include <QUrlQuery>

#include <mutex>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double freshFor = 1800.0; // seconds

/// A page that can be read decides, whatever its status.
std::optional<WeatherInfo> ask(HttpClient &http, const HttpRequest &request, const Clock &clock) {
    try {
        const QJsonValue answer = json::parse(http.send(request).body);
        return AmbientAnswers::weather(answer, clock.now());
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

} // namespace

/// The last good answer. Safe for use by several threads.
struct WeatherService::Last {
    void set(const WeatherInfo &info) {
        const std::scoped_lock lock(m_mutex);
        m_weather = info;
        m_lastFetch = info.updated;
    }
    std::optional<WeatherInfo> weather() const {
        const std::scoped_lock lock(m_mutex);
        return m_weather;
    }
    bool isFresh(Date now) const {
        const std::scoped_lock lock(m_mutex);
        return m_lastFetch && now - *m_lastFetch < freshFor;
    }

private:
    mutable std::mutex m_mutex;
    std::optional<WeatherInfo> m_weather;
    std::optional<Date> m_lastFetch;
};

WeatherService::WeatherService(HttpClient &http, const Endpoints &endpoints, TaskExecutor &tasks,
                               RunLoop &runLoop, const Clock &clock)
    : m_http(http),
      m_root(endpoints.weather),
      m_tasks(tasks),
      m_runLoop(runLoop),
      m_clock(clock),
      m_last(std::make_shared<Last>()) {}

WeatherService::~WeatherService() = default;

HttpRequest WeatherService::request(const QString &root, const Coordinate &position) {
    QUrlQuery query;
    query.addQueryItem(u"latitude"_s, fixedDecimals(position.latitude, 3));
    query.addQueryItem(u"longitude"_s, fixedDecimals(position.longitude, 3));
    query.addQueryItem(u"current"_s, u"temperature_2m,apparent_temperature,weather_code,is_day"_s);
    query.addQueryItem(u"timezone"_s, u"auto"_s);
    HttpRequest request;
    request.url = QUrl(root + u"/v1/forecast"_s, QUrl::StrictMode);
    if (request.url.isValid()) {
        request.url.setQuery(query);
    }
    return request;
}

void WeatherService::fetch(const Coordinate &position, const std::optional<QString> &placeName,
                           bool force, Completion completion) {
    if (!force && m_last->isFresh(m_clock.now())) {
        completion(m_last->weather());
        return;
    }
    const HttpRequest asked = request(m_root, position);
    if (!asked.url.isValid()) {
        completion(std::nullopt);
        return;
    }
    m_tasks.run([&http = m_http, &runLoop = m_runLoop, &clock = m_clock,
                 weak = std::weak_ptr(m_last), asked, placeName,
                 completion = std::move(completion)] {
        auto info = ask(http, asked, clock);
        if (info) {
            info->locationName = placeName;
            if (const auto last = weak.lock()) {
                last->set(*info);
            }
        }
        runLoop.post([weak, info, completion] {
            const auto last = weak.lock();
            completion(info || !last ? info : last->weather());
        });
    });
}

} // namespace zeph
