// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace zeph {

/// The widgets, in their declared order. A stored raw value is a widget's identity for good.
enum class WidgetKind {
    clock,
    weather,
    meeting,
    currentApp,
    topApp,
    appRanking,
    rhythm,
    desktop,
    machine,
    revenue,
    github,
    githubGraph,
    customAPIs,
    chartmogul,
    lemonsqueezy,
    dodo,
    openai,
    claude,
    quote,
    reminders,
    countdowns,
    progress,
    devices,
    analytics,
    trustmrr,
    ahrefs,
    coingecko,
    hackernews,
    reddit,
    producthunt,
    bluesky,
    currency,
    gumroad,
    polar,
    vercel,
    netlify,
    rss,
    sun,
    airQuality,
    onThisDay,
    nasa,
    iss,
};

inline constexpr int widgetKindCount = 42;

enum class WidgetPlacement { off, always };
enum class WidgetSizeOption { small, medium, large };

/// All kinds in declared order.
std::array<WidgetKind, widgetKindCount> allWidgetKinds();

/// The stored identity, which is the case's name.
QString rawValue(WidgetKind kind);
std::optional<WidgetKind> widgetKindFromRaw(const QString &raw);

QString title(WidgetKind kind);

/// The kind's symbol identifier.
QString icon(WidgetKind kind);

WidgetPlacement defaultPlacement(WidgetKind kind);
WidgetSizeOption defaultSize(WidgetKind kind);

/// The key under which earlier releases stored this kind's choices together with its siblings'.
std::optional<QString> legacyKey(WidgetKind kind);

/// True for the small cards that are packed two abreast.
bool isIntegrationCard(WidgetKind kind);

/// A heading of the widget list in the settings and what stands under it.
struct WidgetSection {
    QString id; ///< equal to `title`
    QString title;
    QString subtitle;
    std::vector<WidgetKind> kinds;
};

/// The sections of the settings, in order. Seven kinds stand in none.
const std::vector<WidgetSection> &settingsSections();

} // namespace zeph
