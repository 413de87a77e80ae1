// SPDX-License-Identifier: MIT
#include "services/ambient/AirQualityService.h"

#include "base/Background.h"
#include "ports/Clock.h"
#include "services/ambient/AmbientAnswers.h"
#include "services/web/Endpoints.h"
#include "services/web/ProviderHTTP.h"

#include <QLocale>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double freshFor = 1800.0; // seconds

/// As few digits as read back the same number.
QString shortest(double value) {
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

std::optional<AirQualityInfo> ask(HttpClient &http, const QString &address, const Clock &clock) {
    try {
        const QJsonValue answer = ProviderHTTP::json(http, address);
        return AmbientAnswers::airQuality(answer, clock.now());
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

} // namespace

AirQualityService::AirQualityService(HttpClient &http, const Endpoints &endpoints,
                                     const Background &background, WorkOwner &owner,
                                     const Clock &clock)
    : m_http(http),
      m_root(endpoints.airQuality),
      m_background(background),
      m_owner(owner),
      m_clock(clock),
      m_last(std::make_shared<std::optional<AirQualityInfo>>()) {}

QString AirQualityService::address(const Coordinate &position) const {
    return m_root + u"/v1/air-quality?latitude="_s + shortest(position.latitude) +
           u"&longitude="_s + shortest(position.longitude) + u"&current=us_aqi"_s;
}

void AirQualityService::fetch(const Coordinate &position, Completion completion) {
    if (const auto &last = *m_last; last && secondsApart(m_clock.now(), last->updated) < freshFor) {
        completion(last);
        return;
    }
    m_background.run(
        m_owner,
        [&http = m_http, &clock = m_clock, address = address(position)] {
            return ask(http, address, clock);
        },
        [weak = std::weak_ptr(m_last),
         completion = std::move(completion)](const std::optional<AirQualityInfo> &info) {
            const auto last = weak.lock();
            if (last && info) {
                *last = info;
            }
            completion(last ? *last : info);
        });
}

void AirQualityService::forget() {
    m_last = std::make_shared<std::optional<AirQualityInfo>>();
}

} // namespace zeph
