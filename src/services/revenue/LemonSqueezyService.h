// SPDX-License-Identifier: MIT
#pragma once

#include "model/RevenueStats.h"
#include "ports/HttpClient.h"
#include "services/revenue/LemonSqueezyPrice.h"

#include <map>
#include <mutex>

namespace zeph {

class Clock;
struct Endpoints;

/// Revenue of a Lemon Squeezy store, summed from its subscriptions and their prices. Prices are
/// kept for the life of the object. Callable from any thread but the main one, by several at once.
class LemonSqueezyService {
public:
    LemonSqueezyService(HttpClient &client, const Endpoints &endpoints, const Clock &clock);

    /// Blocks for a request a price that is not known yet, and up to six more. Never throws: a
    /// failure is told in `error`, and what was read before it stays.
    RevenueStats fetch(const QString &key);

private:
    using Headers = std::vector<HttpHeader>;

    void fill(RevenueStats &stats, const Headers &headers);
    qint64 count(const QString &status, const Headers &headers) const;
    qint64 monthlySum(const Headers &headers);
    qint64 monthlyCents(qint64 priceId, qint64 quantity, const Headers &headers);
    LemonSqueezyPrice price(qint64 id, const Headers &headers);

    HttpClient &m_client;
    const Clock &m_clock;
    QString m_base;
    std::mutex m_mutex;
    std::map<QString, LemonSqueezyPrice> m_priceCache; // by id; guarded by m_mutex
};

} // namespace zeph
