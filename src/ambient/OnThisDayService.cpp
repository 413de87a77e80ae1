// SPDX-License-Identifier: MIT
#include "ambient/OnThisDayService.h"

#include "ambient/AmbientAnswers.h"
#include "integrations/web/Endpoints.h"
#include "integrations/web/ProviderHTTP.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"

using namespace Qt::StringLiterals;

namespace zeph {

OnThisDayService::OnThisDayService(HttpClient &http, const Endpoints &endpoints, const Clock &clock,
                                   const Calendar &calendar)
    : m_http(http), m_root(endpoints.onThisDay), m_clock(clock), m_calendar(calendar) {}

std::optional<OnThisDayInfo> OnThisDayService::fetch() {
    const Date now = m_clock.now();
    const Date today = m_calendar.startOfDay(now);
    if (auto event = cached(today)) {
        return event;
    }
    const auto event = ask(now);
    const std::scoped_lock lock(m_mutex);
    if (event) {
        m_cached = event;
        m_lastFetchDay = today;
    }
    return m_cached;
}

std::optional<OnThisDayInfo> OnThisDayService::cached(Date today) const {
    const std::scoped_lock lock(m_mutex);
    return m_lastFetchDay == today ? m_cached : std::nullopt;
}

std::optional<OnThisDayInfo> OnThisDayService::ask(Date now) const {
    const DateComponents day = m_calendar.components(now);
    const int dayOfYear = m_calendar.dayOfYear(now).value_or(0);
    const QString address =
        m_root + u"/on-this-day/%1/%2/events.json"_s.arg(day.month).arg(day.day);
    try {
        return AmbientAnswers::onThisDay(ProviderHTTP::json(m_http, address), dayOfYear);
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

} // namespace zeph
