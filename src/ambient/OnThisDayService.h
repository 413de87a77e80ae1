// SPDX-License-Identifier: MIT
#pragma once

#include "core/records/OnThisDayInfo.h"
#include "core/values/Date.h"

#include <mutex>
#include <optional>

namespace zeph {

class Calendar;
class Clock;
class HttpClient;
struct Endpoints;

/// One event of today's date in history, the same one all day.
class OnThisDayService {
public:
    /// All but `endpoints` outlive this object.
    OnThisDayService(HttpClient &http, const Endpoints &endpoints, const Clock &clock,
                     const Calendar &calendar);

    /// Blocks, so never called on the main thread; any other may call it, and this object outlives
    /// the call. Asks once a day until it succeeds. Where it fails the answer is the last event,
    /// maybe yesterday's, or absent.
    std::optional<OnThisDayInfo> fetch();

private:
    std::optional<OnThisDayInfo> ask(Date now) const;
    std::optional<OnThisDayInfo> cached(Date today) const;

    HttpClient &m_http;
    QString m_root;
    const Clock &m_clock;
    const Calendar &m_calendar;
    mutable std::mutex m_mutex; // guards the two below; never held across a request
    std::optional<Date> m_lastFetchDay;
    std::optional<OnThisDayInfo> m_cached;
};

} // namespace zeph
