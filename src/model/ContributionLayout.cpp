// SPDX-License-Identifier: MIT
#include "model/ContributionLayout.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

struct Facts {
    QString raw;
    QString label;
    int years = 1;
    std::optional<int> weeks = {};
};

Facts factsOf(ContributionLayout layout) {
    switch (layout) {
    case ContributionLayout::m3:
        return {u"m3"_s, u"Last 3 months"_s, 1, 13};
    case ContributionLayout::m6:
        return {u"m6"_s, u"Last 6 months"_s, 1, 26};
    case ContributionLayout::y1:
        break;
    case ContributionLayout::y2:
        return {u"y2"_s, u"Last 2 years (stacked)"_s, 2};
    case ContributionLayout::y3:
        return {u"y3"_s, u"Last 3 years (stacked)"_s, 3};
    case ContributionLayout::y4:
        return {u"y4"_s, u"Last 4 years (stacked)"_s, 4};
    }
    return {u"y1"_s, u"Last year"_s};
}

} // namespace

QString rawValue(ContributionLayout layout) {
    return factsOf(layout).raw;
}

std::optional<ContributionLayout> contributionLayoutFromRaw(const QString &raw) {
    for (const ContributionLayout layout : allContributionLayouts) {
        if (rawValue(layout) == raw) {
            return layout;
        }
    }
    return std::nullopt;
}

QString pickerLabel(ContributionLayout layout) {
    return factsOf(layout).label;
}

bool isStacked(ContributionLayout layout) {
    return yearsAsked(layout) > 1;
}

int yearsAsked(ContributionLayout layout) {
    return factsOf(layout).years;
}

std::optional<int> weeksKept(ContributionLayout layout) {
    return factsOf(layout).weeks;
}

} // namespace zeph
