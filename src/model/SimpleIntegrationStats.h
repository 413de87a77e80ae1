// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace zeph {

/// A small fact on a card: a symbol identifier and a text.
struct IntegrationChip {
    QString icon;
    QString text;

    bool operator==(const IntegrationChip &) const = default;
};

/// Figures of one account at a small service.
struct SimpleIntegrationStats {
    QUuid id;
    QString provider;
    QString label;
    QString headline;
    std::vector<IntegrationChip> chips;
    std::optional<Date> updated; ///< time of a complete fetch
    std::optional<QString> error;

    bool operator==(const SimpleIntegrationStats &) const = default;
};

} // namespace zeph
