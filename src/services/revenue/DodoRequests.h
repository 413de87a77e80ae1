// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The questions to Dodo Payments.
namespace zeph::DodoRequests {

/// "&brand_id=…" for a brand; empty for a brand that is blank or no valid text.
QString brandSuffix(const QString &brandID);

/// Pages count from 0.
QString subscriptionsUrl(const QString &root, int page, const QString &brandSuffix);
QString paymentsUrl(const QString &root, int page, const QString &brandSuffix);

} // namespace zeph::DodoRequests
