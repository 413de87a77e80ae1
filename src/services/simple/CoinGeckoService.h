// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// Throws `ServiceError` when the answer does not hold the coin.
SimpleCard coinGeckoCard(const QJsonValue &answer, const QString &coinId);

/// The price of a coin in dollars, which needs no key. Callable from any thread but the main one.
class CoinGeckoService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a coin. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &coinId) const;
};

} // namespace zeph
