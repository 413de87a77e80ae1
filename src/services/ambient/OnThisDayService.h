// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "base/WorkOwner.h"
#include "model/OnThisDayInfo.h"

#include <functional>
#include <optional>

namespace zeph {

class Background;
class Calendar;
class Clock;
class HttpClient;
struct Endpoints;

/// One event of today's date in history, the same one all day. Main thread only.
class OnThisDayService {
public:
    using Completion = std::function<void(const std::optional<OnThisDayInfo> &)>;

    /// All but `endpoints` outlive this object and the tasks that it starts.
    OnThisDayService(HttpClient &http, const Endpoints &endpoints, const Background &background,
                     const Clock &clock, const Calendar &calendar);

    /// Calls `completion` within the call where today's event is known. Otherwise the service is
    /// asked and `completion` called later; where that fails it gets the last event, maybe
    /// yesterday's, or none. Not called any more once this object has ended.
    void fetch(Completion completion);

private:
    HttpClient &m_http;
    QString m_root;
    const Background &m_background;
    const Clock &m_clock;
    const Calendar &m_calendar;
    std::optional<Date> m_lastFetchDay;
    std::optional<OnThisDayInfo> m_cached;
    WorkOwner m_work;
};

} // namespace zeph
