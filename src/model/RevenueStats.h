// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// Figures of one account at a revenue provider. A number is absent where the provider does not
/// tell it. Amounts are in minor units of `currency`.
struct RevenueStats {
    QUuid id;
    QString provider;
    QString label;
    QString providerName;
    QString currency;
    std::optional<qint64> mrrCents;
    std::optional<qint64> arrCents;
    std::optional<qint64> paidCustomers;
    std::optional<qint64> trialUsers;
    std::optional<qint64> totalRevenueCents;
    std::optional<Date> updated; ///< time of a complete fetch
    std::optional<QString> error;

    bool operator==(const RevenueStats &) const = default;
};

} // namespace zeph
