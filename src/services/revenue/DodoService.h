// SPDX-License-Identifier: MIT
#pragma once

#include "model/RevenueStats.h"
#include "ports/HttpClient.h"
#include "services/revenue/DodoAmounts.h"

namespace zeph {

class Clock;
struct Endpoints;

/// Revenue of a Dodo Payments account in US dollars. Keeps nothing between calls; callable from any
/// thread but the main one.
class DodoService {
public:
    DodoService(HttpClient &client, const Endpoints &endpoints, const Clock &clock);

    /// Blocks through 2 to 11 requests. A blank `brandID` takes all brands together. Never throws:
    /// a failure is told in `error`.
    RevenueStats fetch(const QString &key, const QString &brandID) const;

private:
    DodoAmounts fetchAmounts(const QString &key, const QString &brandID) const;
    ExchangeRates usdRates() const;

    HttpClient &m_client;
    const Clock &m_clock;
    QString m_base;
    QString m_ratesRoot;
};

} // namespace zeph
