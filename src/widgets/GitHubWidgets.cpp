// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "widgets/AccountBlocks.h"
#include "widgets/ContributionHeatmap.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetContext.h"
#include "wording/StatFraming.h"

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double rowLabelWidth = 30;
constexpr double rowLabelGap = 8;
constexpr double captionGap = 6;

View numbers(const GitHubStats &stats, const WidgetContext &context) {
    const auto count = [&](qint64 n) { return StatFraming::count(n, context.framing); };
    return chipBlock(blockTitle(stats.label, u"GitHub"_s),
                     {{u"star"_s, u"%1 stars"_s.arg(count(stats.totalStars))},
                      {u"person.2"_s, u"%1 followers"_s.arg(count(stats.followers))},
                      {u"arrow.triangle.pull"_s, u"%1 open PRs"_s.arg(count(stats.openPRs))},
                      {u"shippingbox"_s, u"%1 repos"_s.arg(count(stats.publicRepos))}},
                     context.palette);
}

QString span(ContributionLayout layout) {
    switch (layout) {
    case ContributionLayout::m3:
        return u"in the last 3 months"_s;
    case ContributionLayout::m6:
        return u"in the last 6 months"_s;
    case ContributionLayout::y2:
        return u"over the last 2 years"_s;
    case ContributionLayout::y3:
        return u"over the last 3 years"_s;
    case ContributionLayout::y4:
        return u"over the last 4 years"_s;
    case ContributionLayout::y1:
        break;
    }
    return u"in the last year"_s;
}

/// A row without a name keeps the room for one.
View graphRow(const ContributionRow &row, std::size_t columns, const Palette &palette) {
    ContributionHeatmap heatmap;
    heatmap.weeks = row.weeks;
    heatmap.columns = columns;
    heatmap.palette = palette;
    FrameSpec frame;
    frame.width = rowLabelWidth;
    frame.horizontal = HorizontalAlignment::leading;
    return horizontalStack(
        rowLabelGap,
        {framed(text(row.label, textStyle(palette, 10, FontWeight::regular, 0.5)), frame),
         heatmap.body()});
}

View graph(const ContributionGraph &contributions, const Palette &palette) {
    std::size_t columns = 0;
    for (const ContributionRow &row : contributions.rows) {
        columns = std::max(columns, row.weeks.size());
    }
    std::vector<View> rows;
    for (const ContributionRow &row : contributions.rows) {
        rows.push_back(graphRow(row, columns, palette));
    }
    return widgetRows(std::move(rows));
}

View graphBlock(const GitHubStats &stats, const WidgetContext &context) {
    const Palette &palette = context.palette;
    const ContributionGraph &contributions = *stats.contributions;
    const QString caption =
        u"%1 contributions %2"_s.arg(StatFraming::count(contributions.grandTotal, context.framing),
                                     span(stats.contributionLayout));
    return widgetRows(
        {sectionLabel(setApart(blockTitle(stats.label, u"GitHub"_s)) + u" · contributions"_s,
                      palette),
         verticalStack(captionGap,
                       {graph(contributions, palette),
                        text(caption, textStyle(palette, 12, FontWeight::light, 0.65))})});
}

} // namespace

View githubWidget(const WidgetContext &context) {
    return accountBlocks(*context.state.githubStats, hasNumbers,
                         [&](const GitHubStats &stats) { return numbers(stats, context); });
}

View githubGraphWidget(const WidgetContext &context) {
    return accountBlocks(*context.state.githubStats, hasGraph,
                         [&](const GitHubStats &stats) { return graphBlock(stats, context); });
}

} // namespace zeph
