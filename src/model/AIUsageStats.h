// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// Spending at one AI provider, in US dollars.
struct AIUsageStats {
    QUuid id;
    QString provider;
    QString label;
    QString providerName;
    std::optional<double> monthCostUSD;
    std::optional<double> todayCostUSD;
    std::optional<Date> updated; ///< time of a complete fetch
    std::optional<QString> error;

    bool operator==(const AIUsageStats &) const = default;
};

} // namespace zeph
