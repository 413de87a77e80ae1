// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// Figures of one site at an analytics provider.
struct AnalyticsStats {
    QUuid id;
    QString label;
    QString providerName;
    QString site;
    std::optional<qint64> visitorsToday;
    std::optional<qint64> pageviewsToday;
    std::optional<Date> updated; ///< time of a complete fetch
    std::optional<QString> error;

    bool operator==(const AnalyticsStats &) const = default;
};

} // namespace zeph
