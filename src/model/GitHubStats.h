// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "model/ContributionGraph.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// Figures of one GitHub account.
struct GitHubStats {
    QUuid connectionId;
    QString label;
    QString username;
    qint64 followers = 0;
    qint64 publicRepos = 0;
    qint64 totalStars = 0;
    qint64 openPRs = 0;
    std::optional<ContributionGraph> contributions;
    ContributionLayout contributionLayout = ContributionLayout::y1;
    bool showStats = true;
    std::optional<Date> updated; ///< time of a complete fetch
    std::optional<QString> error;
    std::optional<bool> hasToken; ///< whether it was asked with one; absent for a locked keyring

    bool operator==(const GitHubStats &) const = default;
};

} // namespace zeph
