// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "wording/FramingContext.h"

#include <QJsonValue>

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// Throws `ServiceError` when the answer holds no user.
SimpleCard hackerNewsCard(const QJsonValue &answer, const QString &username,
                          const FramingContext &framing);

/// The karma of a Hacker News user, which needs no key. Callable from any thread but the main one.
class HackerNewsService {
public:
    HackerNewsService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                      const FramingContext &framing);

    /// Blocks for one request, for none without a name. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &username) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
    FramingContext m_framing;
    QString m_root;
};

} // namespace zeph
