// SPDX-License-Identifier: MIT
#include "services/ambient/WeatherService.h"

#include "base/Background.h"
#include "base/FixedDecimals.h"
#include "ports/Clock.h"
#include "ports/HttpClient.h"
#include "services/ambient/AmbientAnswers.h"
#include "services/web/Endpoints.h"
#include "services/web/Json.h"

#include <QUrlQuery>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double freshFor = 1800.0; // seconds for which an answer is given again

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

WeatherService::WeatherService(HttpClient &http, const Endpoints &endpoints,
                               const Background &background, WorkOwner &owner, const Clock &clock)
    : m_http(http),
      m_root(endpoints.weather),
      m_background(background),
      m_owner(owner),
      m_clock(clock),
      m_last(std::make_shared<std::optional<WeatherInfo>>()) {}

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
    if (const auto &last = *m_last;
        !force && last && secondsApart(m_clock.now(), last->updated) < freshFor) {
        completion(last);
        return;
    }
    const HttpRequest asked = request(m_root, position);
    if (!asked.url.isValid()) {
        completion(std::nullopt);
        return;
    }
    m_background.run(
        m_owner,
        [&http = m_http, &clock = m_clock, asked, placeName] {
            auto info = ask(http, asked, clock);
            if (info) {
                info->locationName = placeName;
            }
            return info;
        },
        [weak = std::weak_ptr(m_last),
         completion = std::move(completion)](const std::optional<WeatherInfo> &info) {
            const auto last = weak.lock();
            if (last && info) {
                *last = info;
            }
            completion(last ? *last : info);
        });
}

void WeatherService::forget() {
    m_last = std::make_shared<std::optional<WeatherInfo>>();
}

} // namespace zeph
