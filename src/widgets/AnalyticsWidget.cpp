// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "model/AppState.h"
#include "widgets/AccountBlocks.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetContext.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

std::vector<MetricChip> visitChips(const AnalyticsStats &stats, const FramingContext &framing) {
    std::vector<MetricChip> chips;
    if (stats.visitorsToday) {
        chips.push_back({u"person.2"_s,
                         StatFraming::count(*stats.visitorsToday, framing) + u" visitors today"_s});
    }
    if (stats.pageviewsToday) {
        chips.push_back(
            {u"eye"_s, StatFraming::count(*stats.pageviewsToday, framing) + u" pageviews today"_s});
    }
    return chips;
}

} // namespace

View analyticsWidget(const WidgetContext &context) {
    return accountBlocks(
        *context.state.analyticsStats,
        [](const AnalyticsStats &stats) { return hasSucceeded(stats); },
        [&](const AnalyticsStats &stats) {
            return chipBlock(blockTitle(stats.label, stats.providerName),
                             visitChips(stats, context.framing), context.palette);
        });
}

} // namespace zeph
