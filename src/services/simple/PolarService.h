// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "wording/FramingContext.h"

#include <QJsonValue>

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// The card of the last period in the answer. Throws `ServiceError` when it holds none.
SimpleCard polarCard(const QJsonValue &answer, const FramingContext &framing);

/// The figures of this month of an organization at Polar. Callable from any thread but the main
/// one.
class PolarService {
public:
    PolarService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
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
