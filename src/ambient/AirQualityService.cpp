// SPDX-License-Identifier: MIT
#include "ambient/AirQualityService.h"

#include "ambient/AmbientAnswers.h"
#include "integrations/web/Endpoints.h"
#include "integrations/web/ProviderHTTP.h"
#include "platform/Clock.h"
#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"

#include <QLocale>

#include <mutex>
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

/// The last good answer. Safe for use by several threads.
struct AirQualityService::Last {
    void set(const AirQualityInfo &info) {
        const std::scoped_lock lock(m_mutex);
        m_cached = info;
    }
    std::optional<AirQualityInfo> cached() const {
        const std::scoped_lock lock(m_mutex);
        return m_cached;
    }

private:
    mutable std::mutex m_mutex;
    std::optional<AirQualityInfo> m_cached;
};

AirQualityService::AirQualityService(HttpClient &http, const Endpoints &endpoints,
                                     TaskExecutor &tasks, RunLoop &runLoop, const Clock &clock)
    : m_http(http),
      m_root(endpoints.airQuality),
      m_tasks(tasks),
      m_runLoop(runLoop),
      m_clock(clock),
      m_last(std::make_shared<Last>()) {}

AirQualityService::~AirQualityService() = default;

QString AirQualityService::address(const Coordinate &position) const {
    return m_root + u"/v1/air-quality?latitude="_s + shortest(position.latitude) +
           u"&longitude="_s + shortest(position.longitude) + u"&current=us_aqi"_s;
}

void AirQualityService::fetch(const Coordinate &position, Completion completion) {
    const auto cached = m_last->cached();
    if (cached && m_clock.now() - cached->updated < freshFor) {
        completion(cached);
        return;
    }
    m_tasks.run([&http = m_http, &runLoop = m_runLoop, &clock = m_clock,
                 weak = std::weak_ptr(m_last), address = address(position),
                 completion = std::move(completion)] {
        const auto info = ask(http, address, clock);
        if (const auto last = weak.lock(); info && last) {
            last->set(*info);
        }
        runLoop.post([weak, info, completion] {
            const auto last = weak.lock();
            completion(info || !last ? info : last->cached());
        });
    });
}

} // namespace zeph
