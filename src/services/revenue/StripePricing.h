// SPDX-License-Identifier: MIT
#pragma once

#include "services/revenue/ExchangeRates.h"

#include <QJsonObject>

#include <optional>

/// What a subscription brings in a month. The factors and the rounding are Stripe's own and differ
/// from those of the smaller services on purpose.
namespace zeph::StripePricing {

/// The month's share of `amount`, by `interval` and `interval_count` of `recurring`.
qint64 monthlyCents(qint64 amount, const QJsonObject &recurring);

/// `amount` less the coupon of `discount`.
qint64 applyDiscount(qint64 amount, const std::optional<QJsonObject> &discount);

/// The month's sum of all items of a subscription in `currency`, less its discount. A price in a
/// currency without a rate counts as it stands.
qint64 subscriptionCents(const QJsonObject &subscription, const QString &currency,
                         const ExchangeRates &rates);

} // namespace zeph::StripePricing
