// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "wording/FramingContext.h"

#include <QJsonValue>

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// The whole handle in lower case; empty when nothing was entered.
QString blueskyHandle(const QString &input);

/// Throws `ServiceError` when the answer holds no profile.
SimpleCard blueskyCard(const QJsonValue &answer, const QString &handle,
                       const FramingContext &framing);

/// The public profile of a Bluesky account, which needs no key. Callable from any thread but the
/// main one.
class BlueskyService {
public:
    BlueskyService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                   const FramingContext &framing);

    /// Blocks for one request, for none without a handle. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &handle) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
    FramingContext m_framing;
    QString m_root;
};

} // namespace zeph
