// SPDX-License-Identifier: MIT
#include "presentation/widgets/IntegrationWidgets.h"

#include "core/AppState.h"
#include "presentation/catalogue/RecordContent.h"
#include "presentation/widgets/AccountBlocks.h"
#include "presentation/widgets/WidgetContext.h"

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
