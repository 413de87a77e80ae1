// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "services/simple/rss/RSSParser.h"

namespace zeph {

class Clock;
class HttpClient;

inline constexpr qint64 fewestFeedItems = 1;
inline constexpr qint64 mostFeedItems = 5;

/// The feed's title above its first `count` items, within these bounds.
SimpleCard feedCard(const RSSParser::Feed &feed, qint64 count);

/// The latest titles of any RSS or Atom feed. Callable from any thread but the main one.
class RSSService {
public:
    RSSService(HttpClient &client, const Clock &clock);

    /// Blocks for one request, for none without an address. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &url, qint64 count) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
};

} // namespace zeph
