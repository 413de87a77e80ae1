// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "base/FixedDecimals.h"
#include "model/AppState.h"
#include "widgets/AccountBlocks.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetContext.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

std::vector<MetricChip> spendChips(const AIUsageStats &stats) {
    const auto dollars = [](double amount) { return u'$' + fixedDecimals(amount, 2); };
    std::vector<MetricChip> chips;
    if (stats.monthCostUSD) {
        chips.push_back({u"brain"_s, dollars(*stats.monthCostUSD) + u" this month"_s});
    }
    if (stats.todayCostUSD) {
        chips.push_back({u"sun.max"_s, dollars(*stats.todayCostUSD) + u" today"_s});
    }
    return chips;
}

} // namespace

View aiProviderWidget(WidgetKind kind, const WidgetContext &context) {
    return accountBlocks(
        *context.state.aiUsage,
        [kind](const AIUsageStats &stats) { return hasSucceeded(stats, kind); },
        [&](const AIUsageStats &stats) {
            return chipBlock(stats.providerName + u" spend"_s, spendChips(stats), context.palette);
        });
}

} // namespace zeph
