// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "model/AppState.h"
#include "widgets/AccountBlocks.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetContext.h"

namespace zeph {

using namespace Qt::StringLiterals;

View customAPIsWidget(const WidgetContext &context) {
    std::vector<MetricChip> chips;
    for (const CustomAPIResult &result : *context.state.customResults) {
        if (!hasValues(result)) {
            continue;
        }
        for (const CustomAPIValue &value : result.values) {
            chips.push_back({u"puzzlepiece.extension"_s,
                             u"%1: %2"_s.arg(setApart(value.label), setApart(value.value))});
        }
    }
    return chips.empty() ? View() : chipBlock(u"Your integrations"_s, chips, context.palette);
}

} // namespace zeph
