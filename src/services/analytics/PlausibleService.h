// SPDX-License-Identifier: MIT
#pragma once

#include "model/AnalyticsStats.h"

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// Today's visitors of a site at Plausible. Keeps nothing between calls; callable from any thread
/// but the main one.
class PlausibleService {
public:
    PlausibleService(HttpClient &client, const Endpoints &endpoints, const Clock &clock);

    /// Blocks for one request. Never throws: a failure is told in `error`.
    AnalyticsStats fetch(const QString &key, const QString &site) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
    QString m_root;
};

} // namespace zeph
