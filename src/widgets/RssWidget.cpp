// SPDX-License-Identifier: MIT
#include "widgets/IntegrationWidgets.h"

#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "widgets/AccountBlocks.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetContext.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// As wide as two columns of chips.
constexpr double headlineWidth = 490;

View headlines(const SimpleIntegrationStats &stats, const Palette &palette) {
    FrameSpec frame;
    frame.maxWidth = headlineWidth;
    frame.horizontal = HorizontalAlignment::leading;
    std::vector<View> rows{sectionLabel(blockTitle(stats.label, u"Feed"_s), palette)};
    for (const IntegrationChip &chip : stats.chips) {
        rows.push_back(framed(metricChip({chip.icon, chip.text}, palette), frame));
    }
    return widgetRows(std::move(rows));
}

} // namespace

View rssWidget(const WidgetContext &context) {
    return accountBlocks(
        *context.state.simpleStats,
        [](const SimpleIntegrationStats &stats) { return hasSucceeded(stats, WidgetKind::rss); },
        [&](const SimpleIntegrationStats &stats) { return headlines(stats, context.palette); });
}

} // namespace zeph
