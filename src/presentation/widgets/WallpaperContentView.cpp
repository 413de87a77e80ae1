// SPDX-License-Identifier: MIT
#include "presentation/widgets/WallpaperContentView.h"

#include "presentation/preferences/PreferencesStore.h"
#include "presentation/view/WallpaperStackLayout.h"
#include "presentation/view/WidgetScaleLayout.h"
#include "presentation/widgets/BuiltInWidgets.h"

#include <algorithm>

namespace zeph {

namespace {

constexpr double smallScale = 0.85;
constexpr double largeScale = 1.3;

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

QString WallpaperContentView::identity(const FlowRow &row) {
    if (const auto *widgetRow = std::get_if<WidgetRow>(&row)) {
        return rawValue(widgetRow->kind);
    }
    QStringList raws;
    for (const WidgetKind kind : std::get<IntegrationCardsRow>(row).kinds) {
        raws << rawValue(kind);
    }
    return raws.join(u'+');
}

View WallpaperContentView::body(const std::vector<WidgetKind> &kinds) const {
    std::vector<WidgetKind> flow = kinds;
    const bool hasClock = std::erase(flow, WidgetKind::clock) > 0;
    std::vector<View> children;
    for (const FlowRow &row : flowRows(flow)) {
        children.push_back(flowRow(row, {}));
    }
    if (hasClock) {
        children.push_back(sizedWidget(WidgetKind::clock));
    }
    WallpaperStackLayout layout;
    layout.maxHeight = std::max(m_available.height(), 1.0);
    layout.anchorsLast = hasClock;
    return wallpaperStack(layout, std::move(children));
}

View WallpaperContentView::flowRow(const FlowRow &row,
                                   const std::set<QString> & /*excludedKeys*/) const {
    if (const auto *widgetRow = std::get_if<WidgetRow>(&row)) {
        return sizedWidget(widgetRow->kind);
    }
    return {}; // cards have nothing to draw without the records of the integrations
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
    switch (kind) {
    case WidgetKind::clock:
        return clockWidget(m_context);
    case WidgetKind::weather:
        return weatherWidget(m_context);
    case WidgetKind::sun:
        return sunWidget(m_context);
    case WidgetKind::airQuality:
        return airQualityWidget(m_context);
    case WidgetKind::meeting:
        return meetingWidget(m_context);
    case WidgetKind::currentApp:
        return currentAppWidget(m_context);
    case WidgetKind::topApp:
        return topAppWidget(m_context);
    case WidgetKind::appRanking:
        return appRankingWidget(m_context);
    case WidgetKind::rhythm:
        return rhythmWidget(m_context);
    case WidgetKind::desktop:
        return desktopWidget(m_context);
    case WidgetKind::machine:
        return machineWidget(m_context);
    case WidgetKind::reminders:
        return remindersWidget(m_context);
    case WidgetKind::countdowns:
        return countdownsWidget(m_context);
    case WidgetKind::progress:
        return progressWidget(m_context);
    case WidgetKind::devices:
        return devicesWidget(m_context);
    case WidgetKind::quote:
        return quoteWidget(m_context);
    case WidgetKind::onThisDay:
        return onThisDayWidget(m_context);
    case WidgetKind::nasa:
        return nasaWidget(m_context);
    case WidgetKind::iss:
        return issWidget(m_context);
    default: // the integrations: without their records they have nothing to draw
        return {};
    }
}

} // namespace zeph
