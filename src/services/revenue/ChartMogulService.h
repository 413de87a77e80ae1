// SPDX-License-Identifier: MIT
#pragma once

#include "model/RevenueStats.h"

namespace zeph {

class Calendar;
class Clock;
class HttpClient;
struct Endpoints;

/// Subscription metrics as ChartMogul has computed them. Keeps nothing between calls; callable from
/// any thread but the main one.
class ChartMogulService {
public:
    /// `calendar` writes the days that are asked for.
    ChartMogulService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                      const Calendar &calendar);

    /// Blocks for one request. Never throws: a failure is told in `error`.
    RevenueStats fetch(const QString &key) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
    const Calendar &m_calendar;
    QString m_root;
};

} // namespace zeph
