// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "wording/FramingContext.h"

#include <QJsonValue>

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// Throws `ServiceError` unless the answer tells of success.
SimpleCard gumroadCard(const QJsonValue &answer, const FramingContext &framing);

/// The sales of today at Gumroad, as far as one page of them tells. Callable from any thread but
/// the main one.
class GumroadService {
public:
    GumroadService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                   const FramingContext &framing);

    /// Blocks for one request, for none without a token. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &token) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
    FramingContext m_framing;
    QString m_root;
};

} // namespace zeph
