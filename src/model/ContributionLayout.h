// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <optional>

namespace zeph {

/// The span that a contribution graph shows: 3 or 6 months, or 1 to 4 years.
enum class ContributionLayout { m3, m6, y1, y2, y3, y4 };

/// Every layout, in the order that a picker lists them.
inline constexpr std::array allContributionLayouts = {
    ContributionLayout::m3, ContributionLayout::m6, ContributionLayout::y1,
    ContributionLayout::y2, ContributionLayout::y3, ContributionLayout::y4};

/// The text form, the same word as the name.
QString rawValue(ContributionLayout layout);

/// The layout of a text form, absent for any other text.
std::optional<ContributionLayout> contributionLayoutFromRaw(const QString &raw);

/// The words of the picker.
QString pickerLabel(ContributionLayout layout);

/// Whether each year has a row of its own.
bool isStacked(ContributionLayout layout);

/// The number of calendar years that are asked for, the current one first.
int yearsAsked(ContributionLayout layout);

/// How many of the last weeks are shown; absent for all of them.
std::optional<int> weeksKept(ContributionLayout layout);

} // namespace zeph
