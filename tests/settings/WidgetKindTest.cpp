// SPDX-License-Identifier: MIT
#include "settings/WidgetKind.h"

#include "support/QtPrinters.h"

#include <QStringList>

#include <set>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace zeph {

namespace {

using enum WidgetKind;

constexpr auto always = WidgetPlacement::always;
constexpr auto off = WidgetPlacement::off;
constexpr auto small = WidgetSizeOption::small;
constexpr auto medium = WidgetSizeOption::medium;

struct Expected {
    const char16_t *raw;
    const char16_t *title;
    const char16_t *icon;
    const char16_t *section; // empty for none
    WidgetPlacement placement;
    WidgetSizeOption size;
    const char16_t *legacy; // empty for none
    bool card;
};

// clang-format off
const Expected table[] = {
    {u"clock", u"Time & date", u"clock", u"Essentials", always, medium, u"", false},
    {u"weather", u"Weather", u"cloud.sun", u"Essentials", always, small, u"", false},
    {u"meeting", u"Next meeting", u"calendar", u"Essentials", always, medium, u"", false},
    {u"currentApp", u"Current app", u"app.dashed", u"Focus & apps", always, small, u"", false},
    {u"topApp", u"App you live in", u"star", u"Focus & apps", always, small, u"", false},
    {u"appRanking", u"App usage ranking", u"chart.bar", u"Focus & apps", always, medium, u"", false},
    {u"rhythm", u"Your rhythm", u"waveform.path.ecg", u"Focus & apps", always, small, u"", false},
    {u"desktop", u"Desktop tidiness", u"menubar.dock.rectangle", u"Focus & apps", off, medium, u"", false},
    {u"machine", u"Machine stats", u"cpu", u"System", always, medium, u"", false},
    {u"revenue", u"Revenue (Stripe)", u"creditcard", u"Revenue", always, medium, u"", false},
    {u"github", u"GitHub", u"chevron.left.forwardslash.chevron.right", u"Developer", always, medium, u"", false},
    {u"githubGraph", u"GitHub contributions", u"square.grid.3x3.fill", u"", always, medium, u"", false},
    {u"customAPIs", u"Custom integrations", u"puzzlepiece.extension", u"Developer", always, medium, u"", false},
    {u"chartmogul", u"ChartMogul", u"chart.line.uptrend.xyaxis", u"Revenue", always, medium, u"saas", false},
    {u"lemonsqueezy", u"Lemon Squeezy", u"cart", u"Revenue", always, medium, u"saas", false},
    {u"dodo", u"Dodo Payments", u"creditcard.circle", u"Revenue", always, medium, u"saas", false},
    {u"openai", u"OpenAI", u"brain", u"", always, medium, u"aiUsage", false},
    {u"claude", u"Claude spend", u"sparkles", u"", always, medium, u"aiUsage", false},
    {u"quote", u"Quote of the day", u"quote.bubble", u"Inspiration", always, medium, u"", false},
    {u"reminders", u"Reminders", u"checklist", u"Calendar & tasks", off, medium, u"", false},
    {u"countdowns", u"Event countdowns", u"calendar.badge.clock", u"Calendar & tasks", always, medium, u"", false},
    {u"progress", u"Month & year progress", u"chart.bar.fill", u"System", always, medium, u"", false},
    {u"devices", u"Device batteries", u"airpodspro", u"System", always, medium, u"", false},
    {u"analytics", u"Site analytics", u"chart.xyaxis.line", u"", always, medium, u"", false},
    {u"trustmrr", u"TrustMRR", u"building.2", u"Revenue", always, medium, u"", false},
    {u"ahrefs", u"Domain Rating", u"link", u"Followers & quick stats", always, medium, u"", true},
    {u"coingecko", u"Crypto price", u"bitcoinsign.circle", u"Followers & quick stats", always, medium, u"", true},
    {u"hackernews", u"Hacker News", u"flame", u"Followers & quick stats", always, medium, u"", true},
    {u"reddit", u"Reddit", u"bubble.left.and.bubble.right", u"Followers & quick stats", always, medium, u"", true},
    {u"producthunt", u"Product Hunt", u"p.circle", u"Followers & quick stats", always, medium, u"", true},
    {u"bluesky", u"Bluesky", u"cloud", u"Followers & quick stats", always, medium, u"", true},
    {u"currency", u"Exchange rate", u"arrow.left.arrow.right", u"Followers & quick stats", always, medium, u"", true},
    {u"gumroad", u"Gumroad", u"bag", u"Revenue", always, medium, u"", true},
    {u"polar", u"Polar", u"bolt.circle", u"Revenue", always, medium, u"", true},
    {u"vercel", u"Vercel", u"triangle", u"", always, medium, u"", true},
    {u"netlify", u"Netlify", u"globe", u"", always, medium, u"", true},
    {u"rss", u"RSS feed", u"dot.radiowaves.up.forward", u"Developer", always, medium, u"", false},
    {u"sun", u"Sunset countdown", u"sunset", u"Essentials", always, small, u"", false},
    {u"airQuality", u"Air quality", u"aqi.medium", u"Essentials", always, small, u"", false},
    {u"onThisDay", u"On this day in history", u"book.closed", u"Inspiration", always, medium, u"", false},
    {u"nasa", u"Picture of the day", u"moon.stars", u"", always, medium, u"", false},
    {u"iss", u"Space station", u"globe.americas", u"Inspiration", always, medium, u"", false},
};
// clang-format on

QString text(const char16_t *utf16) {
    return QString::fromUtf16(utf16);
}

QString sectionOf(WidgetKind kind) {
    for (const WidgetSection &section : settingsSections()) {
        if (testing::Value(section.kinds, testing::Contains(kind))) {
            return section.title;
        }
    }
    return {};
}

TEST(WidgetKind, theyStandInDeclaredOrder) {
    ASSERT_EQ(std::size(table), std::size_t(widgetKindCount));
    const auto kinds = allWidgetKinds();
    for (std::size_t index = 0; index < kinds.size(); ++index) {
        EXPECT_EQ(kinds[index], static_cast<WidgetKind>(index));
        EXPECT_EQ(rawValue(kinds[index]), text(table[index].raw));
    }
}

TEST(WidgetKind, aRawValueLeadsBackToItsKindAndNothingElseDoes) {
    for (const WidgetKind kind : allWidgetKinds()) {
        EXPECT_EQ(widgetKindFromRaw(rawValue(kind)), kind);
    }
    for (const QString &raw : {u""_s, u"Clock"_s, u"saas"_s, u"aiUsage"_s, u"clock "_s}) {
        EXPECT_EQ(widgetKindFromRaw(raw), std::nullopt);
    }
}

TEST(WidgetKind, everyKindHasItsTitleIconSectionAndDefaults) {
    for (const Expected &expected : table) {
        SCOPED_TRACE(text(expected.raw).toStdString());
        const auto kind = widgetKindFromRaw(text(expected.raw));
        ASSERT_TRUE(kind);
        EXPECT_EQ(title(*kind), text(expected.title));
        EXPECT_EQ(icon(*kind), text(expected.icon));
        EXPECT_EQ(sectionOf(*kind), text(expected.section));
        EXPECT_EQ(defaultPlacement(*kind), expected.placement);
        EXPECT_EQ(defaultSize(*kind), expected.size);
        EXPECT_EQ(legacyKey(*kind).value_or(QString()), text(expected.legacy));
        EXPECT_EQ(isIntegrationCard(*kind), expected.card);
    }
}

TEST(WidgetKind, theSectionsStandInTheirOrder) {
    QStringList titles;
    QStringList subtitles;
    for (const WidgetSection &section : settingsSections()) {
        EXPECT_EQ(section.id, section.title);
        titles.append(section.title);
        subtitles.append(section.subtitle);
    }
    EXPECT_EQ(titles, (QStringList{u"Essentials"_s, u"Focus & apps"_s, u"System"_s,
                                   u"Calendar & tasks"_s, u"Inspiration"_s, u"Revenue"_s,
                                   u"Developer"_s, u"Followers & quick stats"_s}));
    EXPECT_EQ(subtitles,
              (QStringList{u"Time, weather, and your schedule"_s,
                           u"What you're doing and where your time goes"_s,
                           u"Your computer and connected devices"_s, u"Reminders and countdowns"_s,
                           u"A daily quote, history fact, or the ISS"_s,
                           u"Business metrics from your integrations"_s,
                           u"GitHub, feeds, and custom endpoints"_s,
                           u"Domain rating, crypto, currency, and follower counts"_s}));
}

TEST(WidgetKind, theKindsOfEachSectionStandInTheirOrder) {
    const auto &sections = settingsSections();
    ASSERT_EQ(sections.size(), 8U);
    EXPECT_THAT(sections[0].kinds, ElementsAre(clock, weather, sun, airQuality, meeting));
    EXPECT_THAT(sections[1].kinds, ElementsAre(currentApp, topApp, appRanking, rhythm, desktop));
    EXPECT_THAT(sections[2].kinds, ElementsAre(machine, devices, progress));
    EXPECT_THAT(sections[3].kinds, ElementsAre(reminders, countdowns));
    EXPECT_THAT(sections[4].kinds, ElementsAre(quote, onThisDay, iss));
    EXPECT_THAT(sections[5].kinds,
                ElementsAre(revenue, chartmogul, lemonsqueezy, dodo, gumroad, polar, trustmrr));
    EXPECT_THAT(sections[6].kinds, ElementsAre(github, rss, customAPIs));
    EXPECT_THAT(sections[7].kinds,
                ElementsAre(ahrefs, coingecko, currency, hackernews, reddit, producthunt, bluesky));
}

TEST(WidgetKind, sevenKindsStandInNoSection) {
    std::set<WidgetKind> without;
    for (const WidgetKind kind : allWidgetKinds()) {
        if (sectionOf(kind).isEmpty()) {
            without.insert(kind);
        }
    }
    EXPECT_EQ(without, (std::set{githubGraph, openai, claude, analytics, vercel, netlify, nasa}));
}

} // namespace

} // namespace zeph
