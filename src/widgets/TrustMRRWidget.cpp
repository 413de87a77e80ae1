// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "model/AppState.h"
#include "widgets/AccountBlocks.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetContext.h"

namespace zeph {

using namespace Qt::StringLiterals;

View trustmrrWidget(const WidgetContext &context) {
    return accountBlocks(
        *context.state.simpleStats,
        [](const SimpleIntegrationStats &stats) {
            return hasSucceeded(stats, WidgetKind::trustmrr);
        },
        [&](const SimpleIntegrationStats &stats) {
            std::vector<MetricChip> chips;
            for (const IntegrationChip &chip : stats.chips) {
                chips.push_back({chip.icon, chip.text});
            }
            return chipBlock(blockTitle(stats.label, u"TrustMRR"_s), chips, context.palette);
        });
}

} // namespace zeph
