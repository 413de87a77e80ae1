// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// Figures of one Stripe account. Amounts are in minor units of `currency`.
struct StripeStats {
    QUuid connectionId;
    QString label;
    QString currency = QStringLiteral("usd");
    qint64 todayRevenueCents = 0;
    qint64 todayPayments = 0;
    qint64 newCustomersToday = 0;
    qint64 mrrCents = 0;
    qint64 activeSubscriptions = 0;
    qint64 availableCents = 0;
    std::optional<Date> updated; ///< time of a complete fetch
    std::optional<QString> error;

    bool operator==(const StripeStats &) const = default;
};

} // namespace zeph
