// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "wording/FramingContext.h"

#include <QJsonValue>

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// The card of a startup from the answer about it. Throws `ServiceError` without one.
SimpleCard trustMRRCard(const QJsonValue &answer, const QString &slug,
                        const FramingContext &framing);

/// Verified revenue of a startup. Callable from any thread but the main one.
class TrustMRRService {
public:
    TrustMRRService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                    const FramingContext &framing);

    /// Blocks for one request, for none without a slug. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &key, const QString &slug) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
    FramingContext m_framing;
    QString m_root;
};

} // namespace zeph
