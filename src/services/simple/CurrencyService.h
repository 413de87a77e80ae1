// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

#include <map>
#include <mutex>
#include <optional>

namespace zeph {

/// Two currency codes of three characters each.
struct CurrencyPair {
    QString from;
    QString to;

    bool operator==(const CurrencyPair &) const = default;
};

/// The pair in an upper-cased text, its parts set off by "/", "-", ":" or blanks; what stands
/// behind the second is ignored. Absent when it holds none.
std::optional<CurrencyPair> currencyPair(const QString &text);

/// Throws `ServiceError` when the answer holds no rate.
SimpleCard currencyCard(const QJsonValue &answer, const CurrencyPair &pair);

/// Exchange rates, which need no key and change once a day. A rate is asked for again when it is
/// an hour old. Callable from any thread but the main one.
class CurrencyService : public CardService {
public:
    static constexpr double ttl = 3600; ///< seconds that a rate is served again

    using CardService::CardService;

    /// Blocks for one request at most. A rate that is still fresh comes back whole, its first
    /// identity and time included. Never throws; a failure is in `error` and is not kept.
    SimpleIntegrationStats fetch(const QString &pair);

private:
    std::optional<SimpleIntegrationStats> fresh(const QString &key) const;
    void keep(const QString &key, const SimpleIntegrationStats &stats);

    mutable std::mutex m_lock; ///< never held across a request
    std::map<QString, SimpleIntegrationStats> m_cache;
    std::map<QString, Date> m_lastFetch;
};

} // namespace zeph
