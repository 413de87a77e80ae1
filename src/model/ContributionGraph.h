// SPDX-License-Identifier: MIT
#pragma once

#include "model/ContributionLayout.h"

#include <QString>
#include <QUuid>

#include <vector>

namespace zeph {

/// One day: the number of contributions and its shade, 0 to 4.
struct ContributionDay {
    qint64 count = 0;
    qint64 level = 0;

    bool operator==(const ContributionDay &) const = default;
};

using ContributionWeek = std::vector<ContributionDay>;

/// One row of the graph. `label` is the year in stacked layouts, else empty.
struct ContributionRow {
    QUuid id;
    QString label;
    std::vector<ContributionWeek> weeks;
    qint64 total = 0;

    bool operator==(const ContributionRow &) const = default;
};

/// A calendar of contributions; `grandTotal` is the sum of the rows' totals.
struct ContributionGraph {
    std::vector<ContributionRow> rows;
    qint64 grandTotal = 0;

    bool operator==(const ContributionGraph &) const = default;
};

} // namespace zeph
