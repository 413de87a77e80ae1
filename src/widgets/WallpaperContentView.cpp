// SPDX-License-Identifier: MIT
#include "widgets/WallpaperContentView.h"

#include "drawing/view/FixedColumnFlow.h"
#include "drawing/view/Views.h"
#include "drawing/view/WidgetScaleLayout.h"
#include "model/AppState.h"
#include "settings/PreferencesStore.h"
#include "widgets/AccountChoices.h"
#include "widgets/IntegrationCards.h"
#include "widgets/RecordContent.h"
#include "widgets/WidgetTable.h"

#include <algorithm>

namespace zeph {

namespace {

constexpr double smallScale = 0.85;
constexpr double largeScale = 1.3;

/// What sums of sizes may be off by, in points.
constexpr double hairsBreadth = 0.5;

std::vector<WidgetKind> rowKinds(const WallpaperContentView::FlowRow &row) {
    if (const auto *one = std::get_if<WallpaperContentView::WidgetRow>(&row)) {
        return {one->kind};
    }
    return std::get<WallpaperContentView::IntegrationCardsRow>(row).kinds;
}

} // namespace

std::vector<WallpaperContentView::FlowRow>
WallpaperContentView::flowRows(const std::vector<WidgetKind> &kinds) {
    std::vector<FlowRow> rows;
    std::vector<WidgetKind> pendingCards;
    const auto flushCards = [&rows, &pendingCards] {
        if (!pendingCards.empty()) {
            rows.emplace_back(IntegrationCardsRow{std::move(pendingCards)});
            pendingCards = {};
        }
    };
    for (const WidgetKind kind : kinds) {
        if (isIntegrationCard(kind)) {
            pendingCards.push_back(kind);
            continue;
        }
        flushCards();
        rows.emplace_back(WidgetRow{kind});
    }
    flushCards();
    return rows;
}

View WallpaperContentView::body(const std::vector<WidgetKind> &kinds) const {
    Flow all = flow(kinds);
    return wallpaperStack(all.layout, std::move(all.views));
}

WallpaperContentView::Flow WallpaperContentView::flow(const std::vector<WidgetKind> &kinds) const {
    Flow all;
    all.layout.maxHeight = std::max(m_available.height(), 1.0);
    std::vector<WidgetKind> flowing = kinds;
    const bool hasClock = std::erase(flowing, WidgetKind::clock) > 0;
    all.rows = flowRows(flowing);
    if (hasClock) {
        all.rows.emplace_back(WidgetRow{WidgetKind::clock});
    }
    for (const FlowRow &row : all.rows) {
        all.views.push_back(flowRow(row, {}));
    }
    all.layout.anchorsLast = hasClock;
    return all;
}

std::vector<WidgetKind> WallpaperContentView::cutOff(const std::vector<WidgetKind> &kinds,
                                                     const LayoutContext &layout) const {
    const Flow all = flow(kinds);
    WallpaperStackLayout stack = all.layout;
    stack.anchorsLast = stack.anchorsLast && !all.views.back().isEmpty();
    std::vector<const FlowRow *> rows;
    std::vector<QSizeF> sizes;
    for (std::size_t at = 0; at < all.views.size(); ++at) {
        if (!all.views[at].isEmpty()) {
            rows.push_back(&all.rows[at]);
            sizes.push_back(all.views[at].measure({}, layout));
        }
    }
    const auto arrangement = stack.arrange(sizes);
    std::vector<WidgetKind> outside;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        // Cards are drawn in their own width, however little their frame has.
        QRectF frame = arrangement.frames[at];
        if (const auto *cards = std::get_if<IntegrationCardsRow>(rows[at])) {
            frame.setWidth(cardBlock(*cards, {}).measure({}, layout).width());
        }
        const bool isOutside = frame.right() > m_available.width() + hairsBreadth ||
                               frame.bottom() > m_available.height() + hairsBreadth;
        const bool isOverClock =
            stack.anchorsLast && at + 1 < rows.size() &&
            frame.adjusted(0, 0, 0, -hairsBreadth).intersects(arrangement.frames.back());
        if (isOutside || isOverClock) {
            const auto kindsOfRow = rowKinds(*rows[at]);
            outside.insert(outside.end(), kindsOfRow.begin(), kindsOfRow.end());
        }
    }
    return outside;
}

View WallpaperContentView::flowRow(const FlowRow &row,
                                   const std::set<QString> &excludedKeys) const {
    if (const auto *widgetRow = std::get_if<WidgetRow>(&row)) {
        return sizedWidget(widgetRow->kind);
    }
    View cards = cardBlock(std::get<IntegrationCardsRow>(row), excludedKeys);
    FrameSpec frame;
    frame.maxWidth = m_available.width();
    frame.horizontal = HorizontalAlignment::leading;
    return cards.isEmpty() ? View() : framed(std::move(cards), frame);
}

View WallpaperContentView::cardBlock(const IntegrationCardsRow &row,
                                     const std::set<QString> &excludedKeys) const {
    std::vector<View> cards;
    for (const IntegrationCardItem &item : integrationCardStats(row.kinds, excludedKeys)) {
        cards.push_back(integrationCard(item));
    }
    return cards.empty() ? View() : columnFlow({}, std::move(cards));
}

std::vector<WallpaperContentView::IntegrationCardItem>
WallpaperContentView::integrationCardStats(const std::vector<WidgetKind> &kinds,
                                           const std::set<QString> &excludedKeys) const {
    std::vector<IntegrationCardItem> items;
    for (const WidgetKind kind : kinds) {
        if (excludedKeys.contains(rawValue(kind))) {
            continue;
        }
        for (const SimpleIntegrationStats &stats : *m_context.state.simpleStats) {
            if (hasSucceeded(stats, kind)) {
                items.push_back({kind, stats});
            }
        }
    }
    return items;
}

View WallpaperContentView::integrationCard(const IntegrationCardItem &item) const {
    const SimpleIntegrationStats &stats = item.stats;
    const auto chipText = [&stats](std::size_t place) {
        return place < stats.chips.size() ? std::optional(stats.chips[place].text) : std::nullopt;
    };
    if (item.kind == WidgetKind::ahrefs) {
        return AhrefsRatingCard{stats.headline, chipText(0).value_or(QString()),
                                m_context.accounts.showAhrefsAttribution(stats.id),
                                m_context.palette}
            .body();
    }
    if (item.kind == WidgetKind::coingecko) {
        return CryptoPriceCard{stats.headline, chipText(0).value_or(QString()), chipText(1),
                               m_context.palette}
            .body();
    }
    return IntegrationSummaryCard{title(item.kind), stats.headline, stats.chips, m_context.palette}
        .body();
}

View WallpaperContentView::sizedWidget(WidgetKind kind) const {
    switch (m_context.preferences.size(kind)) {
    case WidgetSizeOption::small:
        return scaledWidget({smallScale}, widget(kind));
    case WidgetSizeOption::large:
        return scaledWidget({largeScale}, widget(kind));
    case WidgetSizeOption::medium:
        break;
    }
    return widget(kind);
}

View WallpaperContentView::widget(WidgetKind kind) const {
    const auto draw = widgetEntry(kind).draw;
    return draw ? draw(m_context) : View();
}

} // namespace zeph
