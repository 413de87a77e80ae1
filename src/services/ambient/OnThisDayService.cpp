// SPDX-License-Identifier: MIT
#include "services/ambient/OnThisDayService.h"

#include "base/Background.h"
#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "services/ambient/AmbientAnswers.h"
#include "services/web/Endpoints.h"
#include "services/web/ProviderHTTP.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

std::optional<OnThisDayInfo> ask(HttpClient &http, const QString &address, int dayOfYear) {
    try {
        return AmbientAnswers::onThisDay(ProviderHTTP::json(http, address), dayOfYear);
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

} // namespace

OnThisDayService::OnThisDayService(HttpClient &http, const Endpoints &endpoints,
                                   const Background &background, const Clock &clock,
                                   const Calendar &calendar)
    : m_http(http),
      m_root(endpoints.onThisDay),
      m_background(background),
      m_clock(clock),
      m_calendar(calendar) {}

void OnThisDayService::fetch(Completion completion) {
    const Date now = m_clock.now();
    const Date today = m_calendar.startOfDay(now);
    if (m_cached && m_lastFetchDay == today) {
        completion(m_cached);
        return;
    }
    const DateComponents day = m_calendar.components(now);
    m_background.run(
        m_work,
        [&http = m_http,
         address = m_root + u"/on-this-day/%1/%2/events.json"_s.arg(day.month).arg(day.day),
         dayOfYear = m_calendar.dayOfYear(now).value_or(0)] {
            return ask(http, address, dayOfYear);
        },
        [this, today, completion = std::move(completion)](std::optional<OnThisDayInfo> event) {
            if (event) {
                m_cached = std::move(event);
                m_lastFetchDay = today;
            }
            completion(m_cached);
        });
}

} // namespace zeph
