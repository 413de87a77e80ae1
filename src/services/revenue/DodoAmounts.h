// SPDX-License-Identifier: MIT
#pragma once

#include "services/revenue/ExchangeRates.h"

#include <QJsonObject>

#include <map>
#include <optional>
#include <set>

namespace zeph {

/// What a Dodo Payments account takes, by currency as it is told and in that currency's minor
/// units.
struct DodoAmounts {
    using ByCurrency = std::map<QString, qint64>;

    ByCurrency monthly = {};
    ByCurrency total = {};
    std::set<QString> customers = {}; ///< identifiers of those who paid

    /// Adds one page; false when there can be no further page.
    bool addSubscriptions(const QJsonValue &body);
    bool addPayments(const QJsonValue &body);

    bool needsRates() const;

    static std::optional<QString> customerID(const QJsonObject &item);

    /// Numbers alone; anything else in the table is passed over.
    static ExchangeRates usdRates(const QJsonValue &body);

    /// The sum in US cents. An amount that can't be converted does not count.
    static qint64 usdCents(const ByCurrency &amounts, const ExchangeRates &rates);
};

} // namespace zeph
