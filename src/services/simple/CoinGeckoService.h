// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"

#include <QJsonValue>

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// Throws `ServiceError` when the answer does not hold the coin.
SimpleCard coinGeckoCard(const QJsonValue &answer, const QString &coinId);

/// The price of a coin in dollars, which needs no key. Callable from any thread but the main one.
class CoinGeckoService {
public:
    CoinGeckoService(HttpClient &client, const Endpoints &endpoints, const Clock &clock);

    /// Blocks for one request, for none without a coin. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &coinId) const;

private:
    HttpClient &m_client;
    const Clock &m_clock;
    QString m_root;
};

} // namespace zeph
