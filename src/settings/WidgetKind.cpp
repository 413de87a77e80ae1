// SPDX-License-Identifier: MIT
#include "settings/WidgetKind.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// What sets a kind apart from the plain ones.
enum class Trait { plain, smallAtFirst, offAtFirst, card, onceSaas, onceAiUsage };
using enum Trait;

struct Row {
    WidgetKind kind;
    QString raw;
    QString title;
    QString icon;
    Trait trait;
};

/// One row a kind, in declared order, so that a kind's number is its index.
const std::array<Row, widgetKindCount> &table() {
    // clang-format off
    static const std::array<Row, widgetKindCount> rows = {{
        {WidgetKind::clock, u"clock"_s, u"Time & date"_s, u"clock"_s, plain},
        {WidgetKind::weather, u"weather"_s, u"Weather"_s, u"cloud.sun"_s, smallAtFirst},
        {WidgetKind::meeting, u"meeting"_s, u"Next meeting"_s, u"calendar"_s, plain},
        {WidgetKind::currentApp, u"currentApp"_s, u"Current app"_s, u"app.dashed"_s, smallAtFirst},
        {WidgetKind::topApp, u"topApp"_s, u"App you live in"_s, u"star"_s, smallAtFirst},
        {WidgetKind::appRanking, u"appRanking"_s, u"App usage ranking"_s, u"chart.bar"_s, plain},
        {WidgetKind::rhythm, u"rhythm"_s, u"Your rhythm"_s, u"waveform.path.ecg"_s, smallAtFirst},
        {WidgetKind::desktop, u"desktop"_s, u"Desktop tidiness"_s, u"menubar.dock.rectangle"_s, offAtFirst},
        {WidgetKind::machine, u"machine"_s, u"Machine stats"_s, u"cpu"_s, plain},
        {WidgetKind::revenue, u"revenue"_s, u"Revenue (Stripe)"_s, u"creditcard"_s, plain},
        {WidgetKind::github, u"github"_s, u"GitHub"_s, u"chevron.left.forwardslash.chevron.right"_s, plain},
        {WidgetKind::githubGraph, u"githubGraph"_s, u"GitHub contributions"_s, u"square.grid.3x3.fill"_s, plain},
        {WidgetKind::customAPIs, u"customAPIs"_s, u"Custom integrations"_s, u"puzzlepiece.extension"_s, plain},
        {WidgetKind::chartmogul, u"chartmogul"_s, u"ChartMogul"_s, u"chart.line.uptrend.xyaxis"_s, onceSaas},
        {WidgetKind::lemonsqueezy, u"lemonsqueezy"_s, u"Lemon Squeezy"_s, u"cart"_s, onceSaas},
        {WidgetKind::dodo, u"dodo"_s, u"Dodo Payments"_s, u"creditcard.circle"_s, onceSaas},
        {WidgetKind::openai, u"openai"_s, u"OpenAI"_s, u"brain"_s, onceAiUsage},
        {WidgetKind::claude, u"claude"_s, u"Claude spend"_s, u"sparkles"_s, onceAiUsage},
        {WidgetKind::quote, u"quote"_s, u"Quote of the day"_s, u"quote.bubble"_s, plain},
        {WidgetKind::reminders, u"reminders"_s, u"Reminders"_s, u"checklist"_s, offAtFirst},
        {WidgetKind::countdowns, u"countdowns"_s, u"Event countdowns"_s, u"calendar.badge.clock"_s, plain},
        {WidgetKind::progress, u"progress"_s, u"Month & year progress"_s, u"chart.bar.fill"_s, plain},
        {WidgetKind::devices, u"devices"_s, u"Device batteries"_s, u"airpodspro"_s, plain},
        {WidgetKind::analytics, u"analytics"_s, u"Site analytics"_s, u"chart.xyaxis.line"_s, plain},
        {WidgetKind::trustmrr, u"trustmrr"_s, u"TrustMRR"_s, u"building.2"_s, plain},
        {WidgetKind::ahrefs, u"ahrefs"_s, u"Domain Rating"_s, u"link"_s, card},
        {WidgetKind::coingecko, u"coingecko"_s, u"Crypto price"_s, u"bitcoinsign.circle"_s, card},
        {WidgetKind::hackernews, u"hackernews"_s, u"Hacker News"_s, u"flame"_s, card},
        {WidgetKind::reddit, u"reddit"_s, u"Reddit"_s, u"bubble.left.and.bubble.right"_s, card},
        {WidgetKind::producthunt, u"producthunt"_s, u"Product Hunt"_s, u"p.circle"_s, card},
        {WidgetKind::bluesky, u"bluesky"_s, u"Bluesky"_s, u"cloud"_s, card},
        {WidgetKind::currency, u"currency"_s, u"Exchange rate"_s, u"arrow.left.arrow.right"_s, card},
        {WidgetKind::gumroad, u"gumroad"_s, u"Gumroad"_s, u"bag"_s, card},
        {WidgetKind::polar, u"polar"_s, u"Polar"_s, u"bolt.circle"_s, card},
        {WidgetKind::vercel, u"vercel"_s, u"Vercel"_s, u"triangle"_s, card},
        {WidgetKind::netlify, u"netlify"_s, u"Netlify"_s, u"globe"_s, card},
        {WidgetKind::rss, u"rss"_s, u"RSS feed"_s, u"dot.radiowaves.up.forward"_s, plain},
        {WidgetKind::sun, u"sun"_s, u"Sunset countdown"_s, u"sunset"_s, smallAtFirst},
        {WidgetKind::airQuality, u"airQuality"_s, u"Air quality"_s, u"aqi.medium"_s, smallAtFirst},
        {WidgetKind::onThisDay, u"onThisDay"_s, u"On this day in history"_s, u"book.closed"_s, plain},
        {WidgetKind::nasa, u"nasa"_s, u"Picture of the day"_s, u"moon.stars"_s, plain},
        {WidgetKind::iss, u"iss"_s, u"Space station"_s, u"globe.americas"_s, plain},
    }};
    // clang-format on
    return rows;
}

const Row &row(WidgetKind kind) {
    return table()[static_cast<std::size_t>(kind)];
}

} // namespace

std::array<WidgetKind, widgetKindCount> allWidgetKinds() {
    std::array<WidgetKind, widgetKindCount> kinds{};
    std::transform(table().begin(), table().end(), kinds.begin(),
                   [](const Row &entry) { return entry.kind; });
    return kinds;
}

QString rawValue(WidgetKind kind) {
    return row(kind).raw;
}

std::optional<WidgetKind> widgetKindFromRaw(const QString &raw) {
    const auto found = std::find_if(table().begin(), table().end(),
                                    [&raw](const Row &entry) { return entry.raw == raw; });
    return found == table().end() ? std::nullopt : std::optional(found->kind);
}

QString title(WidgetKind kind) {
    return row(kind).title;
}

QString icon(WidgetKind kind) {
    return row(kind).icon;
}

WidgetPlacement defaultPlacement(WidgetKind kind) {
    return row(kind).trait == offAtFirst ? WidgetPlacement::off : WidgetPlacement::always;
}

WidgetSizeOption defaultSize(WidgetKind kind) {
    return row(kind).trait == smallAtFirst ? WidgetSizeOption::small : WidgetSizeOption::medium;
}

std::optional<QString> legacyKey(WidgetKind kind) {
    switch (row(kind).trait) {
    case onceSaas:
        return u"saas"_s;
    case onceAiUsage:
        return u"aiUsage"_s;
    default:
        return std::nullopt;
    }
}

bool isIntegrationCard(WidgetKind kind) {
    return row(kind).trait == card;
}

} // namespace zeph
