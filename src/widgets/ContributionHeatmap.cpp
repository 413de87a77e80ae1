// SPDX-License-Identifier: MIT
#include "widgets/ContributionHeatmap.h"

#include "drawing/view/Views.h"

#include <algorithm>

namespace zeph {

namespace {

constexpr std::size_t daysInWeek = 7;
constexpr Color clear{0, 0, 0, 0};

Color shade(qint64 level, const Palette &palette) {
    switch (level) {
    case 0:
        return palette.text.opacity(0.10);
    case 1:
        return {0.00, 0.27, 0.16};
    case 2:
        return {0.00, 0.43, 0.20};
    case 3:
        return {0.15, 0.65, 0.25};
    case 4:
        return {0.22, 0.83, 0.33};
    default: // from an answer that makes no sense
        return clear;
    }
}

std::vector<Color> weekColors(const ContributionWeek &week, const Palette &palette) {
    std::vector<Color> colors(daysInWeek, clear);
    for (std::size_t day = 0; day < std::min(week.size(), daysInWeek); ++day) {
        colors[day] = shade(week[day].level, palette);
    }
    return colors;
}

} // namespace

View ContributionHeatmap::body() const {
    std::vector<std::vector<Color>> colors;
    colors.reserve(std::max(weeks.size(), columns.value_or(0)));
    for (const ContributionWeek &week : weeks) {
        colors.push_back(weekColors(week, palette));
    }
    while (colors.size() < columns.value_or(0)) {
        colors.emplace_back(daysInWeek, palette.text.opacity(0.04));
    }
    return heatmap(colors, cell, gap);
}

} // namespace zeph
