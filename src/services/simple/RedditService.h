// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "wording/FramingContext.h"

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// Karma and followers from the public pages of a Reddit profile, since no open interface tells
/// them. Callable from any thread but the main one.
class RedditService {
public:
    RedditService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                  const FramingContext &framing);

    /// Blocks for one or two requests, for none without a name. Never throws; a failure is in
    /// `error`.
    SimpleIntegrationStats fetch(const QString &username) const;

private:
    SimpleCard card(const QString &name, const QString &user) const;

    /// The text of a page. Throws `TransportError` or `ServiceError`.
    QString html(const QString &url) const;

    HttpClient &m_client;
    const Clock &m_clock;
    FramingContext m_framing;
    QString m_oldRoot;
    QString m_root;
};

} // namespace zeph
