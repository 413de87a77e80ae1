// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"

#include <QJsonValue>

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// Throws `ServiceError` when the answer holds no site.
SimpleCard netlifyCard(const QJsonValue &answer);

/// How the site stands that was changed last in an account at Netlify. Callable from any thread but
/// the main one.
class NetlifyService {
public:
    NetlifyService(HttpClient &client, const Endpoints &endpoints, const Clock &clock);

    /// Blocks for one request, for none without a token. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &token) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
    QString m_root;
};

} // namespace zeph
